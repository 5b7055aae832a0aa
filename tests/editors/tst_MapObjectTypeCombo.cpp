#include "editors/MapObjectTypeCombo.h"

#include <QSignalSpy>
#include <QTest>

class tst_MapObjectTypeCombo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<MapObjectType>(); }

    void offersTheTypesWithTheirValues();
    void choosingSendsTheType();
    void showingATypeSendsNothing();
    void anUnknownTypeShowsNoEntry();
    void anIndexOutOfRangeSendsNothing_data();
    void anIndexOutOfRangeSendsNothing();
};

void tst_MapObjectTypeCombo::offersTheTypesWithTheirValues()
{
    const MapObjectTypeCombo combo;

    QCOMPARE(combo.count(), 2);
    QCOMPARE(combo.itemText(0), QString("Normal"));
    QCOMPARE(combo.itemData(0).toInt(), 0);
    QCOMPARE(combo.itemText(1), QString("Horizontal Platform"));
    QCOMPARE(combo.itemData(1).toInt(), 1);
    QCOMPARE(combo.sizeAdjustPolicy(), QComboBox::AdjustToContents);
    QCOMPARE(combo.minimumContentsLength(), 20);
}

void tst_MapObjectTypeCombo::choosingSendsTheType()
{
    MapObjectTypeCombo combo;
    QSignalSpy changed(&combo, &MapObjectTypeCombo::currentTypeChanged);

    QTest::keyClick(&combo, Qt::Key_Down);
    QTest::keyClick(&combo, Qt::Key_Up);

    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0).at(0).value<MapObjectType>(), MapObjectType::HorizontalPlatform);
    QCOMPARE(changed.at(1).at(0).value<MapObjectType>(), MapObjectType::Normal);
}

void tst_MapObjectTypeCombo::showingATypeSendsNothing()
{
    MapObjectTypeCombo combo;
    QSignalSpy changed(&combo, &MapObjectTypeCombo::currentTypeChanged);

    combo.setCurrentType(MapObjectType::HorizontalPlatform);

    QCOMPARE(combo.currentIndex(), 1);
    QCOMPARE(changed.count(), 0);
}

void tst_MapObjectTypeCombo::anUnknownTypeShowsNoEntry()
{
    MapObjectTypeCombo combo;

    combo.setCurrentType(static_cast<MapObjectType>(7));

    QCOMPARE(combo.currentIndex(), -1);
}

void tst_MapObjectTypeCombo::anIndexOutOfRangeSendsNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("none") << -1;
    QTest::newRow("one beyond") << 2;
}

void tst_MapObjectTypeCombo::anIndexOutOfRangeSendsNothing()
{
    QFETCH(int, index);
    MapObjectTypeCombo combo;
    QSignalSpy changed(&combo, &MapObjectTypeCombo::currentTypeChanged);

    combo.emitTypeChanged(index);

    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(tst_MapObjectTypeCombo)
#include "tst_MapObjectTypeCombo.moc"
