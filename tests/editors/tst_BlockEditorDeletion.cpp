#include "editors/BlockViewFixture.h"
#include "support/Boxes.h"

#include <QSignalSpy>
#include <QTimer>

class tst_BlockEditorDeletion : public QObject, private BlockViewFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void deletingAsksFirst();
    void noBringsTheBlockBack_data();
    void noBringsTheBlockBack();
    void yesDeletesAndOpensTheNext();
    void deletingTheLastBlockDisables();
    void deletingNeedsASelection();
    void aBlockThatDiesDuringTheQuestion();
    void aBlockListThatDiesDuringTheQuestion();
    void deletingABlockIsToldInOrder();
};

void tst_BlockEditorDeletion::deletingAsksFirst()
{
    select(m_set->block);
    const Boxes boxes(QMessageBox::No);

    pressDelete();

    QCOMPARE(boxes.texts(),
             QStringList("Delete?: Are you sure you want to remove this animation?"));
    QCOMPARE(boxes.buttons().first(), QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(boxes.defaults().first(), QMessageBox::No);
}

void tst_BlockEditorDeletion::noBringsTheBlockBack_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::newRow("No") << QMessageBox::No;
    QTest::newRow("the box is closed") << QMessageBox::NoButton;
}

void tst_BlockEditorDeletion::noBringsTheBlockBack()
{
    QFETCH(QMessageBox::StandardButton, answer);
    select(m_set->block);
    QSignalSpy removed(m_view.get(), &View::animationRemoved);
    QSignalSpy changed(m_set->blocks, &MapObjects::animationsChanged);
    const Boxes boxes(answer);
    bool wasShown = true;
    QTimer::singleShot(0, this, [&] { wasShown = editor()->animation() != nullptr; });

    pressDelete();

    QVERIFY(!wasShown); // while the question was asked
    QCOMPARE(editor()->animation(), m_set->block);
    QVERIFY(editor()->isEnabled());
    QCOMPARE(list()->currentAnimation(), m_set->block);
    QCOMPARE(removed.count(), 0);
    QCOMPARE(changed.count(), 0);
}

void tst_BlockEditorDeletion::yesDeletesAndOpensTheNext()
{
    TileAnimation *const lamp = addBlock("Lamp");
    select(m_set->block);
    QSignalSpy changed(m_set->blocks, &MapObjects::animationsChanged);
    QString removedName;
    connect(m_view.get(), &View::animationRemoved, this,
            [&](const TileAnimation *animation) { removedName = animation->name(); });
    const Boxes boxes(QMessageBox::Yes);

    pressDelete();

    QCOMPARE(removedName, QString("Door")); // still alive then
    QVERIFY(m_set->block.isNull());
    QCOMPARE(m_set->blocks->animations().size(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(list()->count(), 1);
    QCOMPARE(list()->currentAnimation(), lamp);
    QCOMPARE(editor()->animation(), lamp);
}

void tst_BlockEditorDeletion::deletingTheLastBlockDisables()
{
    select(m_set->block);
    const Boxes boxes(QMessageBox::Yes);

    pressDelete();

    QVERIFY(!editor()->isEnabled());
    QVERIFY(m_set->blocks->animations().isEmpty());
    QVERIFY(!button("Delete the selected animation")->isEnabled());
}

void tst_BlockEditorDeletion::deletingNeedsASelection()
{
    const Boxes boxes(QMessageBox::Yes);

    m_view->deleteAnimation();

    QCOMPARE(boxes.texts().size(), 0);
    QCOMPARE(m_set->blocks->animations().size(), 1);
}

void tst_BlockEditorDeletion::aBlockThatDiesDuringTheQuestion()
{
    TileAnimation *const lamp = addBlock("Lamp");
    select(m_set->block);
    QSignalSpy removed(m_view.get(), &View::animationRemoved);
    QTimer::singleShot(0, this, [&] { m_set->blocks->removeAnimation(m_set->block->id()); });
    const Boxes boxes(QMessageBox::Yes);

    pressDelete();

    QCOMPARE(removed.count(), 0);
    QCOMPARE(m_set->blocks->animations().size(), 1);
    QCOMPARE(editor()->animation(), lamp);
}

void tst_BlockEditorDeletion::aBlockListThatDiesDuringTheQuestion()
{
    select(m_set->block);
    QSignalSpy removed(m_view.get(), &View::animationRemoved);
    QTimer::singleShot(0, this, [this] { deleteBlockList(); });
    const Boxes boxes(QMessageBox::Yes);

    pressDelete();

    QCOMPARE(boxes.texts().size(), 1);
    QVERIFY(m_view->blocks().isNull());
    QCOMPARE(removed.count(), 0);
    QVERIFY(!editor()->isEnabled());
}

void tst_BlockEditorDeletion::deletingABlockIsToldInOrder()
{
    select(m_set->block);
    QStringList told;
    const auto tell = [&](const QString &what) {
        told += QString("%1: %2 listed, %3 there")
                    .arg(what)
                    .arg(list()->count())
                    .arg(m_set->blocks->animations().size());
    };
    connect(m_view.get(), &View::animationRemoved, this, [&] { tell("removed"); });
    connect(m_set->blocks, &MapObjects::animationsChanged, this, [&] { tell("changed"); });
    const Boxes boxes(QMessageBox::Yes);

    pressDelete();

    QCOMPARE(told, QStringList({"removed: 1 listed, 1 there", "changed: 0 listed, 0 there"}));
}

QTEST_MAIN(tst_BlockEditorDeletion)
#include "tst_BlockEditorDeletion.moc"
