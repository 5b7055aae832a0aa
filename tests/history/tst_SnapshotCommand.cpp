#include "history/SnapshotCommand.h"

#include <QImage>
#include <QTest>
#include <QUndoStack>

class tst_SnapshotCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void pushingLeavesTheModelAlone();
    void undoAndRedoApplyTheTwoStates();
    void redoOfAnAppliedStepDoesNothing();
    void undoAppliesEvenTwice();
    void mergesOnlyWithinTheWindow_data();
    void mergesOnlyWithinTheWindow();
    void windowIsMeasuredFromTheLatestEdit();
    void otherKeysNeverMerge();
    void aNegativeWindowHasNoLimit();
    void stepsWithoutAnIdNeverMerge();
    void aStepOfAnotherStateIsRefused();
    void childrenFollowTheStep();
    void picturesAreSharedNotCopied();

private:
    using Command = SnapshotCommand<QString>;

    Command *step(const QString &before, const QString &after, qint64 time, qint64 window = 100,
                  const QVariant &key = QStringLiteral("a"), int id = 1003);

    QString m_model;
    int m_applications = 0;
};

void tst_SnapshotCommand::init()
{
    m_model = QStringLiteral("untouched");
    m_applications = 0;
}

tst_SnapshotCommand::Command *tst_SnapshotCommand::step(const QString &before, const QString &after,
                                                        qint64 time, qint64 window,
                                                        const QVariant &key, int id)
{
    const auto apply = [this](const QString &state) {
        m_model = state;
        ++m_applications;
    };
    return new Command(QStringLiteral("Edit"), before, after, apply, {id, key, window}, time);
}

void tst_SnapshotCommand::pushingLeavesTheModelAlone()
{
    QUndoStack stack;

    stack.push(step("one", "two", 0));

    QCOMPARE(m_applications, 0);
    QCOMPARE(stack.undoText(), QStringLiteral("Edit"));
    QCOMPARE(stack.command(0)->id(), 1003);
}

void tst_SnapshotCommand::undoAndRedoApplyTheTwoStates()
{
    QUndoStack stack;
    stack.push(step("one", "two", 0));

    stack.undo();
    QCOMPARE(m_model, QStringLiteral("one"));

    stack.redo();
    QCOMPARE(m_model, QStringLiteral("two"));
    QCOMPARE(m_applications, 2);
}

void tst_SnapshotCommand::redoOfAnAppliedStepDoesNothing()
{
    const std::unique_ptr<Command> command(step("one", "two", 0));
    command->undo();
    command->redo();

    command->redo();

    QCOMPARE(m_applications, 2);
}

void tst_SnapshotCommand::undoAppliesEvenTwice()
{
    const std::unique_ptr<Command> command(step("one", "two", 0));

    command->undo();
    command->undo();

    QCOMPARE(m_applications, 2);
}

void tst_SnapshotCommand::mergesOnlyWithinTheWindow_data()
{
    QTest::addColumn<qint64>("later");
    QTest::addColumn<int>("steps");
    QTest::newRow("at once") << qint64(0) << 1;
    QTest::newRow("50 ms") << qint64(50) << 1;
    QTest::newRow("the window exactly") << qint64(100) << 1;
    QTest::newRow("just beyond") << qint64(101) << 2;
    QTest::newRow("150 ms") << qint64(150) << 2;
    QTest::newRow("a clock set back") << qint64(-5000) << 1;
}

void tst_SnapshotCommand::mergesOnlyWithinTheWindow()
{
    QFETCH(qint64, later);
    QFETCH(int, steps);
    QUndoStack stack;

    stack.push(step("one", "two", 10000));
    stack.push(step("two", "three", 10000 + later));

    QCOMPARE(stack.count(), steps);
    stack.undo();
    QCOMPARE(m_model, steps == 1 ? QStringLiteral("one") : QStringLiteral("two"));
    stack.redo();
    QCOMPARE(m_model, QStringLiteral("three"));
}

void tst_SnapshotCommand::windowIsMeasuredFromTheLatestEdit()
{
    QUndoStack stack;

    stack.push(step("one", "two", 0));
    stack.push(step("two", "three", 90));
    stack.push(step("three", "four", 180));

    QCOMPARE(stack.count(), 1);
    stack.undo();
    QCOMPARE(m_model, QStringLiteral("one"));
    stack.redo();
    QCOMPARE(m_model, QStringLiteral("four"));
}

void tst_SnapshotCommand::otherKeysNeverMerge()
{
    QUndoStack stack;

    stack.push(step("one", "two", 0));
    stack.push(step("two", "three", 0, 100, QStringLiteral("b")));

    QCOMPARE(stack.count(), 2);
}

void tst_SnapshotCommand::aNegativeWindowHasNoLimit()
{
    QUndoStack stack;

    stack.push(step("one", "two", 0, -1));
    stack.push(step("two", "three", 86'400'000, -1));

    QCOMPARE(stack.count(), 1);
}

void tst_SnapshotCommand::stepsWithoutAnIdNeverMerge()
{
    QUndoStack stack;

    stack.push(step("one", "two", 0, -1, {}, -1));
    stack.push(step("two", "three", 0, -1, {}, -1));

    QCOMPARE(stack.count(), 2);
}

void tst_SnapshotCommand::aStepOfAnotherStateIsRefused()
{
    const std::unique_ptr<Command> command(step("one", "two", 0));
    const SnapshotCommand<int> other(
        QStringLiteral("Edit"), 1, 2, [](int) {}, {1003, QStringLiteral("a"), 100}, 0);

    QVERIFY(!command->mergeWith(&other));
    QCOMPARE(command->after(), QStringLiteral("two"));
}

void tst_SnapshotCommand::childrenFollowTheStep()
{
    QString child;
    const auto setChild = [&child](const QString &state) { child = state; };
    class Child : public QUndoCommand
    {
    public:
        Child(std::function<void(const QString &)> set, QUndoCommand *parent)
            : QUndoCommand(parent)
            , m_set(std::move(set))
        {
        }
        void undo() override { m_set(QStringLiteral("undone")); }
        void redo() override { m_set(QStringLiteral("redone")); }

    private:
        std::function<void(const QString &)> m_set;
    };
    QUndoStack stack;
    Command *const command = step("one", "two", 0);
    new Child(setChild, command);

    stack.push(command);
    QCOMPARE(child, QString());
    stack.undo();
    QCOMPARE(child, QStringLiteral("undone"));
    stack.redo();
    QCOMPARE(child, QStringLiteral("redone"));
}

void tst_SnapshotCommand::picturesAreSharedNotCopied()
{
    const QImage before(512, 512, QImage::Format_Indexed8);
    const QImage after(512, 512, QImage::Format_Indexed8);
    const SnapshotCommand<QImage> command(
        QStringLiteral("Edit"), before, after, [](const QImage &) {}, {}, 0);

    QCOMPARE(command.before().constBits(), before.constBits());
    QCOMPARE(command.after().constBits(), after.constBits());
}

QTEST_GUILESS_MAIN(tst_SnapshotCommand)
#include "tst_SnapshotCommand.moc"
