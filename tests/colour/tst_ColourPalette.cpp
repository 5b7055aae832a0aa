#include "colour/ColourPalette.h"

#include "colour/ChannelSlider.h"
#include "colour/ColourEditorPopover.h"
#include "history/EditRecorder.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "support/PaintCounter.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

using Tessaril::Ui::ImageType;

class tst_ColourPalette : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void leftPicksThePrimaryColour();
    void rightPicksTheSecondaryColour();
    void middleMakesAColourTransparentInSilence();
    void middleMakesNoUndoStep();
    void clicksBeyondTheLastCellAreIgnored();
    void picksCountFromTheBankInSixteenColours();
    void anOffsetMovesBothPicks();
    void anOffsetOutOfRangeIsIgnored_data();
    void anOffsetOutOfRangeIsIgnored();
    void settingAColourTellsADifference();
    void eachImageTypeHasItsCells_data();
    void eachImageTypeHasItsCells();
    void swatchesFollowTheWidth();
    void aDoubleClickEditsTheEntry();
    void withoutAnOpenEditorNothingIsWritten();
    void aTransparentEntryShowsChequersAndColour();

private:
    // The strip is 256 wide: sixteen cells of sixteen pixels in a row.
    static QPoint middleOf(int cell) { return {cell % 16 * 16 + 7, cell / 16 * 16 + 7}; }
    QColor pixel(QPoint place) { return m_strip->grab().toImage().pixelColor(place); }

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<ColourPalette> m_strip;
};

void tst_ColourPalette::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
    m_strip = std::make_unique<ColourPalette>();
    m_strip->setPalette(QPointer<Palette>(m_palette.get()));
    m_strip->resize(256, 256);
    m_strip->grab();
}

void tst_ColourPalette::leftPicksThePrimaryColour()
{
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);
    QSignalSpy secondary(m_strip.get(), &ColourPalette::secondaryIndexChanged);

    QTest::mousePress(m_strip.get(), Qt::LeftButton, {}, middleOf(200));

    QCOMPARE(primary, (QList<QVariantList>{{200}}));
    QCOMPARE(secondary.count(), 0);
    QCOMPARE(m_strip->primaryIndex(), 200);
}

void tst_ColourPalette::rightPicksTheSecondaryColour()
{
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);
    QSignalSpy secondary(m_strip.get(), &ColourPalette::secondaryIndexChanged);

    QTest::mousePress(m_strip.get(), Qt::RightButton, {}, middleOf(255));

    QCOMPARE(secondary, (QList<QVariantList>{{255}}));
    QCOMPARE(primary.count(), 0);
    QCOMPARE(m_strip->secondaryIndex(), 255);
}

void tst_ColourPalette::middleMakesAColourTransparentInSilence()
{
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);
    QSignalSpy secondary(m_strip.get(), &ColourPalette::secondaryIndexChanged);
    QSignalSpy changed(m_palette.get(), &Palette::colourChanged);
    QSignalSpy edited(m_palette.get(), &Palette::colourEdited);

    m_strip->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_strip.get()));
    const PaintCounter paints(*m_strip);

    QTest::mousePress(m_strip.get(), Qt::MiddleButton, {}, middleOf(3));

    QCOMPARE(m_palette->transparencyIndex(), 3);
    QTRY_VERIFY(paints.count() > 0); // nobody tells it of the palette's silent change
    QCOMPARE(primary.count() + secondary.count() + changed.count() + edited.count(), 0);
}

void tst_ColourPalette::middleMakesNoUndoStep()
{
    Project project;
    QUndoStack stack;
    const QPointer<Palette> palette = project.createPalette(CreateDefault, "Colours");
    const EditRecorder recorder(&project, [&stack](const QUuid &) { return &stack; });
    m_strip->setPalette(palette);

    QTest::mousePress(m_strip.get(), Qt::MiddleButton, {}, middleOf(3));
    QCOMPARE(palette->colour(3).alpha(), 0);
    QCOMPARE(stack.count(), 0);

    palette->setColour(3, Qt::white, false);
    QCOMPARE(stack.count(), 1);
}

void tst_ColourPalette::clicksBeyondTheLastCellAreIgnored()
{
    m_strip->setImageType(ImageType::Offset16);
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);

    QTest::mousePress(m_strip.get(), Qt::LeftButton, {}, middleOf(16));
    QTest::mousePress(m_strip.get(), Qt::RightButton, {}, middleOf(16));
    QTest::mousePress(m_strip.get(), Qt::MiddleButton, {}, middleOf(16));
    QTest::mouseDClick(m_strip.get(), Qt::LeftButton, {}, middleOf(16));

    QCOMPARE(primary.count(), 0);
    QCOMPARE(m_palette->transparencyIndex(), -1);
    QVERIFY(!m_strip->findChild<ColourEditorPopover *>());
}

void tst_ColourPalette::picksCountFromTheBankInSixteenColours()
{
    m_strip->setImageType(ImageType::Offset16);
    m_strip->setOffset(4);
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);

    QTest::mousePress(m_strip.get(), Qt::LeftButton, {}, middleOf(9));

    QCOMPARE(primary, (QList<QVariantList>{{73}}));
    QCOMPARE(pixel(middleOf(2)), m_palette->colour(66));
}

void tst_ColourPalette::anOffsetMovesBothPicks()
{
    m_strip->setPrimaryColour(0x25);
    m_strip->setSecondaryColour(0x0E);
    QStringList told;
    connect(m_strip.get(), &ColourPalette::primaryIndexChanged, this,
            [&told](int index) { told += QStringLiteral("primary %1").arg(index); });
    connect(m_strip.get(), &ColourPalette::secondaryIndexChanged, this,
            [&told](int index) { told += QStringLiteral("secondary %1").arg(index); });

    m_strip->setOffset(15);

    QCOMPARE(told, (QStringList{"primary 245", "secondary 254"}));
    QCOMPARE(m_strip->offset(), 15);
}

void tst_ColourPalette::anOffsetOutOfRangeIsIgnored_data()
{
    QTest::addColumn<int>("offset");
    QTest::newRow("16") << 16;
    QTest::newRow("-1") << -1;
}

void tst_ColourPalette::anOffsetOutOfRangeIsIgnored()
{
    QFETCH(int, offset);
    m_strip->setOffset(2);
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);

    m_strip->setOffset(offset);

    QCOMPARE(primary.count(), 0);
    QCOMPARE(m_strip->offset(), 2);
}

void tst_ColourPalette::settingAColourTellsADifference()
{
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);
    QSignalSpy secondary(m_strip.get(), &ColourPalette::secondaryIndexChanged);

    m_strip->setPrimaryColour(9);
    m_strip->setPrimaryColour(9);
    m_strip->setPrimaryColour(256);
    m_strip->setSecondaryColour(8);
    m_strip->setSecondaryColour(-1);

    QCOMPARE(primary, (QList<QVariantList>{{9}}));
    QCOMPARE(secondary, (QList<QVariantList>{{8}}));
}

void tst_ColourPalette::eachImageTypeHasItsCells_data()
{
    QTest::addColumn<ImageType>("type");
    QTest::addColumn<int>("cells");
    QTest::newRow("Ula") << ImageType::Ula << 16;
    QTest::newRow("UlaPlus") << ImageType::UlaPlus << 64;
    QTest::newRow("Offset16") << ImageType::Offset16 << 16;
    QTest::newRow("Full256") << ImageType::Full256 << 256;
    QTest::newRow("Undefined") << ImageType::Undefined << 256;
}

void tst_ColourPalette::eachImageTypeHasItsCells()
{
    QFETCH(ImageType, type);
    QFETCH(int, cells);

    m_strip->setImageType(type);

    QCOMPARE(m_strip->grid().count, cells);
    QCOMPARE(m_strip->heightForWidth(256), cells / 16 * 16);
}

void tst_ColourPalette::swatchesFollowTheWidth()
{
    QCOMPARE(m_strip->heightForWidth(160), 160);
    QCOMPARE(m_strip->heightForWidth(1100), 4 * 17);

    m_strip->resize(160, 160);
    m_strip->grab();
    QSignalSpy primary(m_strip.get(), &ColourPalette::primaryIndexChanged);
    QTest::mousePress(m_strip.get(), Qt::LeftButton, {}, {159, 159});

    QCOMPARE(primary, (QList<QVariantList>{{255}}));
}

void tst_ColourPalette::aDoubleClickEditsTheEntry()
{
    m_strip->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_strip.get()));
    QTest::mouseDClick(m_strip.get(), Qt::LeftButton, {}, middleOf(4));
    auto *popover = m_strip->findChild<ColourEditorPopover *>();
    QVERIFY(popover && popover->isVisible());

    popover->findChildren<ChannelSlider *>().at(0)->setValue(7);
    QTest::mouseClick(popover->findChildren<QPushButton *>().at(0), Qt::LeftButton);

    QVERIFY(!popover->isVisible());
    QCOMPARE(m_palette->word(4), quint16(0xE400));
    QCOMPARE(pixel(middleOf(4)), m_palette->colour(4));
}

void tst_ColourPalette::withoutAnOpenEditorNothingIsWritten()
{
    QSignalSpy changed(m_palette.get(), &Palette::colourChanged);
    m_strip->updateColour(Qt::white, true);
    QCOMPARE(changed.count(), 0);

    m_strip->show();
    QTest::mouseDClick(m_strip.get(), Qt::LeftButton, {}, middleOf(4));
    m_strip->findChild<ColourEditorPopover *>()->close();
    m_strip->updateColour(Qt::white, true);
    QCOMPARE(changed.count(), 0);
}

void tst_ColourPalette::aTransparentEntryShowsChequersAndColour()
{
    QTest::mousePress(m_strip.get(), Qt::MiddleButton, {}, middleOf(0xE3));

    const QRect cell(3 * 16, 14 * 16, 15, 15);
    QCOMPARE(pixel(cell.topLeft()), QColor(136, 136, 136));
    QCOMPARE(pixel(cell.bottomLeft()), QColor(204, 204, 204));
    QCOMPARE(pixel(cell.topRight()), QColor(m_palette->colour(0xE3).rgb()));
}

QTEST_MAIN(tst_ColourPalette)
#include "support/PaintCounter.h"
#include "tst_ColourPalette.moc"
