#include "control/ProjectActions.h"

#include "colour/PaletteWindow.h"
#include "control/DocumentController.h"
#include "control/DocumentTabView.h"
#include "control/ImportProgress.h"
#include "control/ProjectController.h"
#include "dialogs/MessageDialog.h"
#include "editors/SpriteWindow.h"
#include "editors/TilePickerTool.h"
#include "editors/TileWindow.h"
#include "formats/FourFileImport.h"
#include "formats/PictureImport.h"
#include "mapeditor/BlockSelectorWindow.h"
#include "menus/MenuBar.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "tree/ProjectWindow.h"
#include "uikit/WaitCursor.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QMessageBox>
#include <QScopedValueRollback>

namespace {

constexpr int BoxIconSide = 64; // pixels

bool isOneOfFourFiles(const QString &filePath)
{
    static const QStringList suffixes{QStringLiteral("nxm"), QStringLiteral("nxt"),
                                      QStringLiteral("nxp"), QStringLiteral("nxb")};
    return suffixes.contains(QFileInfo(filePath).suffix().toLower());
}

} // namespace

ProjectActions::ProjectActions(const DocumentViews &views, ProjectController *controller,
                               DocumentController *documents, QObject *parent)
    : QObject(parent)
    , m_views(views)
    , m_controller(controller)
    , m_documents(documents)
    , m_refusal(new MessageDialog(window()))
{
}

Project *ProjectActions::project() const
{
    return m_controller->project();
}

QWidget *ProjectActions::window() const
{
    return m_views.menuBar ? m_views.menuBar->window() : nullptr;
}

void ProjectActions::createTileSet(QString name, QUuid paletteId, int tileCount, bool hiRes)
{
    if (!project())
        return;

    const QPointer<Palette> palette = paletteId.isNull()
                                          ? project()->createPalette(CreateBlank, name)
                                          : project()->palette(paletteId);
    if (palette)
        showTileSet(project()->createTileSet(name, palette->id(), tileCount, hiRes)->id());
}

void ProjectActions::createMap(QString name, QUuid tileSetId, QSize &size)
{
    const WaitCursor wait;
    const QPointer<Map> map = project() ? project()->createMap(name, tileSetId, size) : nullptr;
    if (map)
        showMap(map);
}

void ProjectActions::createBlocks(QString name, QUuid tileSetId)
{
    if (!project())
        return;
    const auto blocks = project()->createBlockList(name, tileSetId);
    if (m_documents)
        m_documents->setActiveBlockEditor(blocks->id());
    showTileSet(tileSetId);
}

void ProjectActions::createSprites(SpriteDialog::CreateOptions options, QString name,
                                   QUuid paletteId)
{
    if (!project())
        return;

    if (options.testFlag(SpriteDialog::CreateNewPalette))
        paletteId = project()->createPalette(CreateBlank, name)->id();
    const auto depth = options.testFlag(SpriteDialog::EightBit) ? Tessaril::Sprite::EightBit
                                                                : Tessaril::Sprite::FourBit;
    const auto bank = project()->createSpriteBank(depth, name, paletteId);
    if (m_views.spriteWindow) {
        m_views.spriteWindow->setSprites(bank);
        m_views.spriteWindow->raise();
    }
}

void ProjectActions::createMapFromSelection(QUuid mapId, QSize size)
{
    const QPointer<Map> source = project() ? project()->map(mapId) : nullptr;
    if (!source || !source->tileSet())
        return;

    const QPointer<Map> map =
        project()->createMap(source->name() + tr(" Part"), source->tileSetId(), size);
    if (!map)
        return;
    map->tileLayer()->fromData(QPoint(0, 0), QGuiApplication::clipboard()->mimeData());
    showMap(map);
}

void ProjectActions::showMap(const QPointer<Map> &map)
{
    if (m_documents)
        m_documents->setActiveMap(map->id());
    showTileSet(map->tileSetId());
}

void ProjectActions::showTileSet(const QUuid &id)
{
    if (m_documents)
        m_documents->setActiveTileSet(id);
}

void ProjectActions::copyItem(ProjectTree::ProjectNode node, QUuid id)
{
    if (!project())
        return;

    const WaitCursor wait;
    switch (node) {
    case ProjectTree::ProjectNode::Palette:
        project()->clonePalette(id);
        break;
    case ProjectTree::ProjectNode::TileSet:
        project()->cloneTileSet(id);
        break;
    case ProjectTree::ProjectNode::Map:
        project()->cloneMap(id);
        break;
    case ProjectTree::ProjectNode::Objects:
    case ProjectTree::ProjectNode::Sprites:
    case ProjectTree::ProjectNode::Image:
        qWarning() << static_cast<int>(node) << "Not implemented";
        break;
    }
}

void ProjectActions::deleteItem(ProjectTree::ProjectNode node, QUuid id)
{
    if (!project())
        return;

    switch (node) {
    case ProjectTree::ProjectNode::Palette:
        deletePalette(id);
        break;
    case ProjectTree::ProjectNode::TileSet:
        deleteTileSet(id);
        break;
    case ProjectTree::ProjectNode::Objects:
        deleteBlocks(id);
        break;
    case ProjectTree::ProjectNode::Sprites:
        deleteSpriteBank(id);
        break;
    case ProjectTree::ProjectNode::Map:
        deleteMap(id);
        break;
    case ProjectTree::ProjectNode::Image:
        break;
    }
}

void ProjectActions::deletePalette(const QUuid &id)
{
    if (!project()->deletePalette(id)) {
        refuse(tr("Palette In Use"),
               tr("You may not delete this palette; it is used by one or more sprites, tiles or "
                  "images"));
        return;
    }
    if (m_views.paletteWindow)
        m_views.paletteWindow->setPalette(QPointer<Palette>());
    m_views.menuBar->paletteMenu()->setPalette(QUuid());
    removeFromTree(ProjectTree::ProjectNode::Palette, id);
}

void ProjectActions::deleteTileSet(const QUuid &id)
{
    if (!project()->deleteTileSet(id)) {
        refuse(tr("Tile Set In Use"),
               tr("You may not delete this Tile Set; it is used by one or more maps"));
        return;
    }
    if (m_views.tileWindow)
        m_views.tileWindow->setTileSet(nullptr);
    if (m_views.tilePicker)
        m_views.tilePicker->setTileSet(nullptr);
    if (m_views.blockSelector)
        m_views.blockSelector->setTileSet(nullptr);
    TileMenu *menu = m_views.menuBar->tileMenu();
    menu->setEnabled(true);
    menu->setNewTileSetEnabled(true);
    menu->setTileSetActionsEnabled(false);
    removeFromTree(ProjectTree::ProjectNode::TileSet, id);
    if (m_documents)
        m_documents->removeUndoStack(id);
}

void ProjectActions::deleteBlocks(const QUuid &id)
{
    if (!project()->deleteBlocks(id)) {
        refuse(tr("Objects in use"),
               tr("You may not delete these objects; they are in use by one or more maps"));
        return;
    }
    forget(ProjectTree::ProjectNode::Objects, id);
}

void ProjectActions::deleteSpriteBank(const QUuid &id)
{
    if (const QPointer<SpriteBank> bank = project()->spriteBank(id))
        m_views.menuBar->spriteMenu()->removeSpriteBank(bank);
    project()->deleteSpriteBank(id);
    if (m_views.spriteWindow)
        m_views.spriteWindow->setSprites(nullptr);
    forget(ProjectTree::ProjectNode::Sprites, id);
}

void ProjectActions::deleteMap(const QUuid &id)
{
    project()->deleteMap(id);
    m_views.menuBar->mapMenu()->setMap(QUuid());
    forget(ProjectTree::ProjectNode::Map, id);
}

void ProjectActions::forget(ProjectTree::ProjectNode node, const QUuid &id)
{
    if (m_views.tabs)
        m_views.tabs->closeDocument(id);
    if (m_documents)
        m_documents->removeUndoStack(id);
    removeFromTree(node, id);
}

void ProjectActions::removeFromTree(ProjectTree::ProjectNode node, const QUuid &id)
{
    if (m_views.projectWindow)
        m_views.projectWindow->removeItem(node, id);
}

void ProjectActions::refuse(const QString &title, const QString &text)
{
    m_refusal->showMessage(title, text);
}

void ProjectActions::importMap(QString filePath)
{
    if (!project() || m_importing)
        return;

    if (isOneOfFourFiles(filePath))
        importFourFiles(filePath);
    else
        importPicture(filePath);
}

void ProjectActions::importFourFiles(const QString &filePath)
{
    FourFileImport::Outcome outcome;
    {
        const WaitCursor wait;
        outcome = FourFileImport::run(project(), filePath);
    }
    if (!outcome.done)
        showImportFailure(outcome.message);
}

void ProjectActions::importPicture(const QString &filePath)
{
    const QScopedValueRollback importing(m_importing, true);
    PictureImport::Outcome outcome;
    {
        const WaitCursor wait;
        PictureImport import(filePath);
        ImportProgress progress(window(), import.squareCount());
        connect(&import.slicer(), &ImageSlicer::processed, &import.slicer(),
                [&progress](int done) { progress.setValue(done); });
        outcome = import.run(project());
    }
    const QString message = outcome.message();
    if (!message.isEmpty())
        showImportFailure(message);
}

void ProjectActions::showImportFailure(const QString &message)
{
    if (!m_importBox) {
        // At its first use: the icons of its buttons would be a sixth of the program's start.
        m_importBox = new QMessageBox(window());
        m_importBox->setWindowTitle(tr("Map Editor"));
        m_importBox->setIconPixmap(
            QIcon(QStringLiteral(":/Application")).pixmap(BoxIconSide, BoxIconSide));
        m_importBox->setTextFormat(Qt::PlainText);
        m_importBox->setStandardButtons(QMessageBox::Ok);
    }
    m_importBox->setText(tr("Import Incomplete"));
    m_importBox->setInformativeText(message);
    m_importBox->open();
}
