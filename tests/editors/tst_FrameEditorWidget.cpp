#include "editors/FrameEditorFixture.h"

#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

class tst_FrameEditorWidget : public QObject, private FrameEditorFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

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
    void theMenuWritesAllFlagsAtOnce_data();
    void theMenuWritesAllFlagsAtOnce();
    void ownersActionsReplaceItsOwn();
    void settersWriteTheSelectedCell();
    void settersNeedASelectedCell();
    void newContentClearsTheSelection();
    void aFrameThatGoesIsNotShownAnyMore();
    void aDyingAnimationDisables();
    void anotherAnimationForgetsTheFirst();
    void sizeChangesKeepACellThatIsLeft();
    void theMenuIsOnlyForTheRightButton();
    void ownersMayDieBeforeTheEditor();
};

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

void tst_FrameEditorWidget::theMenuWritesAllFlagsAtOnce_data()
{
    QTest::addColumn<int>("entry");
    QTest::newRow("rotated") << 0;
    QTest::newRow("flipped") << 1;
    QTest::newRow("mirrored") << 2;
}

void tst_FrameEditorWidget::theMenuWritesAllFlagsAtOnce()
{
    QFETCH(const int, entry);
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    Cell before{.index = 4, .offset = 3};
    before.rotate = entry != 0;
    before.flip = entry != 1;
    before.mirror = entry != 2;
    m_walk->frame(0)->setCell({1, 0}, before);
    QTest::mouseClick(&editor, Qt::RightButton, {}, middle(1, 0));
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QSignalSpy changed(m_walk, &Animation::frameChanged);

    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().at(entry)).center());

    Cell after = before;
    after.rotate = after.flip = after.mirror = true;
    QCOMPARE(cell(1, 0), after);
    QCOMPARE(changed.count(), 1);
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

void tst_FrameEditorWidget::sizeChangesKeepACellThatIsLeft()
{
    m_walk->setSize({3, 2});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 1));
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    m_walk->setSize({2, 2});
    QCOMPARE(editor.selectedCell(), QPoint(1, 1));
    QCOMPARE(selected.count(), 0);

    m_walk->setSize({2, 1});
    QCOMPARE(editor.selectedCell().x(), -1);
    QCOMPARE(selected.count(), 1);
}

void tst_FrameEditorWidget::theMenuIsOnlyForTheRightButton()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));

    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));
    QVERIFY(!QApplication::activePopupWidget());
    QTest::mousePress(&editor, Qt::RightButton, {}, middle(1, 0));
    QTest::mouseRelease(&editor, Qt::RightButton, {}, {5, 500});
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_FrameEditorWidget::ownersMayDieBeforeTheEditor()
{
    FrameEditorWidget editor;
    {
        QAction rotated("R"), flipped("F"), mirrored("M");
        editor.setFrameActions(&rotated, &flipped, &mirrored);
    }
    m_walk->frame(0)->setCell({1, 0}, {.index = 4, .flip = true});
    editor.setAnimation(m_walk);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));

    QTest::mouseClick(&editor, Qt::RightButton, {}, middle(1, 0));

    QCOMPARE(editor.selectedCell(), QPoint(1, 0));
    QCOMPARE(cell(1, 0).index, 4);
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
}

QTEST_MAIN(tst_FrameEditorWidget)
#include "tst_FrameEditorWidget.moc"
