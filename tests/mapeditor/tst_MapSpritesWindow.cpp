#include "mapeditor/MapSpritesWindow.h"

#include "mapeditor/SpriteAnimSelector.h"
#include "model/SpriteBank.h"

#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>

class tst_MapSpritesWindow : public QObject
{
    Q_OBJECT

private slots:
    void startsOnItsPlaceholder();
    void repeatsTheSignalsOfItsSelector();
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

QTEST_MAIN(tst_MapSpritesWindow)

#include "tst_MapSpritesWindow.moc"
