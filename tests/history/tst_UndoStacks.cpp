#include "history/UndoStacks.h"

#include <QAction>
#include <QTest>
#include <QUndoStack>

class tst_UndoStacks : public QObject
{
    Q_OBJECT

private slots:
    void aStackIsMadeOnceForEachId();
    void theGroupShowsTheActiveStack();
    void undoActsOnTheActiveStackOnly();
    void anEditIsRecordedOnTheActiveStack();
    void withoutAnActiveStackAnEditGoesToItsOwn();
    void removingTheActiveStackLeavesNoneActive();
    void aRemovedStackComesBackEmpty();
    void noStacksAreClean();
    void oneUncleanStackIsEnough();
    void undoAndRedoBackToTheCleanIndexIsClean();
    void markingCleanReachesEveryStack();
    void clearingLeavesNothing();

private:
    static void edit(QUndoStack *stack, const QString &text)
    {
        stack->push(new QUndoCommand(text));
    }

    const QUuid m_first = QUuid::createUuid();
    const QUuid m_second = QUuid::createUuid();
};

void tst_UndoStacks::aStackIsMadeOnceForEachId()
{
    UndoStacks stacks;

    QUndoStack *first = stacks.stack(m_first);

    QCOMPARE(stacks.stack(m_first), first);
    QVERIFY(stacks.stack(m_second) != first);
    QVERIFY(stacks.stack(QUuid()) != first);
    QCOMPARE(stacks.group()->stacks().size(), 3);
    QCOMPARE(first->parent(), stacks.group());
}

void tst_UndoStacks::theGroupShowsTheActiveStack()
{
    UndoStacks stacks;
    edit(stacks.stack(m_first), "Insert Tile");
    QVERIFY(!stacks.group()->canUndo());

    stacks.setActive(m_first);

    QVERIFY(stacks.group()->canUndo());
    QCOMPARE(stacks.group()->undoText(), QStringLiteral("Insert Tile"));
    QVERIFY(!stacks.group()->canRedo());
}

void tst_UndoStacks::undoActsOnTheActiveStackOnly()
{
    UndoStacks stacks;
    edit(stacks.stack(m_first), "first");
    edit(stacks.stack(m_second), "second");
    edit(stacks.stack(m_second), "third");
    stacks.setActive(m_second);

    stacks.group()->undo();

    QCOMPARE(stacks.stack(m_first)->index(), 1);
    QCOMPARE(stacks.stack(m_second)->index(), 1);
    QCOMPARE(stacks.group()->undoText(), QStringLiteral("second"));
    stacks.setActive(m_first);
    QCOMPARE(stacks.group()->undoText(), QStringLiteral("first"));
}

void tst_UndoStacks::anEditIsRecordedOnTheActiveStack()
{
    UndoStacks stacks;
    stacks.setActive(m_first);

    QCOMPARE(stacks.recordingStack(m_second), stacks.stack(m_first));
}

void tst_UndoStacks::withoutAnActiveStackAnEditGoesToItsOwn()
{
    UndoStacks stacks;
    stacks.setActive(m_first);
    stacks.clearActive();

    QCOMPARE(stacks.recordingStack(m_second), stacks.stack(m_second));
    QCOMPARE(stacks.group()->activeStack(), nullptr);
}

void tst_UndoStacks::removingTheActiveStackLeavesNoneActive()
{
    UndoStacks stacks;
    stacks.setActive(m_first);

    stacks.remove(m_first);

    QCOMPARE(stacks.group()->activeStack(), nullptr);
    QCOMPARE(stacks.group()->stacks().size(), 0);
}

void tst_UndoStacks::aRemovedStackComesBackEmpty()
{
    UndoStacks stacks;
    edit(stacks.stack(m_first), "gone");

    stacks.remove(m_first);
    stacks.remove(m_second);

    QCOMPARE(stacks.stack(m_first)->count(), 0);
}

void tst_UndoStacks::noStacksAreClean()
{
    UndoStacks stacks;
    QVERIFY(stacks.isClean());

    stacks.stack(m_first);
    QVERIFY(stacks.isClean());
}

void tst_UndoStacks::oneUncleanStackIsEnough()
{
    UndoStacks stacks;
    stacks.stack(m_first);

    edit(stacks.stack(m_second), "edit");

    QVERIFY(!stacks.isClean());
}

void tst_UndoStacks::undoAndRedoBackToTheCleanIndexIsClean()
{
    UndoStacks stacks;
    QUndoStack *stack = stacks.stack(m_first);
    edit(stack, "saved");
    edit(stacks.stack(m_second), "saved, too");
    stacks.markClean();

    stack->undo();
    QVERIFY(!stacks.isClean());

    stack->redo();
    QVERIFY(stacks.isClean());
}

void tst_UndoStacks::markingCleanReachesEveryStack()
{
    UndoStacks stacks;
    edit(stacks.stack(m_first), "one");
    edit(stacks.stack(m_second), "two");

    stacks.markClean();

    QVERIFY(stacks.stack(m_first)->isClean());
    QVERIFY(stacks.stack(m_second)->isClean());
}

void tst_UndoStacks::clearingLeavesNothing()
{
    UndoStacks stacks;
    edit(stacks.stack(m_first), "one");
    stacks.setActive(m_first);

    stacks.clear();

    QVERIFY(stacks.isClean());
    QVERIFY(stacks.group()->stacks().isEmpty());
    QCOMPARE(stacks.group()->activeStack(), nullptr);
}

QTEST_GUILESS_MAIN(tst_UndoStacks)
#include "tst_UndoStacks.moc"
