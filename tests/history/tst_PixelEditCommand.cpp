#include "history/PixelEditCommand.h"

#include "support/TestImages.h"

#include <QTest>
#include <QUndoStack>

class tst_PixelEditCommand : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shown = QImage(); }
    void pushingLeavesThePictureAlone();
    void undoAndRedoPutThePicturesBack();
    void redoOfAnAppliedStepDoesNothing();
    void consecutiveScrollsAreOneStep();
    void aStrokeBetweenScrollsMakesThreeSteps();
    void scrollsOfAnotherPictureStayApart();
    void strokesNeverMerge();
    void theKindIsTheId();

private:
    using Kind = PixelEditCommand::Kind;

    PixelEditCommand *step(const QString &before, const QString &after, Kind kind, int key = 7);
    QStringList shown() const { return TestImages::rows(m_shown); }

    QImage m_shown;
};

PixelEditCommand *tst_PixelEditCommand::step(const QString &before, const QString &after, Kind kind,
                                             int key)
{
    return new PixelEditCommand(
        QStringLiteral("Draw"), TestImages::indexed({before}), TestImages::indexed({after}),
        [this](const QImage &image) { m_shown = image; }, key, kind);
}

void tst_PixelEditCommand::pushingLeavesThePictureAlone()
{
    QUndoStack stack;

    stack.push(step("00", "01", Kind::Edit));

    QVERIFY(m_shown.isNull());
    QCOMPARE(stack.undoText(), QStringLiteral("Draw"));
}

void tst_PixelEditCommand::undoAndRedoPutThePicturesBack()
{
    QUndoStack stack;
    stack.push(step("00", "01", Kind::Edit));

    stack.undo();
    QCOMPARE(shown(), QStringList{"00"});

    stack.redo();
    QCOMPARE(shown(), QStringList{"01"});
}

void tst_PixelEditCommand::redoOfAnAppliedStepDoesNothing()
{
    const std::unique_ptr<PixelEditCommand> command(step("00", "01", Kind::Edit));

    command->redo();

    QVERIFY(m_shown.isNull());
    command->undo();
    command->redo();
    m_shown = QImage();
    command->redo();
    QVERIFY(m_shown.isNull());
}

void tst_PixelEditCommand::consecutiveScrollsAreOneStep()
{
    QUndoStack stack;

    stack.push(step("12", "21", Kind::Scroll));
    stack.push(step("21", "34", Kind::Scroll));

    QCOMPARE(stack.count(), 1);
    stack.undo();
    QCOMPARE(shown(), QStringList{"12"});
    stack.redo();
    QCOMPARE(shown(), QStringList{"34"});
}

void tst_PixelEditCommand::aStrokeBetweenScrollsMakesThreeSteps()
{
    QUndoStack stack;

    stack.push(step("12", "21", Kind::Scroll));
    stack.push(step("21", "31", Kind::Edit));
    stack.push(step("31", "13", Kind::Scroll));

    QCOMPARE(stack.count(), 3);
}

void tst_PixelEditCommand::scrollsOfAnotherPictureStayApart()
{
    QUndoStack stack;

    stack.push(step("12", "21", Kind::Scroll, 7));
    stack.push(step("12", "21", Kind::Scroll, 8));

    QCOMPARE(stack.count(), 2);
}

void tst_PixelEditCommand::strokesNeverMerge()
{
    QUndoStack stack;

    stack.push(step("00", "01", Kind::Edit));
    stack.push(step("01", "11", Kind::Edit));

    QCOMPARE(stack.count(), 2);
}

void tst_PixelEditCommand::theKindIsTheId()
{
    QCOMPARE(std::unique_ptr<PixelEditCommand>(step("0", "1", Kind::Edit))->id(), -1);
    QCOMPARE(std::unique_ptr<PixelEditCommand>(step("0", "1", Kind::Scroll))->id(), 1);

    const std::unique_ptr<PixelEditCommand> scroll(step("0", "1", Kind::Scroll));
    const std::unique_ptr<PixelEditCommand> stroke(step("1", "2", Kind::Edit));
    QVERIFY(!scroll->mergeWith(stroke.get()));
    const QUndoCommand plain;
    QVERIFY(!scroll->mergeWith(&plain));
}

QTEST_GUILESS_MAIN(tst_PixelEditCommand)
#include "tst_PixelEditCommand.moc"
