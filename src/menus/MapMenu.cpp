#include "menus/MapMenu.h"

#include "dialogs/MapDialog.h"
#include "menus/MenuDialogs.h"
#include "model/Map.h"
#include "model/Project.h"
#include "uikit/WaitCursor.h"

#include <QActionGroup>
#include <QFileDialog>

MapMenu::MapMenu(QWidget *parent)
    : QMenu(tr("Map"), parent)
    , m_newAction(addAction(tr("New Map")))
    , m_mapActions(new QActionGroup(this))
{
    m_newAction->setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_M);
    connect(m_newAction, &QAction::triggered, this, &MapMenu::displayMapDialog);

    addSeparator();

    connect(addAction(tr("Import")), &QAction::triggered, this, &MapMenu::showImportDialog);
    QAction *exportAction = addAction(tr("Export"));
    connect(exportAction, &QAction::triggered, this, &MapMenu::showExportDialog);
    m_mapActions->addAction(exportAction);

    setProject(nullptr);
}

void MapMenu::setProject(const QPointer<Project> &project)
{
    m_project = project;
    setEnabled(!m_project.isNull());
    m_newAction->setEnabled(!m_project.isNull());
    setMap(QUuid());
    setTileSet(QUuid());
}

void MapMenu::setMap(QUuid mapId)
{
    m_mapId = mapId;
    m_mapActions->setEnabled(!m_mapId.isNull());
}

void MapMenu::displayMapDialog()
{
    if (!m_project)
        return;
    if (!m_mapDialog) {
        m_mapDialog = new MapDialog(MenuDialogs::parentFor(this));
        connect(m_mapDialog, &MapDialog::accepted, this, &MapMenu::create);
    }
    m_mapDialog->show(m_project->tileSets());
    m_mapDialog->chooseTileSet(m_tileSetId);
}

void MapMenu::showExportDialog()
{
    if (!m_exportDialog) {
        m_exportDialog =
            MenuDialogs::makeFileDialog(this, {.title = tr("Export Map Data"),
                                               .filters = {tr("Map Data (*.map)")},
                                               .acceptMode = QFileDialog::AcceptSave,
                                               .defaultSuffix = QStringLiteral(".map")});
        connect(m_exportDialog, &QFileDialog::accepted, this, &MapMenu::exportMap);
    }
    m_exportDialog->open();
}

void MapMenu::exportMap()
{
    const std::optional<QString> file = MenuDialogs::singleFile(m_exportDialog);
    const QPointer<Map> map = m_project ? m_project->map(m_mapId) : nullptr;
    if (!file || !map)
        return;

    const auto write = [&map, &file] {
        const WaitCursor wait;
        return map->exportData(*file);
    };
    if (!write())
        MenuDialogs::warnOfFailedExport(this);
}

void MapMenu::showImportDialog()
{
    if (!m_importDialog) {
        m_importDialog = MenuDialogs::makeFileDialog(
            this, {.title = tr("Import Map Data"),
                   .filters = {tr("Glimmerkit (*.nxm *.nxt *.nxp *.nxb)"),
                               tr("Image files (*.png *.bmp *.gif *.jpg *.jpeg *.pbm *.pgm "
                                  "*.ppm *.xbm *.xpm)")}});
        connect(m_importDialog, &QFileDialog::accepted, this, &MapMenu::importAccepted);
    }
    m_importDialog->open();
}

void MapMenu::importAccepted()
{
    const QStringList files = m_importDialog->selectedFiles();
    if (!files.isEmpty())
        emit importRequested(files.first());
}
