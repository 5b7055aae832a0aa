#include "editors/BlockEditorToolBar.h"
#include "editors/BlockPaneFixture.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QSignalSpy>
#include <QToolButton>

class tst_AnimationEditorWidget : public QObject, private BlockPaneFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void withoutABlockItIsDisabled();
    void showsTheBlocksProperties();
    void theToolBarEditsTheBlock();
    void theToolBarLeavesTheBlockBeforeAlone();
    void sizeChangesKeepTheScale();
    void zoomDoublesAndHalvesWithinItsLimits();
    void otherToolsAreLogged();
    void undoBringsBackWhatIsShown();
    void undoTakesTheFrameOnShow();
    void aBlockWithoutFramesIsHarmless();
    void aDyingBlockDisables();
    void toolsAndOffsetStandBesideTheFrame();
    void theToolsStandInOrder();
    void anotherBlockEndsTheConnections();
};

void tst_AnimationEditorWidget::withoutABlockItIsDisabled()
{
    m_editor->play();
    m_editor->setAnimation(nullptr);

    QVERIFY(!m_editor->isEnabled());
    QVERIFY(!frames()->isEnabled());
    QCOMPARE(frames()->animation(), nullptr);
    QVERIFY(frames()->isHidden());
    QVERIFY(!m_editor->timer().isActive());
    m_editor->play();
    m_editor->animate();
    m_editor->mediaControlButtonClicked(Action::Add, false);
    m_editor->setAnimationDelay(4);
    m_editor->changeTileState(Tool::PaintPalette, false);
    QVERIFY(!m_editor->timer().isActive());
    QCOMPARE(m_set->block->frameCount(), 2);
    QCOMPARE(m_set->block->delay(), 0);
}

void tst_AnimationEditorWidget::showsTheBlocksProperties()
{
    m_set->block->setName("Gate");
    m_set->block->setSize({3, 5});
    m_set->block->setDelay(7);
    m_set->block->setMapObjectType(MapObjectType::HorizontalPlatform);

    AnimationEditorWidget editor;
    editor.setAnimation(m_set->block);

    QVERIFY(editor.isEnabled());
    QVERIFY(!editor.frameEditor()->isHidden());
    QCOMPARE(DialogDriver::field<QLineEdit>(editor, "Name")->text(), QString("Gate"));
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Width in tiles")->value(), 3);
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Height in tiles")->value(), 5);
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Delay")->value(), 7);
    QCOMPARE(editor.findChild<MapObjectTypeCombo *>()->currentIndex(), 1);
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Palette offset")->maximum(), 15);
    QCOMPARE(tool(Tool::PaintPalette)->toolTip(),
             QString("Update palette offsets to default values"));
    const auto *scroller = editor.findChild<QScrollArea *>();
    QCOMPARE(scroller->widget(), editor.frameEditor());
    QCOMPARE(scroller->alignment(), Qt::AlignCenter);
    QVERIFY(scroller->widgetResizable());
    QCOMPARE(stack()->count(), 1); // of this test's own edits
}

void tst_AnimationEditorWidget::theToolBarEditsTheBlock()
{
    QSignalSpy contents(m_set->block, &Animation::contentChanged);

    auto *name = DialogDriver::field<QLineEdit>(*m_editor, "Name");
    name->selectAll();
    QTest::keyClicks(name, "Gate");
    QTest::keyClick(spin("Width in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Height in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Delay"), Qt::Key_Up);
    QCOMPARE(contents.count(), 0);
    QTest::keyClick(m_editor->findChild<MapObjectTypeCombo *>(), Qt::Key_Down);

    QCOMPARE(m_set->block->name(), QString("Gate"));
    QCOMPARE(m_set->block->size(), QSize(3, 2));
    QCOMPARE(m_set->block->delay(), 1);
    QCOMPARE(m_set->block->type(), MapObjectType::HorizontalPlatform);
    QCOMPARE(contents.count(), 1);
}

void tst_AnimationEditorWidget::theToolBarLeavesTheBlockBeforeAlone()
{
    const TileAnimation::State before = m_set->block->tileState();
    TileAnimation *const other = m_set->blocks->createTileAnimation("Other");
    other->addFrame();
    m_editor->setAnimation(other);

    QTest::keyClick(spin("Width in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Delay"), Qt::Key_Up);
    QTest::keyClick(m_editor->findChild<MapObjectTypeCombo *>(), Qt::Key_Down);
    QTest::keyClicks(DialogDriver::field<QLineEdit>(*m_editor, "Name"), "s");
    m_set->block->setDelay(9);

    QCOMPARE(other->size(), QSize(2, 1));
    QCOMPARE(other->name(), QString("Others"));
    QCOMPARE(spin("Delay")->value(), 1);
    m_set->block->setDelay(before.animation.delay);
    QCOMPARE(m_set->block->tileState(), before);
    QCOMPARE(m_set->block->name(), QString("Door"));
}

void tst_AnimationEditorWidget::sizeChangesKeepTheScale()
{
    tool(Tool::ZoomIn)->trigger();

    QTest::keyClick(spin("Width in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Height in tiles"), Qt::Key_Up);

    QCOMPARE(frames()->scale(), 16);
    QCOMPARE(frames()->size(), QSize(3, 2) * 8 * 16);
}

void tst_AnimationEditorWidget::zoomDoublesAndHalvesWithinItsLimits()
{
    QList<int> scales;
    for (int i = 0; i < 4; ++i) {
        tool(Tool::ZoomIn)->trigger();
        scales.append(frames()->scale());
    }
    for (int i = 0; i < 7; ++i) {
        tool(Tool::ZoomOut)->trigger();
        scales.append(frames()->scale());
    }

    QCOMPARE(scales, QList<int>({16, 32, 64, 64, 32, 16, 8, 4, 2, 1, 1}));
    QCOMPARE(frames()->size(), QSize(2 * 8, 8));
}

void tst_AnimationEditorWidget::otherToolsAreLogged()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Unhandled tool button"));

    m_editor->changeTileState(Tool::Draw, true);
}

void tst_AnimationEditorWidget::undoBringsBackWhatIsShown()
{
    QTest::keyClick(m_editor->findChild<MapObjectTypeCombo *>(), Qt::Key_Down);
    spin("Delay")->setValue(3);
    spin("Width in tiles")->setValue(4);
    QCOMPARE(stack()->count(), 1);

    stack()->undo();
    QCOMPARE(m_editor->findChild<MapObjectTypeCombo *>()->currentIndex(), 0);
    QCOMPARE(spin("Delay")->value(), 0);
    QCOMPARE(spin("Width in tiles")->value(), 2);
    QCOMPARE(m_editor->timer().interval(), 20);
    QVERIFY(!stack()->canUndo());

    stack()->redo();
    QCOMPARE(m_editor->findChild<MapObjectTypeCombo *>()->currentIndex(), 1);
    QCOMPARE(m_editor->timer().interval(), 80);
    QCOMPARE(frames()->size(), QSize(4 * 64, 64));
}

void tst_AnimationEditorWidget::undoTakesTheFrameOnShow()
{
    click(Action::Add);
    QCOMPARE(label(), QString("Frame 3 of 3"));

    stack()->undo();
    QCOMPARE(m_editor->currentFrame(), 1);
    QCOMPARE(label(), QString("Frame 2 of 2"));

    stack()->redo();
    QCOMPARE(label(), QString("Frame 2 of 3"));
}

void tst_AnimationEditorWidget::aBlockWithoutFramesIsHarmless()
{
    TileAnimation *const empty = m_set->blocks->createTileAnimation("Empty");
    m_editor->setAnimation(empty);

    for (int i = Action::First; i <= Action::Last; ++i)
        click(static_cast<Action>(i));
    m_editor->animate();
    tool(Tool::PaintPalette)->trigger();
    click(Action::Delete);
    QCOMPARE(empty->frameCount(), 0);

    click(Action::Add);
    QCOMPARE(m_editor->currentFrame(), 0);
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_AnimationEditorWidget::aDyingBlockDisables()
{
    click(Action::Play);
    selectCell({0, 0});

    m_set->blocks->removeAnimation(m_set->block->id());

    QVERIFY(!m_editor->isEnabled());
    QCOMPARE(m_editor->animation(), nullptr);
    QVERIFY(!m_editor->timer().isActive());
    QVERIFY(!m_editor->grab().isNull());
}

void tst_AnimationEditorWidget::toolsAndOffsetStandBesideTheFrame()
{
    const auto *row = qobject_cast<QHBoxLayout *>(m_editor->layout());
    QVERIFY(row);
    QCOMPARE(row->count(), 2);
    const auto *side = qobject_cast<QVBoxLayout *>(row->itemAt(0)->layout());
    const auto *main = qobject_cast<QVBoxLayout *>(row->itemAt(1)->layout());
    QVERIFY(side && main);

    QCOMPARE(side->spacing(), 2);
    QCOMPARE(side->count(), 4);
    QCOMPARE(side->itemAt(0)->widget(), m_editor->toolPalette());
    QCOMPARE(side->itemAt(1)->spacerItem()->sizeHint().height(), 5);
    QCOMPARE(side->itemAt(2)->widget(), spin("Palette offset"));
    QCOMPARE(side->stretch(3), 1000);
    QCOMPARE(main->spacing(), 2);
    QCOMPARE(main->count(), 3);
    QCOMPARE(main->itemAt(0)->widget(), m_editor->toolBar());
    const QWidget *scroller = main->itemAt(1)->widget();
    QCOMPARE(scroller, m_editor->findChild<QScrollArea *>());
    QCOMPARE(scroller->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(main->itemAt(2)->widget(), m_editor->controls());
}

void tst_AnimationEditorWidget::theToolsStandInOrder()
{
    QStringList texts;
    for (const QToolButton *one : m_editor->toolPalette()->findChildren<QToolButton *>())
        texts.append(one->defaultAction()->text());

    QCOMPARE(texts, QStringList({"Increase Magnification", "Decrease Magnification", "Rotate CW",
                                 "Flip", "Mirror", "Palette"}));
    for (const Tool plain : {Tool::ZoomIn, Tool::ZoomOut, Tool::PaintPalette})
        QVERIFY(!tool(plain)->isCheckable());
}

void tst_AnimationEditorWidget::anotherBlockEndsTheConnections()
{
    const QPointer<TileAnimation> door = m_set->block;
    m_editor->setAnimation(nullptr);
    const TileAnimation::State before = door->tileState();
    QSignalSpy delays(door, &Animation::delayChanged);

    emit m_editor->toolBar()->nameChanged("Gate");
    emit m_editor->toolBar()->widthChanged(9);
    emit m_editor->toolBar()->heightChanged(9);
    emit m_editor->toolBar()->delayChanged(9);
    emit m_editor->toolBar()->blockTypeChanged(MapObjectType::HorizontalPlatform);

    QCOMPARE(door->tileState(), before);
    QCOMPARE(door->name(), QString("Door"));
    QCOMPARE(delays.count(), 0);
}

QTEST_MAIN(tst_AnimationEditorWidget)
#include "tst_AnimationEditorWidget.moc"
