#include "canvas/CanvasClipboard.h"
#include "editors/SpriteListFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>

class tst_SpriteList : public QObject, private SpriteListFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void heightFollowsTheWidth_data();
    void heightFollowsTheWidth();
    void withoutBankTheHeightIsTheWidth();
    void findsCellsAtPositions();
    void aNarrowListHasOneColumn();
    void clicksPickSprites();
    void theCellBehindTheLastAddsASprite();
    void releasesElsewhereDoNothing();
    void arrowKeysPick();
    void rightClicksOpenTheMenu();
    void theMenuActsOnThePressedSprite();
    void copiesWithIndicesAndPalette();
    void pastesIndicesOfACopy();
    void pastesPicturesOfOtherPrograms();
    void pastesNothingWithoutAPicture();
    void aBankThatDiesLeavesItEmpty();
    void aCopyOfAnotherSizeIsFitted_data();
    void aCopyOfAnotherSizeIsFitted();
    void copiesOfFourBitSpritesSaySo();

private:
    static void choose(int entry);
};

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

QTEST_MAIN(tst_SpriteList)
#include "tst_SpriteList.moc"
