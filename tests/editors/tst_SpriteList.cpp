#include "editors/SpriteList.h"

#include "canvas/CanvasClipboard.h"
#include "editors/SpriteDrag.h"
#include "model/Palette.h"
#include "support/DragEvents.h"
#include "support/TestSprites.h"
#include "uikit/ThemedIcon.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using SpriteEditor::SpriteList;

namespace {

constexpr int Cell = 32;  // pixels at magnification 2
constexpr int Width = 80; // two columns, and 8 pixels left and right
constexpr int Margin = 8;

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }

    int count() const { return m_count; }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint;
        return false;
    }

private:
    int m_count = 0;
};

QPoint middle(int index)
{
    return {Margin + index % 2 * Cell + Cell / 2, index / 2 * Cell + Cell / 2};
}

} // namespace

class tst_SpriteList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void heightFollowsTheWidth_data();
    void heightFollowsTheWidth();
    void withoutBankTheHeightIsTheWidth();
    void findsCellsAtPositions();
    void aNarrowListHasOneColumn();
    void withoutBankItIsBlack();
    void aBankWithoutSpritesShowsTheAddCellAlone();
    void paintsSpritesScaledOverTheBase();
    void repaintsWhatChanges();
    void followsTheColoursOfThePalette();
    void marksSelectedAndHoveredSprites();
    void clicksPickSprites();
    void theCellBehindTheLastAddsASprite();
    void releasesElsewhereDoNothing();
    void arrowKeysPick();
    void rightClicksOpenTheMenu();
    void theMenuActsOnThePressedSprite();
    void dragsStartBeyondTheDragDistance();
    void emptyPlacesStartNoDrag();
    void dropsMoveOrCopyByTheModifiers_data();
    void dropsMoveOrCopyByTheModifiers();
    void dragsMarkTheTarget();
    void foreignDropsAreRefused();
    void copiesWithIndicesAndPalette();
    void pastesIndicesOfACopy();
    void pastesPicturesOfOtherPrograms();
    void pastesNothingWithoutAPicture();
    void aBankThatDiesLeavesItEmpty();
    void isSetUpForDragsAndHovering();
    void marksReachTheFarCorner();
    void hoveringTintsTheSprite();
    void aCopyOfAnotherSizeIsFitted_data();
    void aCopyOfAnotherSizeIsFitted();
    void copiesOfFourBitSpritesSaySo();
    void theAddCellShowsItsIcon();

private:
    QRgb pixel(QPoint position) const { return m_list->grab().toImage().pixel(position); }
    void press(int index, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(m_list.get(), button, {}, middle(index));
    }
    void moveTo(QPoint position, Qt::MouseButtons buttons);
    void choose(int entry);

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<SpriteBank> m_bank; // of three sprites
    std::unique_ptr<SpriteList> m_list;
};

void tst_SpriteList::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setColour(1, Qt::red, false);
    m_palette->setColour(2, Qt::green, false);
    m_palette->setColour(3, Qt::blue, false);
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_bank->setPalette(m_palette.get());
    TestSprites::fill(*m_bank, 3);
    m_list = std::make_unique<SpriteList>();
    m_list->setMagnification(2);
    m_list->resize(Width, 2 * Cell);
    m_list->setSprites(m_bank.get());
}

void tst_SpriteList::cleanup()
{
    m_list.reset();
    m_bank.reset();
    m_palette.reset();
}

void tst_SpriteList::heightFollowsTheWidth_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");

    QTest::newRow("three in two columns") << 3 << 80 << 2 * Cell;
    QTest::newRow("a full last row leaves room to add") << 4 << 80 << 3 * Cell;
    QTest::newRow("four columns") << 3 << 128 << Cell;
    QTest::newRow("narrower than a cell") << 3 << 20 << 4 * Cell;
    QTest::newRow("no width") << 3 << 0 << 0;
}

void tst_SpriteList::heightFollowsTheWidth()
{
    QFETCH(int, count);
    QFETCH(int, width);
    QFETCH(int, height);
    TestSprites::fill(*m_bank, count);

    QVERIFY(m_list->hasHeightForWidth());
    QVERIFY(m_list->sizePolicy().hasHeightForWidth());
    QCOMPARE(m_list->heightForWidth(width), height);
}

void tst_SpriteList::withoutBankTheHeightIsTheWidth()
{
    m_list->setSprites(nullptr);

    QCOMPARE(m_list->heightForWidth(77), 77);
}

void tst_SpriteList::findsCellsAtPositions()
{
    QCOMPARE(m_list->columns(), 2);
    QCOMPARE(m_list->cellRect(3), QRect(Margin + Cell, Cell, Cell, Cell));
    QCOMPARE(m_list->indexAt({Margin, 0}), 0);
    QCOMPARE(m_list->indexAt({Margin - 1, 0}), -1);
    QCOMPARE(m_list->indexAt({Margin + 2 * Cell, 0}), -1);
    QCOMPARE(m_list->indexAt({Margin, -1}), -1);
    QCOMPARE(m_list->indexAt(middle(3)), 3); // adds a sprite
    QCOMPARE(m_list->indexAt(middle(4)), -1);
}

void tst_SpriteList::aNarrowListHasOneColumn()
{
    m_list->resize(20, 200);

    QCOMPARE(m_list->columns(), 1);
    QCOMPARE(m_list->cellRect(2).top(), 2 * Cell);
}

void tst_SpriteList::withoutBankItIsBlack()
{
    m_list->setSprites(nullptr);

    QCOMPARE(pixel({20, 20}), qRgb(0, 0, 0));
}

void tst_SpriteList::aBankWithoutSpritesShowsTheAddCellAlone()
{
    m_bank->setStrip(QImage());
    m_list->refresh();
    QSignalSpy added(m_list.get(), &SpriteList::addSprite);

    QCOMPARE(m_list->heightForWidth(Width), Cell);
    const QImage shown = m_list->grab().toImage();
    QVERIFY(shown.copy(m_list->cellRect(0)) != shown.copy(m_list->cellRect(1)));
    QTest::mouseClick(m_list.get(), Qt::LeftButton, {}, middle(0));
    QCOMPARE(added.count(), 1);
}

void tst_SpriteList::paintsSpritesScaledOverTheBase()
{
    QImage sprite = TestSprites::filled(2);
    sprite.scanLine(15)[15] = SpriteBank::DefaultTransparency;
    m_bank->setImage(1, sprite);

    const QImage shown = m_list->grab().toImage();

    QCOMPARE(shown.pixelColor(middle(0)), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(Margin + Cell, 0), QColor(Qt::green));
    QCOMPARE(shown.pixelColor(Margin + 2 * Cell - 3, Cell - 1), QColor(Qt::green));
    const QColor base = m_list->palette().color(QPalette::Base);
    QCOMPARE(shown.pixelColor(Margin + 2 * Cell - 2, Cell - 2), base);
    QCOMPARE(shown.pixelColor(2, 2), base);
    QCOMPARE(shown.pixelColor(middle(2)), QColor(Qt::blue));
}

void tst_SpriteList::repaintsWhatChanges()
{
    m_list->grab();

    m_bank->setImage(0, TestSprites::filled(3));
    QCOMPARE(pixel(middle(0)), qRgb(0, 0, 255));
    m_bank->addSprite();
    m_bank->setImage(3, TestSprites::filled(2));
    QCOMPARE(pixel(middle(3)), qRgb(0, 255, 0));
    const SpriteBank::State state = m_bank->state();
    m_bank->deleteSprite(0);
    QCOMPARE(pixel(middle(0)), qRgb(0, 255, 0));
    m_bank->restore(state);
    QCOMPARE(pixel(middle(0)), qRgb(0, 0, 255));
}

void tst_SpriteList::followsTheColoursOfThePalette()
{
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
    m_list->grab();
    PaintCounter painted(m_list.get());

    m_palette->setColour(1, Qt::white, false);

    QTRY_VERIFY(painted.count() > 0);
    QCOMPARE(pixel(middle(0)), qRgb(255, 255, 255));
}

void tst_SpriteList::marksSelectedAndHoveredSprites()
{
    m_list->setSelectedIndex(2);
    moveTo(middle(0), Qt::NoButton);
    m_list->setAttribute(Qt::WA_UnderMouse);

    QImage shown = m_list->grab().toImage();
    QCOMPARE(m_list->hoverIndex(), 0);
    QVERIFY(shown.pixelColor(middle(0)) != QColor(Qt::red));
    QSet<QRgb> border;
    for (int x = 0; x < Cell; ++x)
        border.insert(shown.pixel(m_list->cellRect(2).topLeft() + QPoint(x, 0)));
    QCOMPARE(border, QSet<QRgb>({qRgb(0, 0, 0), qRgb(255, 255, 255)}));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_list.get(), &leave);
    QCOMPARE(m_list->hoverIndex(), -1);
    QCOMPARE(pixel(middle(0)), qRgb(255, 0, 0));
}

void tst_SpriteList::clicksPickSprites()
{
    QSignalSpy picked(m_list.get(), &SpriteList::indexChanged);

    QTest::mouseClick(m_list.get(), Qt::LeftButton, {}, middle(2));

    QCOMPARE(m_list->selectedIndex(), 2);
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.at(0).at(0).toInt(), 2);
}

void tst_SpriteList::theCellBehindTheLastAddsASprite()
{
    QSignalSpy picked(m_list.get(), &SpriteList::indexChanged);
    QSignalSpy added(m_list.get(), &SpriteList::addSprite);

    QTest::mouseClick(m_list.get(), Qt::LeftButton, {}, middle(3));

    QCOMPARE(added.count(), 1);
    QCOMPARE(picked.count(), 0);
    QCOMPARE(m_bank->count(), 3); // that is its owner's business
}

void tst_SpriteList::releasesElsewhereDoNothing()
{
    QSignalSpy picked(m_list.get(), &SpriteList::indexChanged);
    QSignalSpy added(m_list.get(), &SpriteList::addSprite);

    QTest::mouseClick(m_list.get(), Qt::LeftButton, {}, {2, 2});
    QTest::mouseClick(m_list.get(), Qt::MiddleButton, {}, middle(1));
    QTest::mouseClick(m_list.get(), Qt::RightButton, {}, middle(3));

    QCOMPARE(picked.count() + added.count(), 0);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_SpriteList::arrowKeysPick()
{
    QSignalSpy picked(m_list.get(), &SpriteList::indexChanged);

    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up})
        QTest::keyClick(m_list.get(), key);
    QTest::keyClick(m_list.get(), Qt::Key_Left); // none before the first

    QList<int> indices;
    for (const auto &arguments : picked)
        indices.append(arguments.at(0).toInt());
    QCOMPARE(indices, QList<int>({0, 1, 0, 2, 0}));
}

void tst_SpriteList::rightClicksOpenTheMenu()
{
    QTest::mouseClick(m_list.get(), Qt::RightButton, {}, middle(1));

    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->title(), QString("Sprite"));
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts.append(action->text());
    QCOMPARE(texts, QStringList({"Delete", "Clear", "Copy Image", "Paste Image"}));
    menu->close();
}

void tst_SpriteList::moveTo(QPoint position, Qt::MouseButtons buttons)
{
    QMouseEvent event(QEvent::MouseMove, position, m_list->mapToGlobal(position), Qt::NoButton,
                      buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(m_list.get(), &event);
}

/// Chooses from the menu that is open.
void tst_SpriteList::choose(int entry)
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().at(entry)).center());
}

void tst_SpriteList::theMenuActsOnThePressedSprite()
{
    QSignalSpy deleted(m_list.get(), &SpriteList::deleteRequested);
    QSignalSpy cleared(m_list.get(), &SpriteList::clearRequested);

    QTest::mouseClick(m_list.get(), Qt::RightButton, {}, middle(1));
    choose(0);
    QCOMPARE(deleted.count(), 1);
    QCOMPARE(deleted.at(0).at(0).toInt(), 1);
    QCOMPARE(cleared.count(), 0);
    QTest::mouseClick(m_list.get(), Qt::RightButton, {}, middle(2));
    choose(1);
    QCOMPARE(cleared.count(), 1);
    QCOMPARE(cleared.at(0).at(0).toInt(), 2);
}

void tst_SpriteList::dragsStartBeyondTheDragDistance()
{
    const QPoint start = middle(1);

    press(1);
    moveTo(start + QPoint(QApplication::startDragDistance() - 1, 0), Qt::LeftButton);
    QVERIFY(!m_list->findChild<QDrag *>());
    moveTo(start + QPoint(QApplication::startDragDistance(), 0), Qt::LeftButton);

    const auto *drag = m_list->findChild<QDrag *>();
    QVERIFY(drag);
    QCOMPARE(SpriteDrag::index(drag->mimeData()), std::optional<int>(1));
    QCOMPARE(drag->pixmap().size(), QSize(Cell, Cell));
    QCOMPARE(drag->pixmap().toImage().pixelColor(Cell / 2, Cell / 2), QColor(Qt::green));
}

void tst_SpriteList::emptyPlacesStartNoDrag()
{
    press(3);
    moveTo(middle(0), Qt::LeftButton);
    QVERIFY(!m_list->findChild<QDrag *>());

    press(1, Qt::RightButton);
    moveTo(middle(0), Qt::RightButton);
    QVERIFY(!m_list->findChild<QDrag *>());
}

void tst_SpriteList::dropsMoveOrCopyByTheModifiers_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("expected");

    using Modifiers = Qt::KeyboardModifiers;
    QTest::newRow("plain") << Modifiers(Qt::NoModifier) << 2 << "move 0 2";
    QTest::newRow("Shift") << Modifiers(Qt::ShiftModifier) << 2 << "copy 0 2";
    QTest::newRow("Ctrl") << Modifiers(Qt::ControlModifier) << 2 << "";
    QTest::newRow("Shift and Ctrl") << (Qt::ShiftModifier | Qt::ControlModifier) << 2 << "";
    QTest::newRow("on itself") << Modifiers(Qt::NoModifier) << 0 << "";
    QTest::newRow("on the add cell") << Modifiers(Qt::NoModifier) << 3 << "";
}

void tst_SpriteList::dropsMoveOrCopyByTheModifiers()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(int, target);
    QFETCH(QString, expected);
    QStringList sent;
    connect(m_list.get(), &SpriteList::moveSprite, this,
            [&](int s, int d) { sent += QString("move %1 %2").arg(s).arg(d); });
    connect(m_list.get(), &SpriteList::copySprite, this,
            [&](int s, int d) { sent += QString("copy %1 %2").arg(s).arg(d); });

    press(0);
    DragEvents::drop(m_list.get(), middle(target), SpriteDrag::mimeData(0).get(), modifiers);

    QCOMPARE(sent.join(','), expected);
    QCOMPARE(m_list->dropIndex(), -1);
}

void tst_SpriteList::dragsMarkTheTarget()
{
    const auto sprite = SpriteDrag::mimeData(0);

    QVERIFY(DragEvents::enter(m_list.get(), middle(1), sprite.get()));
    DragEvents::move(m_list.get(), middle(1), sprite.get());
    QCOMPARE(m_list->dropIndex(), 1);
    QCOMPARE(pixel({Margin + Cell + Cell - 1, Cell / 2}), qRgb(0, 255, 0));
    QVERIFY(pixel({Margin + Cell + Cell - 2, Cell / 2}) != qRgb(0, 255, 0));
    DragEvents::move(m_list.get(), middle(3), sprite.get());
    QCOMPARE(m_list->dropIndex(), -1);
    DragEvents::move(m_list.get(), middle(2), sprite.get());
    DragEvents::leave(m_list.get());
    QCOMPARE(m_list->dropIndex(), -1);
}

void tst_SpriteList::foreignDropsAreRefused()
{
    QSignalSpy moved(m_list.get(), &SpriteList::moveSprite);
    QMimeData text;
    text.setText("0");

    press(0);
    QVERIFY(!DragEvents::enter(m_list.get(), middle(1), &text));
    QVERIFY(!DragEvents::drop(m_list.get(), middle(1), SpriteDrag::mimeData(2).get()));

    QCOMPARE(moved.count(), 0);
}

void tst_SpriteList::copiesWithIndicesAndPalette()
{
    press(1);

    m_list->copyImage();

    const QMimeData *content = QGuiApplication::clipboard()->mimeData();
    CanvasClipboard::Clip clip;
    QVERIFY(CanvasClipboard::read(content, &clip));
    QCOMPARE(clip.image.size(), QSize(16, 16));
    QCOMPARE(clip.image.pixelIndex(7, 7), 2);
    QCOMPARE(clip.type, static_cast<qint32>(Tessaril::Ui::ImageType::Full256));
    QCOMPARE(clip.paletteId, m_palette->id());
    QVERIFY(content->hasImage());
}

void tst_SpriteList::pastesIndicesOfACopy()
{
    press(1);
    m_list->copyImage();
    QStringList sent;
    connect(m_bank.get(), &SpriteBank::structureAboutToChange, this, [&] { sent += "about"; });
    connect(m_bank.get(), &SpriteBank::imageChanged, this,
            [&](int index) { sent += QString("image %1").arg(index); });
    connect(m_bank.get(), &SpriteBank::structureChanged, this,
            [&](const QString &text) { sent += text; });

    press(2);
    m_list->pasteImage();

    QCOMPARE(TestSprites::values(*m_bank), QList<int>({1, 2, 2}));
    QCOMPARE(sent, QStringList({"about", "image 2", "Paste Image"}));
}

void tst_SpriteList::pastesPicturesOfOtherPrograms()
{
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(qRgb(250, 5, 5));
    QGuiApplication::clipboard()->setImage(picture);

    press(2);
    m_list->pasteImage();

    QCOMPARE(m_bank->image().pixelColor(8, 2 * 16 + 8), QColor(Qt::red));
    QCOMPARE(TestSprites::values(*m_bank).first(), 1);
}

void tst_SpriteList::pastesNothingWithoutAPicture()
{
    QSignalSpy changed(m_bank.get(), &SpriteBank::structureAboutToChange);
    QGuiApplication::clipboard()->setText("no picture");
    press(2);
    m_list->pasteImage();
    QGuiApplication::clipboard()->setImage(QImage(4, 4, QImage::Format_RGB32));
    press(3); // no sprite there
    m_list->pasteImage();

    QCOMPARE(changed.count(), 0);
}

void tst_SpriteList::aBankThatDiesLeavesItEmpty()
{
    m_list->setSelectedIndex(1);

    m_bank.reset();

    QCOMPARE(m_list->selectedIndex(), -1);
    QCOMPARE(pixel(middle(0)), qRgb(0, 0, 0));
    m_list->copyImage();
    QTest::mouseClick(m_list.get(), Qt::LeftButton, {}, middle(0));
    QTest::keyClick(m_list.get(), Qt::Key_Right);
}

void tst_SpriteList::isSetUpForDragsAndHovering()
{
    QVERIFY(m_list->testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(m_list->acceptDrops());
    QVERIFY(m_list->hasMouseTracking());
    QCOMPARE(m_list->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QVERIFY(m_list->sizePolicy().verticalPolicy() != QSizePolicy::Expanding);
}

void tst_SpriteList::marksReachTheFarCorner()
{
    m_list->setSelectedIndex(0);
    const QRect cell = m_list->cellRect(0);

    const QImage shown = m_list->grab().toImage();

    QSet<QRgb> border;
    for (int i = 0; i < Cell; ++i) {
        border.insert(shown.pixel(cell.right(), cell.top() + i));
        border.insert(shown.pixel(cell.left() + i, cell.bottom()));
    }
    QCOMPARE(border, QSet<QRgb>({qRgb(0, 0, 0), qRgb(255, 255, 255)}));
    QCOMPARE(shown.pixelColor(cell.right() - 1, cell.center().y()), QColor(Qt::red));
}

void tst_SpriteList::hoveringTintsTheSprite()
{
    moveTo(middle(0), Qt::NoButton);
    QVERIFY(!m_list->underMouse());
    QCOMPARE(pixel(middle(0)), qRgb(255, 0, 0));
    m_list->setAttribute(Qt::WA_UnderMouse);

    const QColor inside = pixel(middle(0)); // 80 of 255 parts (160, 160, 255) over red
    QVERIFY(qAbs(inside.red() - 225) <= 1);
    QVERIFY(qAbs(inside.green() - 50) <= 1);
    QVERIFY(qAbs(inside.blue() - 80) <= 1);
    const QColor line = pixel(m_list->cellRect(0).topLeft() + QPoint(Cell / 2, 0));
    QVERIFY(line.blue() > inside.blue() + 20); // 128 parts
}

void tst_SpriteList::aCopyOfAnotherSizeIsFitted_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("written");

    QTest::newRow("smaller") << QSize(5, 3) << QRect(0, 0, 5, 3);
    QTest::newRow("larger") << QSize(40, 20) << QRect(0, 0, 16, 16);
    QTest::newRow("wider") << QSize(40, 2) << QRect(0, 0, 16, 2);
}

void tst_SpriteList::aCopyOfAnotherSizeIsFitted()
{
    QFETCH(QSize, size);
    QFETCH(QRect, written);
    CanvasClipboard::Clip clip;
    clip.image = QImage(size, QImage::Format_Indexed8);
    clip.image.setColorTable(m_palette->colourTable());
    clip.image.fill(9);
    auto data = std::make_unique<QMimeData>();
    CanvasClipboard::write(clip, data.get());
    QGuiApplication::clipboard()->setMimeData(data.release());

    press(1);
    m_list->pasteImage();

    QImage expected = TestSprites::filled(2);
    for (int y = written.top(); y <= written.bottom(); ++y)
        memset(expected.scanLine(y), 9, static_cast<size_t>(written.width()));
    const QImage sprite = m_bank->sprite(1);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            QCOMPARE(sprite.pixelIndex(x, y), expected.pixelIndex(x, y));
    }
    QCOMPARE(TestSprites::values(*m_bank), QList<int>({1, 9, 3}));
}

void tst_SpriteList::copiesOfFourBitSpritesSaySo()
{
    SpriteBank small(Tessaril::Sprite::FourBit);
    m_list->setSprites(&small);
    press(0);

    m_list->copyImage();

    CanvasClipboard::Clip clip;
    QVERIFY(CanvasClipboard::read(QGuiApplication::clipboard()->mimeData(), &clip));
    QCOMPARE(clip.type, static_cast<qint32>(Tessaril::Ui::ImageType::Offset16));
    QVERIFY(clip.paletteId.isNull());
    m_list->setSprites(nullptr);
}

void tst_SpriteList::theAddCellShowsItsIcon()
{
    QPixmap expected(Cell, Cell);
    expected.fill(m_list->palette().color(QPalette::Base));
    QPainter painter(&expected);
    painter.drawPixmap(QRect(0, 0, Cell, Cell), themedIcon(":/AddDoc").pixmap(Cell, Cell));
    painter.end();

    const QImage shown = m_list->grab(m_list->cellRect(3)).toImage();

    QCOMPARE(shown.convertToFormat(QImage::Format_RGB32),
             expected.toImage().convertToFormat(QImage::Format_RGB32));
}

QTEST_MAIN(tst_SpriteList)
#include "tst_SpriteList.moc"
