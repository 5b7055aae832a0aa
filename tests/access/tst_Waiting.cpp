#include "access/Surfaces.h"

#include "canvas/Canvas.h"
#include "dialogs/ResizeMapDialog.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Map.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"

#include <QAction>
#include <QGuiApplication>
#include <QSpinBox>
#include <QTest>
#include <QUndoCommand>
#include <QUndoStack>

namespace {

bool isWaiting()
{
    const QCursor *const cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

/// Notes at each turn whether the user was shown that it takes its time.
class Note : public QUndoCommand
{
public:
    explicit Note(QList<bool> *waits)
        : QUndoCommand(QStringLiteral("Step"))
        , m_waits(waits)
    {
    }
    void undo() override { m_waits->append(isWaiting()); }
    void redo() override { m_waits->append(isWaiting()); }

private:
    QList<bool> *m_waits;
};

/// A change of the map's size by one.
using Step = void (MapEditor::View::*)(Tessaril::Position);

} // namespace

Q_DECLARE_METATYPE(Step)

/// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

/// Work that can take long shows the wait cursor while it lasts, and not any longer.
class tst_Waiting : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_surfaces = std::make_unique<Surfaces>(); }
    void cleanup() { m_surfaces.reset(); }
    void undoAndRedoWait();
    void resizingAMapWaits();
    void rowsAndColumnsWait_data();
    void rowsAndColumnsWait();
    void resettingPaletteOffsetsWaits();
    void readingAPictureWaits();
    void makingAMapWaits();
    void copyingAMapWaits();
    void lookingForUnsavedWorkWaits();

private:
    QAction *editAction(const QString &text) const;
    MapEditor::View *mapView() const
    {
        return qobject_cast<MapEditor::View *>(m_surfaces->views().tabs->currentWidget());
    }

    std::unique_ptr<Surfaces> m_surfaces;
};

QAction *tst_Waiting::editAction(const QString &text) const
{
    for (QAction *const action : m_surfaces->views().menuBar->editMenu()->actions()) {
        if (action->text().startsWith(text))
            return action;
    }
    return nullptr;
}

void tst_Waiting::undoAndRedoWait()
{
    QList<bool> waits;
    QUndoStack *const stack =
        m_surfaces->window()->documentController()->undoStack(mapView()->map()->id());
    stack->push(new Note(&waits));
    stack->push(new Note(&waits));

    editAction("Undo")->trigger();
    QVERIFY(!isWaiting());
    editAction("Redo")->trigger();

    QVERIFY(!isWaiting());
    QCOMPARE(waits, QList<bool>({false, false, true, true}));
    QCOMPARE(stack->index(), 2);
    editAction("Undo")->trigger();
    QCOMPARE(stack->index(), 1); // one step for each choice
}

void tst_Waiting::resizingAMapWaits()
{
    bool waited = false;
    const auto map = mapView()->map();
    const QSize size = map->tileLayer()->size();
    connect(mapView()->grid(), &MapEditor::MapGrid::mapResized, this,
            [&waited] { waited = isWaiting(); });
    mapView()->toolPaletteClicked(Tessaril::Ui::ToolButton::Resize);
    ResizeMapDialog *const dialog = mapView()->resizeDialog();
    dialog->findChild<QSpinBox *>()->setValue(size.width() + 3);

    const PaintCount paints(mapView()->grid());
    DialogDriver::pressOk(*dialog);

    QVERIFY(map->tileLayer()->size() != size);
    QVERIFY(waited);
    QVERIFY(!isWaiting());
    QTRY_VERIFY(paints.count > 0);
}

void tst_Waiting::rowsAndColumnsWait_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<QSize>("growth");
    QTest::newRow("row more") << Step(&MapEditor::View::addRow) << QSize(0, 1);
    QTest::newRow("column more") << Step(&MapEditor::View::addColumn) << QSize(1, 0);
    QTest::newRow("row less") << Step(&MapEditor::View::removeRow) << QSize(0, -1);
    QTest::newRow("column less") << Step(&MapEditor::View::removeColumn) << QSize(-1, 0);
}

void tst_Waiting::rowsAndColumnsWait()
{
    QFETCH(Step, step);
    QFETCH(QSize, growth);
    QList<bool> waits;
    const auto layer = mapView()->map()->tileLayer();
    const QSize size = layer->size();
    connect(mapView()->grid(), &MapEditor::MapGrid::mapResized, this,
            [&waits] { waits.append(isWaiting()); });

    (mapView()->*step)(Tessaril::Position::End);

    QCOMPARE(layer->size(), size + growth);
    QCOMPARE(waits, QList<bool>{true});
    QVERIFY(!isWaiting());
}

void tst_Waiting::resettingPaletteOffsetsWaits()
{
    QList<bool> waits;
    const auto layer = mapView()->map()->tileLayer();
    TileMap::TileData cell = layer->cell({0, 0});
    cell.offset = mapView()->map()->tileSet()->tileOffset(cell.index) ^ 1;
    layer->setCell({0, 0}, cell);
    connect(layer, &TileMap::tilesChanged, this, [&waits] { waits.append(isWaiting()); });

    mapView()->toolPaletteClicked(Tessaril::Ui::ToolButton::PaintPalette);

    QCOMPARE(layer->cell({0, 0}).offset, cell.offset ^ 1);
    QCOMPARE(waits, QList<bool>{true});
    QVERIFY(!isWaiting());
}

void tst_Waiting::readingAPictureWaits()
{
    QImage picture(32, 32, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save("red.png"));
    ImageEditor::View *const view = m_surfaces->views().tabs->scratchEditor();
    bool waited = false;
    connect(view->findChild<Canvas *>(), &Canvas::imageChanged, this,
            [&waited] { waited = isWaiting(); });

    QVERIFY(view->importImage("red.png"));

    QVERIFY(waited);
    QVERIFY(!isWaiting());
}

void tst_Waiting::makingAMapWaits()
{
    QList<bool> waits;
    Project *const project = m_surfaces->project();
    connect(project, &Project::mapCreated, this, [&waits] { waits.append(isWaiting()); });
    const PaintCount paints(m_surfaces->views().tabs);
    QSize size(200, 100);

    emit m_surfaces->views().menuBar->mapMenu()->create("Large", mapView()->map()->tileSetId(),
                                                        size);

    QCOMPARE(waits, QList<bool>{true});
    QVERIFY(!isWaiting());
    QCOMPARE(mapView()->map()->name(), QStringLiteral("Large"));
    QTRY_VERIFY(paints.count > 0);
}

void tst_Waiting::copyingAMapWaits()
{
    QList<bool> waits;
    connect(m_surfaces->project(), &Project::mapCreated, this,
            [&waits] { waits.append(isWaiting()); });

    emit m_surfaces->views().projectWindow->copyItemTriggered(ProjectTree::ProjectNode::Map,
                                                              mapView()->map()->id());

    QCOMPARE(waits, QList<bool>{true});
    QVERIFY(!isWaiting());
}

void tst_Waiting::lookingForUnsavedWorkWaits()
{
    QList<bool> waits;
    ProjectController *const control = m_surfaces->window()->projectController();
    const auto before = control->_isClean;
    control->_isClean = [&waits] {
        waits.append(isWaiting());
        return false;
    };
    bool hasAsked = false;
    control->_unsavedPrompt = [&](const QString &) {
        hasAsked = !isWaiting(); // while the user thinks, nobody waits for the program
        return ProjectController::DiscardChanges;
    };

    QVERIFY(control->canClose());

    control->_isClean = before;
    QCOMPARE(waits, QList<bool>{true});
    QVERIFY(hasAsked);
}

QTEST_MAIN(tst_Waiting)
#include "tst_Waiting.moc"
