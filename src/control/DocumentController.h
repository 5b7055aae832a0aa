#pragma once

#include "control/DocumentTabView.h"
#include "control/DocumentViews.h"
#include "history/UndoStacks.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QUuid>

class EditRecorder;
class EditTarget;
class Image;
class Map;
class Project;
class ProjectController;
class QDockWidget;

namespace MapEditor {
class View;
}

/// Decides which document is active: opens tabs, points the docks, the tool bar and the menus at
/// the active document, keeps one undo stack for each document, and routes the Edit menu to what
/// has the focus.
class DocumentController : public QObject
{
    Q_OBJECT

public:
    /// The views and the controller outlive this.
    DocumentController(const DocumentViews &views, ProjectController *controller, QObject *parent);
    ~DocumentController() override;

    /// Begins to record the edits of a project.
    void openProject(Project *project);
    /// Opens the tabs that were open when the project was saved. Images do not come back.
    void restoreOpenDocuments();
    /// Stops the map timers and stores the open tabs in the project; the second starts those that
    /// ran, and stops the others.
    void recordOpenDocuments();
    void restartAnimations();
    /// Closes the tabs and forgets all edits. The project still lives.
    void endProject();
    /// Clears what showed the project, now gone.
    void clearViews();

    /// The undo stack of a document, made at the first request; the null id is the scratch image.
    QUndoStack *undoStack(const QUuid &id) { return m_undoStacks.stack(id); }
    void removeUndoStack(const QUuid &id) { m_undoStacks.remove(id); }
    bool isClean() const { return m_undoStacks.isClean(); }
    void markClean() { m_undoStacks.markClean(); }

signals:
    void createMapFromSelection(QUuid mapId, QSize size);

public slots:
    void setActivePalette(QUuid paletteId);
    /// A null id clears the windows of tiles.
    void setActiveTileSet(QUuid tileSetId);
    void setActiveMap(QUuid mapId);
    void setActiveSpriteEditor(QUuid spriteBankId);
    void setActiveBlockEditor(QUuid blocksId);
    void setActiveImageEditor(QUuid imageId);
    void scratchEditorActivated();

private:
    Project *project() const;

    void connectViews();
    void connectEditMenu();
    void makeUndoActions();

    MapEditor::View *openMap(const QPointer<Map> &map);
    void connectMapView(MapEditor::View *view);
    void bindMapView(MapEditor::View *view);
    void offerSprites(MapEditor::View *view);
    /// Brings a new name to what shows the document; not every document tells of it itself.
    void showName(const QUuid &id, const QString &name);
    void openImage(const QPointer<Image> &image);

    void tabChanged();
    void attachToolBar(MapEditor::View *view);
    void setEditTarget(QWidget *target);
    /// Gives Undo and the Edit menu to the tile or sprite window and the document that it shows.
    void targetDock(QWidget *dock);
    /// After @p dock shows another document: has Undo follow, if it has Undo.
    void followDock(QWidget *dock);
    EditTarget *editTarget() const;
    void routeFocus(QWidget *now);
    void followPlacementDock(QDockWidget *dock, bool visible, Tessaril::Ui::ToolButton mode);

    DocumentViews m_views;
    ProjectController *m_controller;
    UndoStacks m_undoStacks;
    QPointer<EditRecorder> m_recorder;
    QList<QMetaObject::Connection> m_mapConnections; // between the docks and the current map view
    QHash<MapEditor::View *, bool> m_wasAnimated;    // before the save; keys are only compared
    QSet<QDockWidget *> m_docksAway;                 // with the minimised window; only compared
    QPointer<QObject> m_editTarget;
    QPointer<MapEditor::View> m_mapView; // that the tool bar is attached to
};
