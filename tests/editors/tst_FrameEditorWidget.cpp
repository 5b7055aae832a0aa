#include "editors/FrameEditorWidget.h"

#include "editors/SpriteDrag.h"
#include "editors/TileDrag.h"
#include "model/MapObjects.h"
#include "model/SpriteAnim.h"
#include "model/TileAnimation.h"
#include "support/DragEvents.h"
#include "support/TestSprites.h"

#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <memory>

using AnimationEditor::FrameEditorWidget;
using Cell = AnimationFrame::Cell;

namespace {

constexpr int SpriteCell = 128; // pixels at the first scale
constexpr int TileCell = 64;

QPoint middle(int x, int y, int cell = SpriteCell)
{
    return {x * cell + cell / 2, y * cell + cell / 2};
}

QImage plainPicture(const QColor &colour)
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

} // namespace

class tst_FrameEditorWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsDisabledOneCellLarge();
    void sizeFollowsAnimationKindAndScale();
    void sizeFollowsTheAnimation();
    void zoomDoublesAndHalvesWithinItsLimits();
    void setCurrentFrameClampsAndReports_data();
    void setCurrentFrameClampsAndReports();
    void setCurrentFrameRepeatsTheSelectedCell();
    void clicksSelectCells();
    void clicksOutsideSelectNothing();
    void arrowKeysMoveTheSelection();
    void aRightClickShowsTheCellsFlags();
    void theMenuWritesAllFlagsAtOnce();
    void ownersActionsReplaceItsOwn();
    void settersWriteTheSelectedCell();
    void settersNeedASelectedCell();
    void aSpriteDropKeepsThePreviousOffset();
    void aTileDropChangesTheOffset();
    void dropsOfTheOtherKindAreRefused();
    void dropsGoToTheCurrentFrameAndSelect();
    void damagedDropsChangeNothing();
    void dropsOutsideChangeNothing();
    void dragsMarkTheCellBelow();
    void paintsDarkGreyWithoutAnimation();
    void paintsCellsThroughTheOwner();
    void hoveringRendersNothingAnew();
    void marksTheSelectedCell();
    void toolTipsTellTheCell();
    void newContentClearsTheSelection();
    void aFrameThatGoesIsNotShownAnyMore();
    void aDyingAnimationDisables();
    void anotherAnimationForgetsTheFirst();

private:
    static QString toolTipAt(FrameEditorWidget &editor, QPoint position, bool *isAccepted);
    Cell cell(int x, int y, int frame = 0) const { return m_walk->frame(frame)->cell({x, y}); }

    std::unique_ptr<SpriteBank> m_bank;
    SpriteAnim *m_walk = nullptr; // 2 by 1 cells, 3 frames
    std::unique_ptr<MapObjects> m_blocks;
    TileAnimation *m_lamp = nullptr; // 1 cell, 1 frame
};

void tst_FrameEditorWidget::init()
{
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_walk = m_bank->createAnimation();
    m_walk->setSize({2, 1});
    m_walk->addFrame();
    m_walk->addFrame();
    m_blocks = std::make_unique<MapObjects>();
    m_lamp = m_blocks->createTileAnimation("Lamp");
    m_lamp->addFrame();
}

void tst_FrameEditorWidget::cleanup()
{
    m_bank.reset();
    m_blocks.reset();
}

void tst_FrameEditorWidget::startsDisabledOneCellLarge()
{
    const FrameEditorWidget editor;

    QVERIFY(!editor.isEnabled());
    QCOMPARE(editor.sizeHint(), QSize(64, 64));
    QVERIFY(editor.testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(editor.acceptDrops());
    QVERIFY(editor.hasMouseTracking());
    QCOMPARE(editor.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(editor.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
}

void tst_FrameEditorWidget::sizeFollowsAnimationKindAndScale()
{
    FrameEditorWidget editor;

    editor.setAnimation(m_walk);
    QCOMPARE(editor.size(), QSize(2 * 128, 128));
    QVERIFY(editor.isEnabled());
    editor.setAnimation(m_lamp);
    QCOMPARE(editor.size(), QSize(64, 64));
    editor.setAnimation(nullptr);
    QVERIFY(!editor.isEnabled());
}

void tst_FrameEditorWidget::sizeFollowsTheAnimation()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);

    m_walk->setSize({3, 2});

    QCOMPARE(editor.size(), QSize(3 * 128, 2 * 128));
}

void tst_FrameEditorWidget::zoomDoublesAndHalvesWithinItsLimits()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_lamp);

    QList<int> scales;
    for (int i = 0; i < 4; ++i) {
        editor.zoomIn();
        scales.append(editor.scale());
    }
    QCOMPARE(scales, QList<int>({16, 32, 64, 64}));
    QCOMPARE(editor.size(), QSize(512, 512));
    for (int i = 0; i < 8; ++i)
        editor.zoomOut();
    QCOMPARE(editor.scale(), 1);
    QCOMPARE(editor.size(), QSize(8, 8));
}

void tst_FrameEditorWidget::setCurrentFrameClampsAndReports_data()
{
    QTest::addColumn<bool>("hasFrames");
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("shown");

    QTest::newRow("within") << true << 1 << 1;
    QTest::newRow("before the first") << true << -1 << 0;
    QTest::newRow("behind the last") << true << 3 << 2;
    QTest::newRow("no frames") << false << 0 << -1;
}

void tst_FrameEditorWidget::setCurrentFrameClampsAndReports()
{
    QFETCH(bool, hasFrames);
    QFETCH(int, asked);
    QFETCH(int, shown);
    if (!hasFrames)
        m_walk->clearFrames();
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QSignalSpy changed(&editor, &FrameEditorWidget::currentFrameChanged);
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    editor.setCurrentFrame(asked);

    QCOMPARE(editor.currentFrame(), shown);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), shown);
    QCOMPARE(selected.count(), 0);
    editor.grab(); // draws whatever there is
}

void tst_FrameEditorWidget::setCurrentFrameRepeatsTheSelectedCell()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    editor.setCurrentFrame(2);

    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toPoint(), QPoint(1, 0));
}

void tst_FrameEditorWidget::clicksSelectCells()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    QTest::mouseClick(&editor, Qt::LeftButton, {}, {127, 127});
    QTest::mouseClick(&editor, Qt::LeftButton, {}, {128, 0});

    QCOMPARE(selected.count(), 2);
    QCOMPARE(selected.at(0).at(0).toPoint(), QPoint(0, 0));
    QCOMPARE(selected.at(1).at(0).toPoint(), QPoint(1, 0));
    QCOMPARE(editor.selectedCell(), QPoint(1, 0));
}

void tst_FrameEditorWidget::clicksOutsideSelectNothing()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    QTest::mousePress(&editor, Qt::LeftButton, {}, middle(0, 0));
    QTest::mouseRelease(&editor, Qt::LeftButton, {}, {-5, 5});
    QTest::mousePress(&editor, Qt::LeftButton, {}, middle(0, 0));
    QTest::mouseRelease(&editor, Qt::LeftButton, {}, {5, 128});

    QCOMPARE(selected.count(), 0);
    QCOMPARE(editor.selectedCell().x(), -1);
}

void tst_FrameEditorWidget::arrowKeysMoveTheSelection()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);

    QTest::keyClick(&editor, Qt::Key_Right);
    QCOMPARE(editor.selectedCell(), QPoint(0, 0));
    QTest::keyClick(&editor, Qt::Key_Right);
    QTest::keyClick(&editor, Qt::Key_Right);
    QTest::keyClick(&editor, Qt::Key_Down);
    QCOMPARE(editor.selectedCell(), QPoint(1, 0));
    QTest::keyClick(&editor, Qt::Key_Left);
    QCOMPARE(editor.selectedCell(), QPoint(0, 0));
}

void tst_FrameEditorWidget::aRightClickShowsTheCellsFlags()
{
    m_walk->frame(0)->setCell({1, 0}, {.flip = true, .rotate = true});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));

    QTest::mouseClick(&editor, Qt::RightButton, {}, middle(1, 0));

    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->title(), QString("Frame"));
    QStringList texts;
    QList<bool> checks;
    for (const QAction *action : menu->actions()) {
        texts.append(action->text());
        checks.append(action->isChecked());
    }
    QCOMPARE(texts, QStringList({"Rotated", "Flipped", "Mirrored"}));
    QCOMPARE(checks, QList<bool>({true, true, false}));
    menu->close();
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(0, 0));
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_FrameEditorWidget::theMenuWritesAllFlagsAtOnce()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    m_walk->frame(0)->setCell({1, 0}, {.index = 4, .offset = 3, .flip = true});
    QTest::mouseClick(&editor, Qt::RightButton, {}, middle(1, 0));
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);

    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().at(2)).center());

    const Cell expected{.index = 4, .offset = 3, .flip = true, .mirror = true};
    QCOMPARE(cell(1, 0), expected);
    QCOMPARE(cell(0, 0), Cell());
}

void tst_FrameEditorWidget::ownersActionsReplaceItsOwn()
{
    m_walk->frame(0)->setCell({0, 0}, {.mirror = true});
    QAction rotated("R"), flipped("F"), mirrored("M");
    for (QAction *action : {&rotated, &flipped, &mirrored})
        action->setCheckable(true);
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setFrameActions(&rotated, &flipped, &mirrored);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));

    QTest::mouseClick(&editor, Qt::RightButton, {}, middle(0, 0));

    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->actions(), QList<QAction *>({&rotated, &flipped, &mirrored}));
    QVERIFY(!rotated.isChecked() && !flipped.isChecked() && mirrored.isChecked());
    menu->close();
}

void tst_FrameEditorWidget::settersWriteTheSelectedCell()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setCurrentFrame(1);
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));
    QSignalSpy changed(m_walk, &Animation::frameChanged);

    editor.setRotated(true);
    editor.setMirrored(true);
    editor.setOffset(7);

    const Cell expected{.index = 0, .offset = 7, .mirror = true, .rotate = true};
    QCOMPARE(cell(1, 0, 1), expected);
    QCOMPARE(editor.selectedCellData(), expected);
    QCOMPARE(changed.count(), 3);
    QCOMPARE(changed.at(0).at(0).toInt(), 1);
    editor.setFlipped(true);
    editor.setRotated(false);
    QVERIFY(cell(1, 0, 1).flip && !cell(1, 0, 1).rotate);
    QCOMPARE(cell(1, 0, 0), Cell());
}

void tst_FrameEditorWidget::settersNeedASelectedCell()
{
    FrameEditorWidget editor;
    editor.setRotated(true); // without animation
    editor.setAnimation(m_walk);
    QSignalSpy changed(m_walk, &Animation::frameChanged);

    editor.setRotated(true);
    editor.setOffset(3);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(editor.selectedCellData(), Cell());
}

void tst_FrameEditorWidget::aSpriteDropKeepsThePreviousOffset()
{
    m_walk->frame(0)->setCell({1, 0}, {.index = 1, .offset = 5, .flip = true});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);

    QVERIFY(DragEvents::drop(&editor, middle(1, 0), SpriteDrag::mimeData(9).get()));

    const Cell expected{.index = 9, .offset = 5, .flip = true};
    QCOMPARE(cell(1, 0), expected);
}

void tst_FrameEditorWidget::aTileDropChangesTheOffset()
{
    m_lamp->frame(0)->setCell({0, 0}, {.index = 1, .offset = 5, .mirror = true});
    FrameEditorWidget editor;
    editor.setAnimation(m_lamp);

    QVERIFY(DragEvents::drop(&editor, middle(0, 0, TileCell), TileDrag::mimeData({300, 12}).get()));

    const Cell expected{.index = 300, .offset = 12, .mirror = true};
    QCOMPARE(m_lamp->frame(0)->cell({0, 0}), expected);
}

void tst_FrameEditorWidget::dropsOfTheOtherKindAreRefused()
{
    FrameEditorWidget editor;
    const auto sprite = SpriteDrag::mimeData(9);
    const auto tile = TileDrag::mimeData({9, 1});

    QVERIFY(!DragEvents::enter(&editor, {5, 5}, sprite.get()));
    editor.setAnimation(m_walk);
    QVERIFY(DragEvents::enter(&editor, {5, 5}, sprite.get()));
    QVERIFY(!DragEvents::enter(&editor, {5, 5}, tile.get()));
    editor.setAnimation(m_lamp);
    QVERIFY(!DragEvents::enter(&editor, {5, 5}, sprite.get()));
    QVERIFY(DragEvents::enter(&editor, {5, 5}, tile.get()));
}

void tst_FrameEditorWidget::dropsGoToTheCurrentFrameAndSelect()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setCurrentFrame(2);
    QSignalSpy changed(m_walk, &Animation::frameChanged);
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    DragEvents::drop(&editor, middle(1, 0), SpriteDrag::mimeData(9).get());

    QCOMPARE(cell(1, 0, 2).index, 9);
    QCOMPARE(cell(1, 0, 0).index, 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 2);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toPoint(), QPoint(1, 0));
    QCOMPARE(editor.hoverCell().x(), -1);
}

void tst_FrameEditorWidget::damagedDropsChangeNothing()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QSignalSpy changed(m_walk, &Animation::frameChanged);
    QMimeData data;
    data.setData(SpriteDrag::mimeType(), "\x01\x02");

    QVERIFY(!DragEvents::drop(&editor, middle(1, 0), &data));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(editor.selectedCell().x(), -1);
}

void tst_FrameEditorWidget::dropsOutsideChangeNothing()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QSignalSpy changed(m_walk, &Animation::frameChanged);

    QVERIFY(!DragEvents::drop(&editor, middle(2, 0), SpriteDrag::mimeData(9).get()));
    QVERIFY(!DragEvents::drop(&editor, {-3, 5}, SpriteDrag::mimeData(9).get()));

    QCOMPARE(changed.count(), 0);
}

void tst_FrameEditorWidget::dragsMarkTheCellBelow()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &) { return plainPicture(Qt::black); });
    const auto data = SpriteDrag::mimeData(1);

    DragEvents::enter(&editor, middle(1, 0), data.get());
    QVERIFY(DragEvents::move(&editor, middle(1, 0), data.get()));
    QCOMPARE(editor.hoverCell(), QPoint(1, 0));
    const QColor marked = editor.grab().toImage().pixelColor(middle(1, 0));
    const QColor highlight = editor.palette().color(QPalette::Highlight);
    QVERIFY(qAbs(marked.blue() - highlight.blue() / 2) <= 2);
    QVERIFY(marked != QColor(Qt::black));

    QVERIFY(!DragEvents::move(&editor, middle(2, 0), data.get()));
    QCOMPARE(editor.hoverCell().x(), -1);
    DragEvents::move(&editor, middle(0, 0), data.get());
    DragEvents::leave(&editor);
    QCOMPARE(editor.hoverCell().x(), -1);
    QCOMPARE(editor.grab().toImage().pixelColor(middle(0, 0)), QColor(Qt::black));
}

void tst_FrameEditorWidget::paintsDarkGreyWithoutAnimation()
{
    FrameEditorWidget editor;
    editor.resize(64, 64);

    QCOMPARE(editor.grab().toImage().pixelColor(30, 30), QColor(Qt::darkGray));
}

void tst_FrameEditorWidget::paintsCellsThroughTheOwner()
{
    m_walk->frame(1)->setCell({1, 0}, {.index = 7});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &cell) {
        QImage image = plainPicture(cell.index == 7 ? Qt::red : Qt::green);
        image.setPixelColor(15, 15, Qt::transparent);
        return image;
    });

    QCOMPARE(editor.grab().toImage().pixelColor(middle(1, 0)), QColor(Qt::green));
    editor.setCurrentFrame(1);
    const QImage shown = editor.grab().toImage();
    QCOMPARE(shown.pixelColor(middle(0, 0)), QColor(Qt::green));
    QCOMPARE(shown.pixelColor(128, 0), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(247, 119), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(248, 120), QColor(Qt::black));
}

void tst_FrameEditorWidget::hoveringRendersNothingAnew()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    int rendered = 0;
    editor.setRenderCell([&rendered](const Cell &) {
        ++rendered;
        return plainPicture(Qt::red);
    });
    editor.grab();
    QCOMPARE(rendered, 2);

    DragEvents::enter(&editor, middle(1, 0), SpriteDrag::mimeData(1).get());
    DragEvents::move(&editor, middle(1, 0), SpriteDrag::mimeData(1).get());
    editor.grab();
    QCOMPARE(rendered, 2);
    m_walk->frame(0)->notifyChanged();
    editor.grab();
    QCOMPARE(rendered, 4);
}

void tst_FrameEditorWidget::marksTheSelectedCell()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &) { return plainPicture(Qt::white); });

    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));

    const QImage shown = editor.grab().toImage();
    QSet<QRgb> border;
    for (int y = 0; y < SpriteCell; ++y)
        border.insert(shown.pixel(SpriteCell, y));
    QCOMPARE(border, QSet<QRgb>({qRgb(0, 0, 0), qRgb(127, 127, 127)}));
    QCOMPARE(shown.pixelColor(SpriteCell - 1, 60), QColor(Qt::white));
    QCOMPARE(shown.pixelColor(middle(1, 0)), QColor(Qt::white));
}

QString tst_FrameEditorWidget::toolTipAt(FrameEditorWidget &editor, QPoint position,
                                         bool *isAccepted)
{
    QHelpEvent event(QEvent::ToolTip, position, editor.mapToGlobal(position));
    QCoreApplication::sendEvent(&editor, &event);
    *isAccepted = event.isAccepted();
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

void tst_FrameEditorWidget::toolTipsTellTheCell()
{
    m_walk->frame(0)->setCell({1, 0}, {.index = 12, .offset = 3, .flip = true, .rotate = true});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    bool isAccepted = false;

    QCOMPARE(toolTipAt(editor, middle(1, 0), &isAccepted),
             QString("Index:\t12\nOffset:\t3\nFlip\tYes\nMirror:\tNo\nRotate:\tYes"));
    QVERIFY(isAccepted);
    toolTipAt(editor, middle(2, 0), &isAccepted);
    QVERIFY(!isAccepted);
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_FrameEditorWidget::newContentClearsTheSelection()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    m_walk->notifyContentChanged();
    m_walk->notifyContentChanged();

    QCOMPARE(editor.selectedCell().x(), -1);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toPoint().x(), -1);
}

void tst_FrameEditorWidget::aFrameThatGoesIsNotShownAnyMore()
{
    const Animation::State one = SpriteAnim(m_bank.get()).state();
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setCurrentFrame(2);
    QSignalSpy changed(&editor, &FrameEditorWidget::currentFrameChanged);

    m_walk->restore(one);

    QCOMPARE(editor.currentFrame(), 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(editor.size(), QSize(128, 128));
}

void tst_FrameEditorWidget::aDyingAnimationDisables()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));

    m_bank.reset();

    QVERIFY(!editor.isEnabled());
    QCOMPARE(editor.animation(), nullptr);
    editor.setRotated(true);
    QCOMPARE(editor.grab().toImage().pixelColor(5, 5), QColor(Qt::darkGray));
}

void tst_FrameEditorWidget::anotherAnimationForgetsTheFirst()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setCurrentFrame(2);
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);
    QSignalSpy changed(&editor, &FrameEditorWidget::currentFrameChanged);

    editor.setAnimation(m_lamp);
    m_walk->setSize({4, 4});

    QCOMPARE(editor.currentFrame(), 0);
    QCOMPARE(editor.selectedCell().x(), -1);
    QCOMPARE(editor.size(), QSize(64, 64));
    QCOMPARE(selected.count() + changed.count(), 0);
}

QTEST_MAIN(tst_FrameEditorWidget)
#include "tst_FrameEditorWidget.moc"
