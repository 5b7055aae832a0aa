#include "editors/TileSheet.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "uikit/CheckList.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>
#include <QTest>

using DialogDriver::field;

class tst_TileSheet : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theRowsHaveTheirTexts();
    void theEdgesAreListedClockwise();
    void theSummaryTellsTheEdges_data();
    void theSummaryTellsTheEdges();
    void aBoxSetsAndClearsItsBit_data();
    void aBoxSetsAndClearsItsBit();
    void anEdgeSetsAndClearsItsBit_data();
    void anEdgeSetsAndClearsItsBit();
    void theValueGoesIntoTheTile();
    void showingATileChangesNone();
    void aTileThatDiesIsLeftAlone();
    void withoutATileTheFormIsDisabled();

private:
    CheckList *edges() const { return m_sheet->findChild<CheckList *>(); }
    QSpinBox *value() const { return m_sheet->findChild<QSpinBox *>(); }

    std::unique_ptr<TileSet> m_set;
    std::unique_ptr<TileSheet> m_sheet;
};

void tst_TileSheet::init()
{
    m_set = std::make_unique<TileSet>(nullptr, 3);
    m_sheet = std::make_unique<TileSheet>();
    m_sheet->setTile(m_set.get(), m_set->tile(1));
    m_sheet->show();
}

void tst_TileSheet::theRowsHaveTheirTexts()
{
    const auto *form = qobject_cast<QFormLayout *>(m_sheet->layout());
    QVERIFY(form);
    QStringList rows;
    for (int row = 0; row < form->rowCount(); ++row) {
        QWidget *const field = form->itemAt(row, QFormLayout::FieldRole)->widget();
        const auto *label = qobject_cast<QLabel *>(form->labelForField(field));
        rows += QString("%1|%2|%3")
                    .arg(label->text(), field->property("attribute").toString(), field->toolTip());
    }

    QCOMPARE(rows, QStringList(
                       {"Solid Edges||", "Deadly/Harmful|16|Makes this tile harmful to the player",
                        "Collectible|32|Tile can be picked up/removed on contact with the player",
                        "Climbable|64|Tile represents a rope/ladder climbable element",
                        "Door/Exit|128|May be used as a door or exit", "Value/Weight||"}));
    QCOMPARE(value()->minimum(), 0);
    QCOMPARE(value()->maximum(), 255);
}

void tst_TileSheet::theEdgesAreListedClockwise()
{
    QStringList rows;
    for (int row = 0; row < edges()->count(); ++row)
        rows += edges()->itemText(row) + ' ' + edges()->itemData(row).toString();

    QCOMPARE(rows, QStringList({"Top 1", "Right 4", "Bottom 8", "Left 2"}));
}

void tst_TileSheet::theSummaryTellsTheEdges_data()
{
    QTest::addColumn<int>("attributes");
    QTest::addColumn<QString>("summary");

    QTest::newRow("none") << 0xF0 << "Empty";
    QTest::newRow("all") << 0x0F << "All Sides";
    QTest::newRow("one") << int(Tile::TA_LEFTSOLID) << "Left";
    QTest::newRow("some") << int(Tile::TA_LEFTSOLID | Tile::TA_TOPSOLID | Tile::TA_BOTTOMSOLID)
                          << "Top, Bottom, Left";
}

void tst_TileSheet::theSummaryTellsTheEdges()
{
    QFETCH(int, attributes);
    QFETCH(QString, summary);
    m_set->tile(2)->setAttributes(attributes);

    m_sheet->setTile(m_set.get(), m_set->tile(2));

    QCOMPARE(edges()->summary(), summary);
}

void tst_TileSheet::aBoxSetsAndClearsItsBit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("bit");

    QTest::newRow("deadly") << "Deadly/Harmful" << 16;
    QTest::newRow("collectible") << "Collectible" << 32;
    QTest::newRow("climbable") << "Climbable" << 64;
    QTest::newRow("door") << "Door/Exit" << 128;
}

void tst_TileSheet::aBoxSetsAndClearsItsBit()
{
    QFETCH(QString, name);
    QFETCH(int, bit);
    Tile *const tile = m_set->tile(1);
    tile->setAttributes(0xFF & ~bit);
    m_sheet->setTile(m_set.get(), tile);
    auto *box = field<QCheckBox>(*m_sheet, name);

    QVERIFY(!box->isChecked());
    box->click();
    QCOMPARE(tile->attributes(), 0xFF);
    box->click();
    QCOMPARE(tile->attributes(), 0xFF & ~bit);
}

void tst_TileSheet::anEdgeSetsAndClearsItsBit_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("bit");

    QTest::newRow("top") << 0 << 1;
    QTest::newRow("right") << 1 << 4;
    QTest::newRow("bottom") << 2 << 8;
    QTest::newRow("left") << 3 << 2;
}

void tst_TileSheet::anEdgeSetsAndClearsItsBit()
{
    QFETCH(int, row);
    QFETCH(int, bit);
    Tile *const tile = m_set->tile(1);
    tile->setAttributes(0xFF & ~bit);
    m_sheet->setTile(m_set.get(), tile);

    edges()->itemPressed(edges()->model()->index(row, 0));
    QCOMPARE(tile->attributes(), 0xFF);
    edges()->itemPressed(edges()->model()->index(row, 0));
    QCOMPARE(tile->attributes(), 0xFF & ~bit);
}

void tst_TileSheet::theValueGoesIntoTheTile()
{
    value()->selectAll();
    QTest::keyClicks(value(), "77");

    QCOMPARE(m_set->tile(1)->value(), 77);
    QCOMPARE(m_set->tile(0)->value(), 0);
}

void tst_TileSheet::showingATileChangesNone()
{
    m_set->tile(1)->setAttributes(0xA5);
    m_set->tile(1)->setValue(9);
    m_set->tile(2)->setAttributes(0x5A);
    m_set->tile(2)->setValue(1000); // beyond what the form can show

    m_sheet->setTile(m_set.get(), m_set->tile(1));
    m_sheet->setTile(m_set.get(), m_set->tile(2));

    QCOMPARE(m_set->tile(1)->attributes(), 0xA5);
    QCOMPARE(m_set->tile(1)->value(), 9);
    QCOMPARE(m_set->tile(2)->attributes(), 0x5A);
    QCOMPARE(m_set->tile(2)->value(), 1000);
    QVERIFY(field<QCheckBox>(*m_sheet, "Climbable")->isChecked());
    QVERIFY(!field<QCheckBox>(*m_sheet, "Collectible")->isChecked());
}

void tst_TileSheet::aTileThatDiesIsLeftAlone()
{
    m_set->deleteTile(1);

    field<QCheckBox>(*m_sheet, "Climbable")->click();
    value()->setValue(3);

    QCOMPARE(m_set->tile(1)->attributes(), 0);
}

void tst_TileSheet::withoutATileTheFormIsDisabled()
{
    QVERIFY(m_sheet->isEnabled());

    m_sheet->setTile(m_set.get(), nullptr);

    QVERIFY(!m_sheet->isEnabled());
    QCOMPARE(edges()->summary(), QString("Empty"));
}

QTEST_MAIN(tst_TileSheet)
#include "tst_TileSheet.moc"
