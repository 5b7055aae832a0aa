#include "mapeditor/ToolBar.h"

#include <QAction>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using MapEditor::ToolBar;

class tst_ToolBar : public QObject
{
    Q_OBJECT

private slots:
    void namesItselfAndItsLabels();
    void itsGroupsStandApart();
    void layersStartOn();
    void theSpinsKeepTheirRanges_data();
    void theSpinsKeepTheirRanges();
    void eitherViewportSpinSendsBothValues();
    void everyControlSendsItsSignal();
    void showingValuesSendsNothing();

private:
    static QSpinBox *spin(const ToolBar &bar, int index)
    {
        return bar.findChildren<QSpinBox *>().at(index);
    }
};

void tst_ToolBar::namesItselfAndItsLabels()
{
    const ToolBar bar;
    QStringList texts;
    for (const QLabel *label : bar.findChildren<QLabel *>()) {
        texts.append(label->text());
        QCOMPARE(label->contentsMargins(), QMargins(6, 0, 4, 0));
    }

    QCOMPARE(bar.objectName(), QStringLiteral("MapToolBar"));
    QCOMPARE(bar.windowTitle(), QStringLiteral("Map"));
    QCOMPARE(bar.iconSize(), QSize(24, 24));
    QCOMPARE(bar.toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCOMPARE(texts,
             QStringList({"Viewport", "×", "Background", "Transparency", "Snap", QString()}));
    QCOMPARE(bar.findChildren<QLabel *>().last()->toolTip(),
             QStringLiteral("Map size in tiles and bytes"));
}

void tst_ToolBar::itsGroupsStandApart()
{
    const ToolBar bar;
    QString row;
    for (QAction *const action : bar.actions()) {
        const QWidget *const widget = bar.widgetForAction(action);
        row += action->isSeparator()                    ? '|'
               : qobject_cast<const QSpinBox *>(widget) ? 'S'
               : qobject_cast<const QLabel *>(widget)   ? 'L'
                                                        : 'A';
    }

    QCOMPARE(row, QString("AAA|LSLS|LSLS|LS|L"));
}

void tst_ToolBar::layersStartOn()
{
    const ToolBar bar;
    const QStringList texts{"Tiles", "Objects", "Sprites"};
    const QStringList tips{"Show or hide the tile layer", "Show or hide the object layer",
                           "Show or hide the sprite layer"};
    for (int i = 0; i < texts.size(); ++i) {
        const QAction *action = bar.actions().at(i);
        QCOMPARE(action->text(), texts.at(i));
        QCOMPARE(action->toolTip(), tips.at(i));
        QVERIFY(action->isCheckable());
        QVERIFY(action->isChecked());
        QVERIFY(!action->icon().isNull());
    }
    QVERIFY(bar.actions().at(3)->isSeparator());
}

void tst_ToolBar::theSpinsKeepTheirRanges_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("limits"); // minimum, maximum, value
    QTest::addColumn<QString>("special");
    QTest::addColumn<QString>("toolTip");

    const QString viewport = QStringLiteral("Size in cells of the viewport");
    QTest::newRow("width") << 0 << QList<int>{1, 1000, 40} << QString() << viewport;
    QTest::newRow("height") << 1 << QList<int>{1, 1000, 32} << QString() << viewport;
    QTest::newRow("background") << 2 << QList<int>{-1, 1024, -1} << QStringLiteral("None")
                                << QStringLiteral("Tile index to be used as a background");
    QTest::newRow("transparency")
        << 3 << QList<int>{-1, 15, -1} << QStringLiteral("Off")
        << QStringLiteral("Sets the transparency index of the tile set (0-15) or off");
    QTest::newRow("snap") << 4 << QList<int>{1, 16, 1} << QStringLiteral("Off")
                          << QStringLiteral("Sets the snap to grid size");
}

void tst_ToolBar::theSpinsKeepTheirRanges()
{
    const ToolBar bar;
    QFETCH(int, index);
    const QSpinBox *box = spin(bar, index);

    QTEST((QList<int>{box->minimum(), box->maximum(), box->value()}), "limits");
    QTEST(box->specialValueText(), "special");
    QTEST(box->toolTip(), "toolTip");
    QVERIFY(!box->accessibleName().isEmpty());
}

void tst_ToolBar::eitherViewportSpinSendsBothValues()
{
    ToolBar bar;
    QSignalSpy viewport(&bar, &ToolBar::viewPortChanged);

    QTest::keyClick(spin(bar, 0), Qt::Key_Up);
    QTest::keyClick(spin(bar, 1), Qt::Key_Down);

    QCOMPARE(viewport.count(), 2);
    QCOMPARE(viewport.at(0).at(0).toSize(), QSize(41, 32));
    QCOMPARE(viewport.at(1).at(0).toSize(), QSize(41, 31));
}

void tst_ToolBar::everyControlSendsItsSignal()
{
    ToolBar bar;
    QSignalSpy tiles(&bar, &ToolBar::mapVisibilityChanged);
    QSignalSpy objects(&bar, &ToolBar::objectVisibilityChanged);
    QSignalSpy sprites(&bar, &ToolBar::spriteVisibilityChanged);
    QSignalSpy background(&bar, &ToolBar::backgroundTileIndexChanged);
    QSignalSpy transparency(&bar, &ToolBar::transparencyIndexChanged);
    QSignalSpy snap(&bar, &ToolBar::snapToValueChanged);

    for (int i = 0; i < 3; ++i)
        bar.actions().at(i)->trigger();
    for (int i = 2; i < 5; ++i)
        QTest::keyClick(spin(bar, i), Qt::Key_Up);

    for (const QSignalSpy *spy : {&tiles, &objects, &sprites}) {
        QCOMPARE(spy->count(), 1);
        QCOMPARE(spy->at(0).at(0).toBool(), false);
    }
    QCOMPARE(background.count(), 1);
    QCOMPARE(background.at(0).at(0).toInt(), 0);
    QCOMPARE(transparency.count(), 1);
    QCOMPARE(transparency.at(0).at(0).toInt(), 0);
    QCOMPARE(snap.count(), 1);
    QCOMPARE(snap.at(0).at(0).toInt(), 2);
}

void tst_ToolBar::showingValuesSendsNothing()
{
    ToolBar bar;
    QSignalSpy viewport(&bar, &ToolBar::viewPortChanged);
    QSignalSpy tiles(&bar, &ToolBar::mapVisibilityChanged);
    QSignalSpy snap(&bar, &ToolBar::snapToValueChanged);

    bar.setValues({.tilesVisible = false,
                   .viewport = {7, 8},
                   .backgroundTile = 9,
                   .transparencyIndex = 3,
                   .snap = 4,
                   .sizeText = QStringLiteral("6x4 (48 bytes)")});

    QVERIFY(!bar.actions().at(0)->isChecked());
    QCOMPARE(spin(bar, 0)->value(), 7);
    QCOMPARE(spin(bar, 1)->value(), 8);
    QCOMPARE(spin(bar, 2)->value(), 9);
    QCOMPARE(spin(bar, 3)->value(), 3);
    QCOMPARE(spin(bar, 4)->value(), 4);
    QCOMPARE(bar.findChildren<QLabel *>().last()->text(), QStringLiteral("6x4 (48 bytes)"));
    QCOMPARE(viewport.count() + tiles.count() + snap.count(), 0);
}

QTEST_MAIN(tst_ToolBar)

#include "tst_ToolBar.moc"
