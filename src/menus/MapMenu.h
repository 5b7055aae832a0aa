#pragma once

#include <QMenu>
#include <QPointer>
#include <QSize>
#include <QUuid>

class MapDialog;
class Project;
class QActionGroup;
class QFileDialog;

/// Asks for new maps, imports pictures and map files, and exports the active map.
class MapMenu : public QMenu
{
    Q_OBJECT

public:
    explicit MapMenu(QWidget *parent = nullptr);

    /// The menu is on only with a project; no map is active then.
    void setProject(const QPointer<Project> &project);

    QUuid mapId() const { return m_mapId; }
    /// The tile set that a new map is offered first.
    void setTileSet(const QUuid &id) { m_tileSetId = id; }

signals:
    /// @p size in cells.
    void create(QString name, QUuid tileSetId, QSize &size);
    void importRequested(QString filePath);

public slots:
    void displayMapDialog();
    /// The map to export; null for none.
    void setMap(QUuid mapId);
    /// Writes the active map to the file chosen in the export dialog.
    void exportMap();
    void showExportDialog();
    void showImportDialog();
    void importAccepted();

private:
    QPointer<Project> m_project;
    QUuid m_mapId;
    QUuid m_tileSetId;
    QAction *m_newAction;
    QActionGroup *m_mapActions;
    // Made at their first use.
    QPointer<MapDialog> m_mapDialog;
    QPointer<QFileDialog> m_importDialog;
    QPointer<QFileDialog> m_exportDialog;
};
