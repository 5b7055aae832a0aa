#include "history/PaletteColourCommand.h"

#include "model/Palette.h"

#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

class tst_PaletteColourCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void pushingLeavesThePaletteAlone();
    void undoStoresTheWordAndTellsItsColour();
    void undoKeepsAWordThatSettingTheColourWouldChange();
    void theTransparentEntryIsToldWithoutAlpha();
    void entriesThatAreRightAlreadySendNothing();
    void redoOfAnAppliedStepDoesNothing();
    void mergesOnlyWithinTheWindow_data();
    void mergesOnlyWithinTheWindow();
    void twoColoursInOneRunAreUndoneTogether();
    void twoEditsOfOneColourUndoToTheFirst();
    void theWindowIsMeasuredFromTheLatestEdit();
    void otherPalettesNeverMerge();
    void aDeletedPaletteIsSkipped();
    void aPaletteDeletedByAListenerEndsTheUndo();

private:
    void edit(int index, quint16 word, qint64 time);

    std::unique_ptr<Palette> m_palette;
    QUndoStack m_stack;
};

void tst_PaletteColourCommand::init()
{
    m_stack.clear();
    m_palette = std::make_unique<Palette>();
}

void tst_PaletteColourCommand::edit(int index, quint16 word, qint64 time)
{
    const quint16 before = m_palette->word(index);
    m_palette->setWord(index, word);
    m_stack.push(
        new PaletteColourCommand(m_palette.get(), {{index, before}}, {{index, word}}, time));
}

void tst_PaletteColourCommand::pushingLeavesThePaletteAlone()
{
    QSignalSpy changed(m_palette.get(), &Palette::colourChanged);

    m_stack.push(new PaletteColourCommand(m_palette.get(), {{3, 0}}, {{3, 0xFF01}}, 0));

    QCOMPARE(m_palette->word(3), quint16(0));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_stack.undoText(), QStringLiteral("Colour"));
    QCOMPARE(m_stack.command(0)->id(), 1001);
}

void tst_PaletteColourCommand::undoStoresTheWordAndTellsItsColour()
{
    m_palette->setWord(3, 0xE080);
    edit(3, 0x1C00, 0);
    QSignalSpy changed(m_palette.get(), &Palette::colourChanged);
    QSignalSpy edited(m_palette.get(), &Palette::colourEdited);

    m_stack.undo();
    m_stack.redo();

    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0), (QVariantList{3, QColor(255, 0, 0), true}));
    QCOMPARE(changed.at(1), (QVariantList{3, QColor(0, 255, 0), false}));
    QCOMPARE(m_palette->word(3), quint16(0x1C00));
    QCOMPARE(edited.count(), 0);
}

void tst_PaletteColourCommand::undoKeepsAWordThatSettingTheColourWouldChange()
{
    const quint16 levelSix = 0xDB00;
    m_palette->setWord(9, levelSix);
    edit(9, 0, 0);

    m_stack.undo();

    QCOMPARE(m_palette->word(9), levelSix);
}

void tst_PaletteColourCommand::theTransparentEntryIsToldWithoutAlpha()
{
    m_palette->setTransparencyIndex(3);
    edit(3, 0xFF01, 0);
    QSignalSpy changed(m_palette.get(), &Palette::colourChanged);

    m_stack.undo();

    QCOMPARE(changed.at(0).at(1).value<QColor>().alpha(), 0);
}

void tst_PaletteColourCommand::entriesThatAreRightAlreadySendNothing()
{
    edit(3, 0xFF01, 0);
    m_palette->setWord(3, 0);
    QSignalSpy changed(m_palette.get(), &Palette::colourChanged);

    m_stack.undo();

    QCOMPARE(changed.count(), 0);
}

void tst_PaletteColourCommand::redoOfAnAppliedStepDoesNothing()
{
    PaletteColourCommand command(m_palette.get(), {{3, 0}}, {{3, 0xFF01}}, 0);

    command.redo();

    QCOMPARE(m_palette->word(3), quint16(0));
    command.undo();
    command.redo();
    m_palette->setWord(3, 0x0400);
    command.redo();
    QCOMPARE(m_palette->word(3), quint16(0x0400));
}

void tst_PaletteColourCommand::mergesOnlyWithinTheWindow_data()
{
    QTest::addColumn<qint64>("later");
    QTest::addColumn<int>("steps");
    QTest::newRow("at once") << qint64(0) << 1;
    QTest::newRow("100 ms") << qint64(100) << 1;
    QTest::newRow("the window exactly") << qint64(400) << 1;
    QTest::newRow("just beyond") << qint64(401) << 2;
    QTest::newRow("a clock set back") << qint64(-1) << 2;
}

void tst_PaletteColourCommand::mergesOnlyWithinTheWindow()
{
    QFETCH(qint64, later);
    QFETCH(int, steps);

    edit(3, 0x2000, 10000);
    edit(3, 0x4000, 10000 + later);

    QCOMPARE(m_stack.count(), steps);
}

void tst_PaletteColourCommand::twoColoursInOneRunAreUndoneTogether()
{
    m_palette->setWord(3, 0x0101);
    m_palette->setWord(4, 0x0400);

    edit(3, 0x2000, 0);
    edit(4, 0x4000, 399);

    QCOMPARE(m_stack.count(), 1);
    m_stack.undo();
    QCOMPARE(m_palette->word(3), quint16(0x0101));
    QCOMPARE(m_palette->word(4), quint16(0x0400));
    m_stack.redo();
    QCOMPARE(m_palette->word(3), quint16(0x2000));
    QCOMPARE(m_palette->word(4), quint16(0x4000));
}

void tst_PaletteColourCommand::twoEditsOfOneColourUndoToTheFirst()
{
    m_palette->setWord(3, 0x0101);

    edit(3, 0x2000, 0);
    edit(3, 0x4000, 100);

    m_stack.undo();
    QCOMPARE(m_palette->word(3), quint16(0x0101));
    m_stack.redo();
    QCOMPARE(m_palette->word(3), quint16(0x4000));
}

void tst_PaletteColourCommand::theWindowIsMeasuredFromTheLatestEdit()
{
    edit(3, 0x2000, 0);
    edit(3, 0x4000, 350);
    edit(3, 0x6000, 700);

    QCOMPARE(m_stack.count(), 1);
}

void tst_PaletteColourCommand::otherPalettesNeverMerge()
{
    Palette other;
    edit(3, 0x2000, 0);

    m_stack.push(new PaletteColourCommand(&other, {{3, 0}}, {{3, 0x2000}}, 0));

    QCOMPARE(m_stack.count(), 2);
    PaletteColourCommand colour(&other, {{3, 0}}, {{3, 0x2000}}, 0);
    const QUndoCommand plain;
    QVERIFY(!colour.mergeWith(&plain));
}

void tst_PaletteColourCommand::aDeletedPaletteIsSkipped()
{
    edit(3, 0x2000, 0);
    m_palette.reset();

    m_stack.undo();
    QCOMPARE(m_stack.index(), 0);

    m_stack.redo();
    QCOMPARE(m_stack.index(), 1);
}

void tst_PaletteColourCommand::aPaletteDeletedByAListenerEndsTheUndo()
{
    edit(3, 0x2000, 0);
    edit(4, 0x2000, 0);
    int told = 0;
    connect(m_palette.get(), &Palette::colourChanged, this, [this, &told] {
        ++told;
        m_palette.reset();
    });

    m_stack.undo();

    QCOMPARE(told, 1);
}

QTEST_GUILESS_MAIN(tst_PaletteColourCommand)
#include "tst_PaletteColourCommand.moc"
