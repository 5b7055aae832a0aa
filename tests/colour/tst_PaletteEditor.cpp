#include "colour/PaletteEditor.h"

#include "colour/ChannelSlider.h"
#include "colour/ColourEditor.h"
#include "colour/PaletteGrid.h"
#include "history/EditRecorder.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "support/PaintCounter.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

class tst_PaletteEditor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isDisabledWithoutAPalette();
    void aSelectedEntryIsShownForEditing();
    void oneSelectedIndexIsSetFromOutside();
    void theWholeRunTakesTheColour();
    void theEditorTellsAfterThePalette();
    void anEditOfARunIsOneUndoStep();
    void slowEditsAreStepsOfTheirOwn();
    void anUndoIsShown();
    void aColourThatThePaletteRoundsIsShownRounded();
    void theGridIsRepaintedEvenWhereNothingChanged();
    void theOldPaletteIsNotHeardAnyMore();
    void aDeadPaletteDisablesTheEditor();

private:
    PaletteGrid *grid() { return m_editor->findChild<PaletteGrid *>(); }
    ColourEditor *colours() { return m_editor->findChild<ColourEditor *>(); }
    void drag(int from, int to);
    void setLevels(int red, int green, int blue);
    void confirm() { QTest::mouseClick(colours()->findChild<QPushButton *>(), Qt::LeftButton); }

    std::unique_ptr<Project> m_project;
    QPointer<Palette> m_palette;
    std::unique_ptr<EditRecorder> m_recorder;
    std::unique_ptr<PaletteEditor> m_editor;
    QUndoStack m_stack;
    qint64 m_now = 0;
};

void tst_PaletteEditor::init()
{
    m_stack.clear();
    m_editor = std::make_unique<PaletteEditor>();
    m_project = std::make_unique<Project>();
    m_palette = m_project->createPalette(CreateDefault, QStringLiteral("Colours"));
    m_recorder = std::make_unique<EditRecorder>(
        m_project.get(), [this](const QUuid &) { return &m_stack; }, nullptr,
        [this] { return m_now; });
    m_editor->setPalette(m_palette);
}

void tst_PaletteEditor::drag(int from, int to)
{
    const auto middle = [](int index) { return QPoint(index % 16 * 16 + 7, index / 16 * 16 + 7); };
    QTest::mousePress(grid(), Qt::LeftButton, {}, middle(from));
    QTest::mouseMove(grid(), middle(to));
    QTest::mouseRelease(grid(), Qt::LeftButton, {}, middle(to));
}

void tst_PaletteEditor::setLevels(int red, int green, int blue)
{
    const auto sliders = colours()->findChildren<ChannelSlider *>();
    sliders.at(0)->setValue(red);
    sliders.at(1)->setValue(green);
    sliders.at(2)->setValue(blue);
}

void tst_PaletteEditor::isDisabledWithoutAPalette()
{
    QVERIFY(grid()->isEnabled() && colours()->isEnabled());

    m_editor->setPalette(QPointer<Palette>());
    QVERIFY(!grid()->isEnabled() && !colours()->isEnabled());

    PaletteEditor fresh;
    QVERIFY(!fresh.findChild<PaletteGrid *>()->isEnabled());
    QVERIFY(!fresh.findChild<ColourEditor *>()->isEnabled());
}

void tst_PaletteEditor::aSelectedEntryIsShownForEditing()
{
    m_palette->setColour(40, Qt::red, true);

    drag(40, 17);

    QCOMPARE(m_editor->first(), 17);
    QCOMPARE(m_editor->last(), 40);
    QCOMPARE(colours()->colour(), m_palette->colour(17));

    drag(40, 41);
    QCOMPARE(colours()->colour(), QColor(255, 0, 0));
    QVERIFY(colours()->priority());
}

void tst_PaletteEditor::oneSelectedIndexIsSetFromOutside()
{
    m_editor->setSelectedIndex(48);
    m_editor->setSelectedIndex(256);
    m_editor->setSelectedIndex(-1);

    QCOMPARE(m_editor->first(), 48);
    QCOMPARE(m_editor->last(), 48);
    QCOMPARE(grid()->first(), 48);
    QCOMPARE(colours()->colour(), m_palette->colour(48));
}

void tst_PaletteEditor::theWholeRunTakesTheColour()
{
    QSignalSpy changed(m_editor.get(), &PaletteEditor::paletteChanged);
    drag(20, 22);
    setLevels(7, 0, 7);

    confirm();

    QCOMPARE(changed, (QList<QVariantList>{{20, 22, QColor(255, 0, 255)}}));
    for (int index = 20; index <= 22; ++index)
        QCOMPARE(m_palette->colour(index), QColor(255, 0, 255));
    QCOMPARE(m_palette->word(23), quint16(0x1701));
    QVERIFY(!colours()->isChanged());
}

void tst_PaletteEditor::theEditorTellsAfterThePalette()
{
    QStringList told;
    connect(m_palette, &Palette::colourChanged, this,
            [&told](int index) { told += QStringLiteral("changed %1").arg(index); });
    connect(m_palette, &Palette::colourEdited, this,
            [&told](int index) { told += QStringLiteral("edited %1").arg(index); });
    connect(m_editor.get(), &PaletteEditor::paletteChanged, this,
            [&told](int first, int last) { told += QString("run %1 %2").arg(first).arg(last); });
    m_editor->selectionChanged(254, 255);

    m_editor->colourChanged(Qt::red, true);
    m_editor->colourChanged(Qt::red, true);

    QCOMPARE(told, (QStringList{"changed 254", "edited 254", "changed 255", "edited 255",
                                "run 254 255", "run 254 255"}));
    QCOMPARE(m_palette->word(254), quint16(0xE080));
}

void tst_PaletteEditor::anEditOfARunIsOneUndoStep()
{
    drag(20, 22);
    setLevels(7, 0, 7);
    confirm();
    m_now += 400;
    setLevels(7, 2, 7);
    confirm();

    QCOMPARE(m_stack.count(), 1);
    QCOMPARE(m_stack.undoText(), QStringLiteral("Colour"));
    m_stack.undo();
    QCOMPARE(m_palette->word(20), quint16(0x1400));
    QCOMPARE(m_palette->word(22), quint16(0x1601));
    m_stack.redo();
    QCOMPARE(m_palette->colour(21), QColor(255, 73, 255));
}

void tst_PaletteEditor::slowEditsAreStepsOfTheirOwn()
{
    drag(20, 22);
    setLevels(7, 0, 7);
    confirm();
    m_now += 401;
    setLevels(7, 2, 7);
    confirm();

    QCOMPARE(m_stack.count(), 2);
    m_stack.undo();
    QCOMPARE(m_palette->colour(21), QColor(255, 0, 255));
}

void tst_PaletteEditor::anUndoIsShown()
{
    drag(20, 20);
    const QColor before = m_palette->colour(20);
    setLevels(7, 0, 7);
    confirm();

    m_stack.undo();

    QCOMPARE(colours()->colour(), before);
    QCOMPARE(grid()->grab().toImage().pixelColor(4 * 16 + 7, 16 + 7), before);
}

void tst_PaletteEditor::aColourThatThePaletteRoundsIsShownRounded()
{
    m_palette->setColour(20, Qt::white, false);
    drag(20, 20);
    setLevels(6, 6, 6);

    confirm();

    QCOMPARE(m_palette->word(20), quint16(0xFF01));
    QCOMPARE(colours()->colour(), QColor(Qt::white));
    QVERIFY(!colours()->isChanged());
}

void tst_PaletteEditor::theGridIsRepaintedEvenWhereNothingChanged()
{
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    const PaintCounter paints(*grid());

    m_editor->colourChanged(m_palette->colour(0), m_palette->priority(0));

    QTRY_COMPARE(paints.count(), 1);
}

void tst_PaletteEditor::theOldPaletteIsNotHeardAnyMore()
{
    const QPointer<Palette> other = m_project->createPalette(CreateBlank, "Other");
    m_editor->setPalette(other);

    m_palette->setColour(0, Qt::white, true);

    QCOMPARE(colours()->colour(), QColor(Qt::black));
    QVERIFY(!colours()->priority());
    QVERIFY(m_project->deletePalette(m_palette->id()));
    QVERIFY(grid()->isEnabled());
}

void tst_PaletteEditor::aDeadPaletteDisablesTheEditor()
{
    QVERIFY(m_project->deletePalette(m_palette->id()));
    QVERIFY(!m_palette);

    QVERIFY(!grid()->isEnabled() && !colours()->isEnabled());
    m_editor->colourChanged(Qt::red, false);
}

QTEST_MAIN(tst_PaletteEditor)
#include "tst_PaletteEditor.moc"
