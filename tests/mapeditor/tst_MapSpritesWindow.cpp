#include "mapeditor/MapSpritesWindow.h"

#include "mapeditor/SpriteAnimSelector.h"
#include "model/SpriteBank.h"

#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

class tst_MapSpritesWindow : public QObject
{
    Q_OBJECT

private slots:
    void startsOnItsPlaceholder();
    void repeatsTheSignalsOfItsSelector();
    void theListsShareTheRoomOfTheDock();
    void aLowDockScrollsDownAlone();
};

void tst_MapSpritesWindow::startsOnItsPlaceholder()
{
    const MapSpritesWindow window;

    QCOMPARE(window.objectName(), QStringLiteral("MapSpritesWindow"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Map Sprites"));
    QVERIFY(!window.isContentShown());
    QVERIFY(qobject_cast<SpriteAnimSelector *>(window.scrollArea()->widget()));
    QStringList texts;
    for (const QLabel *label : window.findChildren<QLabel *>())
        texts.append(label->text());
    QCOMPARE(texts.count(QStringLiteral("No sprite banks")), 2); // the dock's and the selector's
}

void tst_MapSpritesWindow::repeatsTheSignalsOfItsSelector()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.createAnimation();
    MapSpritesWindow window;
    window.setBanks({&bank});
    QSignalSpy sprite(&window, &MapSpritesWindow::spriteChosen);
    QSignalSpy animation(&window, &MapSpritesWindow::selectionChanged);

    window.findChild<QListWidget *>("sprites")->setCurrentRow(0);
    QCOMPARE(sprite.count(), 1);
    QCOMPARE(sprite.at(0), QVariantList({bank.id(), 0}));
    for (QListWidget *list : window.findChildren<QListWidget *>()) {
        if (list->objectName() != QLatin1String("sprites"))
            list->setCurrentRow(0);
    }

    QCOMPARE(animation.count(), 1);
    QCOMPARE(sprite.count(), 1);
}

void tst_MapSpritesWindow::theListsShareTheRoomOfTheDock()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.createAnimation();
    MapSpritesWindow window;
    window.setBanks({&bank});
    window.showContent();
    for (const QSize size : {QSize(120, 400), QSize(300, 700), QSize(160, 500)}) {
        window.resize(size);
        window.show();
        QCoreApplication::processEvents();

        QCOMPARE(window.scrollArea()->widget()->size(), window.scrollArea()->viewport()->size());
        QVERIFY(!window.scrollArea()->verticalScrollBar()->isVisible());
        QVERIFY(!window.scrollArea()->horizontalScrollBar()->isVisible());
    }
}

void tst_MapSpritesWindow::aLowDockScrollsDownAlone()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.createAnimation();
    MapSpritesWindow window;
    window.setBanks({&bank});
    window.showContent();

    window.resize(160, 150);
    window.show();
    QCoreApplication::processEvents();

    QVERIFY(window.scrollArea()->verticalScrollBar()->isVisible());
    QVERIFY(!window.scrollArea()->horizontalScrollBar()->isVisible());
    QCOMPARE(window.scrollArea()->widget()->width(), window.scrollArea()->viewport()->width());
}

QTEST_MAIN(tst_MapSpritesWindow)

#include "tst_MapSpritesWindow.moc"
