#include "dialogs/MapEditorPage.h"

#include "support/DialogDriver.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QSpinBox>
#include <QTest>

class tst_MapEditorPage : public QObject
{
    Q_OBJECT

private slots:
    void startsOnItsDefaults();
    void writesAndReadsAllItsValues();
    void whatIsMissingKeepsItsValue();
    void whatIsNoValueKeepsItsValue();
    void numbersAreHeldInTheirRanges();
    void theNumbersStandInOneColumn();
    void aSwatchShowsItsColour();
    void aPressOnASwatchAsksForItsColour_data();
    void aPressOnASwatchAsksForItsColour();
    void cancellingThePickerChangesNothing();

private:
    static QPushButton *swatch(const MapEditorPage &page, int index);
};

QPushButton *tst_MapEditorPage::swatch(const MapEditorPage &page, int index)
{
    return DialogDriver::field<QPushButton>(page, index == 0 ? QStringLiteral("Grid colour")
                                                             : QStringLiteral("Alternate colour"));
}

void tst_MapEditorPage::startsOnItsDefaults()
{
    const MapEditorPage page;

    QCOMPARE(page.title(), QStringLiteral("Map Editor"));
    QVERIFY(!page.icon().isNull());
    QCOMPARE(page.toJson(), (QJsonObject{{"checkerBoard", true},
                                         {"gridColour1", "#404040"},
                                         {"gridColour2", "#505050"},
                                         {"overlayGrid", true},
                                         {"gridSize", 8},
                                         {"defaultZoom", 4}}));
    const auto *size = DialogDriver::field<QSpinBox>(page, QStringLiteral("Grid size (in pixels)"));
    QCOMPARE(size->minimum(), 8);
    QCOMPARE(size->maximum(), 256);
    QCOMPARE(size->singleStep(), 8);
    const auto *zoom = DialogDriver::field<QSpinBox>(page, QStringLiteral("Default magnification"));
    QCOMPARE(zoom->minimum(), 1);
    QCOMPARE(zoom->maximum(), 8);
    QVERIFY(
        DialogDriver::field<QCheckBox>(page, QStringLiteral("Render checker board beneath maps")));
    QVERIFY(DialogDriver::field<QCheckBox>(page, QStringLiteral("Enable grid line overlay")));
}

void tst_MapEditorPage::writesAndReadsAllItsValues()
{
    MapEditorPage page;
    const QJsonObject values{{"checkerBoard", false},    {"gridColour1", "#102030"},
                             {"gridColour2", "#a0b0c0"}, {"overlayGrid", false},
                             {"gridSize", 64},           {"defaultZoom", 2}};

    page.fromJson(values);

    QCOMPARE(page.toJson(), values);
    QVERIFY(!page.checkerBoard());
    QVERIFY(!page.overlayGrid());
    QCOMPARE(page.gridColour1(), QColor(0x10, 0x20, 0x30));
    QCOMPARE(page.gridColour2(), QColor(0xa0, 0xb0, 0xc0));
    QCOMPARE(page.gridSize(), 64);
    QCOMPARE(page.defaultZoom(), 2);
}

void tst_MapEditorPage::whatIsMissingKeepsItsValue()
{
    MapEditorPage page;
    page.fromJson({{"gridSize", 64}, {"gridColour2", "#a0b0c0"}, {"overlayGrid", false}});
    const QJsonObject before = page.toJson();

    page.fromJson({});

    QCOMPARE(page.toJson(), before);
}

void tst_MapEditorPage::whatIsNoValueKeepsItsValue()
{
    MapEditorPage page;
    const QJsonObject before = page.toJson();

    page.fromJson({{"checkerBoard", 0},
                   {"gridColour1", "no colour"},
                   {"gridColour2", 7},
                   {"overlayGrid", "false"},
                   {"gridSize", "64"},
                   {"defaultZoom", 3.5}});

    QCOMPARE(page.toJson(), before);
}

void tst_MapEditorPage::numbersAreHeldInTheirRanges()
{
    MapEditorPage page;

    page.fromJson({{"gridSize", 1000}, {"defaultZoom", 0}});
    QCOMPARE(page.gridSize(), 256);
    QCOMPARE(page.defaultZoom(), 1);

    page.fromJson({{"gridSize", -1}, {"defaultZoom", 9}});
    QCOMPARE(page.gridSize(), 8);
    QCOMPARE(page.defaultZoom(), 8);
}

void tst_MapEditorPage::theNumbersStandInOneColumn()
{
    MapEditorPage page;
    page.resize(500, 400);
    page.show();
    const auto *size = DialogDriver::field<QSpinBox>(page, QStringLiteral("Grid size (in pixels)"));
    const auto *zoom = DialogDriver::field<QSpinBox>(page, QStringLiteral("Default magnification"));

    QCOMPARE(zoom->x(), size->x());
    QCOMPARE(zoom->width(), size->width());
}

void tst_MapEditorPage::aSwatchShowsItsColour()
{
    MapEditorPage page;

    page.setFirstGridColour(QColor(10, 200, 30));

    QCOMPARE(swatch(page, 0)->iconSize(), QSize(48, 16));
    const QImage image = swatch(page, 0)->icon().pixmap(48, 16).toImage();
    QCOMPARE(image.size(), QSize(48, 16));
    QCOMPARE(image.pixelColor(1, 1), QColor(10, 200, 30));
    QCOMPARE(image.pixelColor(46, 14), QColor(10, 200, 30));
    QCOMPARE(swatch(page, 1)->icon().pixmap(48, 16).toImage().pixelColor(5, 5),
             QColor(0x50, 0x50, 0x50));
}

void tst_MapEditorPage::aPressOnASwatchAsksForItsColour_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QColor>("first");
    QTest::addColumn<QColor>("second");
    const QColor chosen(1, 2, 3);
    QTest::newRow("first") << 0 << chosen << QColor(0x50, 0x50, 0x50);
    QTest::newRow("second") << 1 << QColor(0x40, 0x40, 0x40) << chosen;
}

void tst_MapEditorPage::aPressOnASwatchAsksForItsColour()
{
    QFETCH(int, index);
    QFETCH(QColor, first);
    QFETCH(QColor, second);
    MapEditorPage page;
    page.show();
    const QColor before = index == 0 ? page.gridColour1() : page.gridColour2();

    QTest::mousePress(swatch(page, index), Qt::LeftButton);
    auto *picker = page.findChild<QColorDialog *>();
    QVERIFY(picker->isVisible());
    QVERIFY(picker->isModal());
    QCOMPARE(picker->currentColor(), before);
    QVERIFY(!swatch(page, index)->isDown());
    picker->setCurrentColor(QColor(1, 2, 3));
    DialogDriver::pressOk(*picker);

    QCOMPARE(page.gridColour1(), first);
    QCOMPARE(page.gridColour2(), second);
    QCOMPARE(page.findChildren<QColorDialog *>().size(), 1);
}

void tst_MapEditorPage::cancellingThePickerChangesNothing()
{
    MapEditorPage page;
    page.show();
    page.showColourPicker(1);
    auto *picker = page.findChild<QColorDialog *>();

    picker->setCurrentColor(QColor(1, 2, 3));
    DialogDriver::pressCancel(*picker);

    QCOMPARE(page.gridColour2(), QColor(0x50, 0x50, 0x50));
}

QTEST_MAIN(tst_MapEditorPage)
#include "tst_MapEditorPage.moc"
