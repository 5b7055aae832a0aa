#include "editors/BlockViewFixture.h"
#include "editors/TileDrag.h"
#include "editors/TilePickerGrid.h"
#include "editors/TilePickerTool.h"
#include "model/Tile.h"
#include "support/Boxes.h"
#include "support/DragEvents.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>

class tst_BlockEditorView : public QObject, private BlockViewFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void listsTheBlocksAndOpensNone();
    void theListKeepsItsPlace();
    void selectingABlockOpensIt();
    void addingOpensANewBlock();
    void aNewBlockKeepsItsFrameThroughUndo();
    void cloningCopiesTheBlock();
    void onlyBlocksOfTheListAreCloned();
    void theContextMenuDeletesAndClones();
    void cellsAreDrawnAsTheySay();
    void changedTilesAreDrawnAnew_data();
    void changedTilesAreDrawnAnew();
    void doubleClicksInThePickerAreRepeated();
    void tilesAreDroppedOnTheFrame();
    void theEditMenuCopiesCells();
    void theEditMenuCutsCells();
    void theEditMenuNeedsASelectedCell();
    void aBlockDeletedElsewhereLeavesTheView();
    void aBlockMadeElsewhereIsListed();
    void aBlockListThatDiesEmptiesTheView();
    void withoutTheTileSetNothingIsDrawn();
    void withoutABlockListItIsEmpty();
    void makingABlockIsToldInOrder();
};

void tst_BlockEditorView::listsTheBlocksAndOpensNone()
{
    QCOMPARE(m_view->orientation(), Qt::Horizontal);
    QCOMPARE(m_view->widget(0), list());
    QCOMPARE(m_view->widget(1), editor());
    QCOMPARE(items()->count(), 1);
    QCOMPARE(items()->item(0)->toolTip(), QString("Door"));
    QCOMPARE(items()->item(0)->text(), QString());
    QVERIFY(items()->currentItem() == nullptr);
    QVERIFY(!editor()->isEnabled());
    QCOMPARE(m_set->stackOf(m_set->tileSet->id())->count(), 0);
}

void tst_BlockEditorView::theListKeepsItsPlace()
{
    QVERIFY(list()->width() < m_view->width() / 3);
    const int atFirst = list()->width();
    m_view->resize(1200, 500);
    QCOMPARE(list()->width(), atFirst); // the editor takes the room

    m_view->setSizes({0, 1200});

    QVERIFY(list()->width() > 0);
}

void tst_BlockEditorView::selectingABlockOpensIt()
{
    QTest::mouseClick(items()->viewport(), Qt::LeftButton, {},
                      items()->visualItemRect(items()->item(0)).center());

    QCOMPARE(editor()->animation(), m_set->block);
    QVERIFY(editor()->isEnabled());
}

void tst_BlockEditorView::addingOpensANewBlock()
{
    QSignalSpy changed(m_set->blocks, &MapObjects::animationsChanged);
    QSignalSpy added(m_view.get(), &View::animationAdded);

    QTest::mouseClick(button("Add a new animation"), Qt::LeftButton);

    QCOMPARE(m_set->blocks->animations().size(), 2);
    TileAnimation *const block = editor()->animation();
    QVERIFY(block != nullptr && block != m_set->block);
    QCOMPARE(block->name(), QString("New Object"));
    QCOMPARE(block->parent(), m_set->blocks);
    QCOMPARE(block->tileSet(), m_set->tileSet);
    QCOMPARE(block->frameCount(), 1);
    QCOMPARE(m_set->blocks->animation(block->id()), block);
    QCOMPARE(list()->currentAnimation(), block);
    QCOMPARE(list()->count(), 2);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.first().first().value<TileAnimation *>(), block);
}

void tst_BlockEditorView::aNewBlockKeepsItsFrameThroughUndo()
{
    QUndoStack *const stack = m_set->stackOf(m_set->tileSet->id());
    m_view->addNewAnimation();
    QCOMPARE(stack->count(), 0);
    const auto tile = TileDrag::mimeData({6, 4});
    DragEvents::drop(frames(), at({0, 0}), tile.get());
    QCOMPARE(stack->count(), 1);

    stack->undo();

    QCOMPARE(editor()->animation()->frameCount(), 1);
    QCOMPARE(editor()->animation()->frame(0)->cell({0, 0}), AnimationFrame::Cell());
}

void tst_BlockEditorView::cloningCopiesTheBlock()
{
    m_set->block->setDelay(7);
    m_set->block->setMapObjectType(MapObjectType::HorizontalPlatform);
    const int steps = m_set->stackOf(m_set->tileSet->id())->count();
    QSignalSpy changed(m_set->blocks, &MapObjects::animationsChanged);
    QSignalSpy added(m_view.get(), &View::animationAdded);

    m_view->cloneAnimation(m_set->block);

    TileAnimation *const copy = editor()->animation();
    QVERIFY(copy != nullptr && copy != m_set->block);
    QCOMPARE(copy->name(), QString("Door (Copy)"));
    QCOMPARE(copy->tileState(), m_set->block->tileState());
    QCOMPARE(copy->tileSet(), m_set->tileSet);
    QVERIFY(copy->id() != m_set->block->id());
    QCOMPARE(m_set->blocks->animation(copy->id()), copy);
    QCOMPARE(list()->currentAnimation(), copy);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.first().first().value<TileAnimation *>(), copy);
    QCOMPARE(m_set->stackOf(m_set->tileSet->id())->count(), steps);
    copy->frame(0)->setCell({0, 0}, {});
    QCOMPARE(m_set->block->frame(0)->cell({0, 0}).index, 2);
}

void tst_BlockEditorView::onlyBlocksOfTheListAreCloned()
{
    MapObjects others;
    TileAnimation *const stranger = others.createTileAnimation("Stranger");

    m_view->cloneAnimation(stranger);
    m_view->cloneAnimation(nullptr);

    QCOMPARE(m_set->blocks->animations().size(), 1);
}

void tst_BlockEditorView::theContextMenuDeletesAndClones()
{
    select(m_set->block);
    const Boxes boxes(QMessageBox::Yes);
    const QList<QAction *> entries = list()->findChild<QMenu *>()->actions();
    QCOMPARE(entries.size(), 2);

    entries.at(1)->trigger();
    QCOMPARE(editor()->animation()->name(), QString("Door (Copy)"));
    entries.at(0)->trigger();

    QCOMPARE(boxes.texts().size(), 1);
    QCOMPARE(m_set->blocks->animations().size(), 1);
    QCOMPARE(editor()->animation(), m_set->block);
}

void tst_BlockEditorView::cellsAreDrawnAsTheySay()
{
    QImage half = m_set->tileSet->tile(5)->image();
    half.fill(1);
    for (int y = 0; y < 8; ++y)
        half.setPixel(0, y, 9); // a line at the left
    m_set->tileSet->tile(5)->setImage(half);
    AnimationFrame *frame = m_set->block->frame(0);
    frame->setCell({0, 0}, {5, 2, false, true, false});
    frame->setCell({1, 0}, {5, 3, true, false, true});

    select(m_set->block);

    const QImage shown = frames()->grab().toImage();
    const auto colour = [this](int index) { return m_set->palette->colour(index); };
    // Mirrored: the line is at the right. Then turned clockwise, at the top, and flipped down.
    QCOMPARE(shown.pixelColor(60, 32), colour(2 * 16 + 9));
    QCOMPARE(shown.pixelColor(4, 32), colour(2 * 16 + 1));
    QCOMPARE(shown.pixelColor(64 + 32, 60), colour(3 * 16 + 9));
    QCOMPARE(shown.pixelColor(64 + 32, 4), colour(3 * 16 + 1));
    const QImage icon = items()->item(0)->icon().pixmap(48, 48).toImage();
    QCOMPARE(icon.size(), QSize(48, 48) * m_view->devicePixelRatioF());
}

void tst_BlockEditorView::changedTilesAreDrawnAnew_data()
{
    using Change = std::function<void(RecordedProject &)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("colour"); // of the first cell, which shows tile 2 with offset 1
    QTest::newRow("pixels") << Change([](RecordedProject &set) { set.tileSet->clearImage(2); })
                            << 16;
    QTest::newRow("another tile in its place")
        << Change([](RecordedProject &set) { set.tileSet->copyTile(2, 7); }) << 16 + 7;
    QTest::newRow("a colour of the palette")
        << Change([](RecordedProject &set) { set.palette->setColour(16 + 2, Qt::white, false); })
        << 16 + 2;
    QTest::newRow("restored") << Change([](RecordedProject &set) {
        TileSet::State state = set.tileSet->state();
        state[2] = state[4];
        set.tileSet->restore(state);
        set.tileSet->notifyRestored();
    }) << 16 + 4;
}

void tst_BlockEditorView::changedTilesAreDrawnAnew()
{
    using Change = std::function<void(RecordedProject &)>;
    QFETCH(Change, change);
    QFETCH(int, colour);
    select(m_set->block);
    QCOMPARE(shownColour({0, 0}), m_set->palette->colour(16 + 2));
    const QImage icon = items()->item(0)->icon().pixmap(48, 48).toImage();

    change(*m_set);

    QTRY_COMPARE(shownColour({0, 0}), m_set->palette->colour(colour));
    QVERIFY(items()->item(0)->icon().pixmap(48, 48).toImage() != icon);
}

void tst_BlockEditorView::doubleClicksInThePickerAreRepeated()
{
    TilePickerTool picker;
    picker.setTileSet(m_set->tileSet);
    picker.resize(300, 300);
    picker.show();
    m_view->followTilePicker(&picker);
    m_view->followTilePicker(&picker);
    QSignalSpy clicked(m_view.get(), &View::tileDoubleClicked);

    QTest::mouseDClick(picker.grid(), Qt::LeftButton, {}, picker.grid()->cellRect(3).center());

    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toInt(), 4);
}

void tst_BlockEditorView::tilesAreDroppedOnTheFrame()
{
    select(m_set->block);
    const auto tile = TileDrag::mimeData({6, 4});

    QVERIFY(DragEvents::drop(frames(), at({1, 0}), tile.get()));

    QCOMPARE(m_set->block->frame(0)->cell({1, 0}), AnimationFrame::Cell({6, 4, false, true, true}));
    QCOMPARE(shownColour({1, 0}), m_set->palette->colour(4 * 16 + 6));
}

void tst_BlockEditorView::theEditMenuCopiesCells()
{
    select(m_set->block);
    selectCell({0, 0});
    m_view->copy();
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(TileDrag::content(copied), std::optional<TileDrag::Content>({2, 1}));
    QVERIFY(copied->hasImage());

    selectCell({1, 0});
    m_view->selectAll();
    m_view->paste();

    QCOMPARE(m_set->block->frame(0)->cell({1, 0}), AnimationFrame::Cell({2, 1, false, true, true}));
    m_view->selectNone();
    QCOMPARE(frames()->selectedCell().x(), -1);
}

void tst_BlockEditorView::theEditMenuCutsCells()
{
    select(m_set->block);
    selectCell({0, 0});

    m_view->cut();

    QCOMPARE(TileDrag::content(QGuiApplication::clipboard()->mimeData()),
             std::optional<TileDrag::Content>({2, 1}));
    QCOMPARE(m_set->block->frame(0)->cell({0, 0}), AnimationFrame::Cell());
}

void tst_BlockEditorView::theEditMenuNeedsASelectedCell()
{
    QGuiApplication::clipboard()->setText("untouched");
    m_view->copy();
    select(m_set->block);
    const TileAnimation::State before = m_set->block->tileState();

    m_view->cut();
    m_view->paste();

    QCOMPARE(QGuiApplication::clipboard()->text(), QString("untouched"));
    QCOMPARE(m_set->block->tileState(), before);
}

void tst_BlockEditorView::aBlockDeletedElsewhereLeavesTheView()
{
    TileAnimation *const lamp = addBlock("Lamp");
    select(m_set->block);
    selectCell({0, 0});
    editor()->play();

    m_set->blocks->removeAnimation(m_set->block->id());

    QCOMPARE(list()->count(), 1);
    QCOMPARE(editor()->animation(), lamp);
    QCOMPARE(frames()->animation(), lamp);
    QVERIFY(!editor()->timer().isActive());
}

void tst_BlockEditorView::aBlockMadeElsewhereIsListed()
{
    select(m_set->block);

    addBlock("Lamp");

    QCOMPARE(list()->count(), 2);
    QCOMPARE(editor()->animation(), m_set->block);
}

void tst_BlockEditorView::aBlockListThatDiesEmptiesTheView()
{
    addBlock("Lamp");
    select(m_set->block);
    editor()->play();

    deleteBlockList();

    QVERIFY(m_view->blocks().isNull());
    QCOMPARE(list()->count(), 0);
    QVERIFY(!editor()->isEnabled());
    m_view->addNewAnimation();
    m_view->cloneAnimation(nullptr);
    m_view->deleteAnimation();
    m_view->copy();
    m_view->cut();
    m_view->paste();
    m_view->selectNone();
    QVERIFY(!m_view->grab().isNull());
}

void tst_BlockEditorView::withoutTheTileSetNothingIsDrawn()
{
    select(m_set->block);
    QVERIFY(shownColour({0, 0}) != QColor(Qt::black));

    delete m_set->tileSet.data();

    QTRY_COMPARE(shownColour({0, 0}), QColor(Qt::black));
    editor()->play();
    editor()->animate();
    editor()->changeTileState(Tessaril::Ui::ToolButton::PaintPalette, false);
    m_view->addNewAnimation();
    QVERIFY(!m_view->grab().isNull());
}

void tst_BlockEditorView::withoutABlockListItIsEmpty()
{
    View view(nullptr);

    view.addNewAnimation();
    view.deleteAnimation();

    QCOMPARE(view.animationList()->count(), 0);
    QVERIFY(!view.editor()->isEnabled());
}

void tst_BlockEditorView::makingABlockIsToldInOrder()
{
    QStringList told;
    const auto tell = [&](const QString &what) {
        told += QString("%1: %2 blocks, %3")
                    .arg(what)
                    .arg(list()->count())
                    .arg(editor()->animation() ? editor()->animation()->name() : "none");
    };
    connect(m_view.get(), &View::animationAdded, this, [&] { tell("added"); });
    connect(m_set->blocks, &MapObjects::animationsChanged, this, [&] { tell("changed"); });

    m_view->addNewAnimation();
    m_view->cloneAnimation(m_set->block);

    QCOMPARE(told, QStringList({"changed: 2 blocks, none", "added: 2 blocks, New Object",
                                "changed: 3 blocks, New Object", "added: 3 blocks, Door (Copy)"}));
}

QTEST_MAIN(tst_BlockEditorView)
#include "tst_BlockEditorView.moc"
