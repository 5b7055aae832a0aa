#include "menus/TileMenu.h"

#include "dialogs/ImportZXFontDialog.h"
#include "dialogs/PaletteSelectorDialog.h"
#include "dialogs/TileSetDialog.h"
#include "editors/ExportDialog.h"
#include "formats/AttributeExport.h"
#include "formats/TileExport.h"
#include "menus/MenuDialogs.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "uikit/WaitCursor.h"

#include <QActionGroup>
#include <QFileDialog>

TileMenu::TileMenu(QWidget *parent)
    : QMenu(tr("Tiles"), parent)
    , m_newAction(addAction(tr("New Tile Set")))
    , m_tileSetActions(new QActionGroup(this))
{
    m_newAction->setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_T);
    connect(m_newAction, &QAction::triggered, this, &TileMenu::displayNewTilesDialog);
    m_tileSetActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);

    addSeparator();
    addDialogItems();
    addSeparator();

    addTileSetAction(this, tr("Next Tile"), &TileMenu::nextTile)
        ->setShortcut(Qt::CTRL | Qt::Key_BracketRight);
    addTileSetAction(this, tr("Previous Tile"), &TileMenu::previousTile)
        ->setShortcut(Qt::CTRL | Qt::Key_BracketLeft);
    m_magnificationMenu = addMenu(tr("Tile List Magnification"));

    setTileSetActionsEnabled(false);
    setProject(nullptr);
}

QAction *TileMenu::addTileSetAction(QMenu *menu, const QString &text, void (TileMenu::*slot)())
{
    QAction *action = menu->addAction(text);
    connect(action, &QAction::triggered, this, slot);
    m_tileSetActions->addAction(action);
    return action;
}

void TileMenu::addDialogItems()
{
    m_animationAction =
        addTileSetAction(this, tr("Create Animations"), &TileMenu::displayAnimDialog);
    addTileSetAction(this, tr("Swap Palette"), &TileMenu::displayPaletteDialog);
    addTileSetAction(this, tr("Export"), &TileMenu::displayExportDialog);
    addTileSetAction(this, tr("Export Attributes"), &TileMenu::displayAttributesDialog);
    QMenu *import = addMenu(tr("Import"));
    addTileSetAction(import, tr("Spectrum Chars"), &TileMenu::displayImportFontDialog);

    setAnimationDialog(nullptr);
}

void TileMenu::setProject(const QPointer<Project> &project)
{
    m_project = project;
    setEnabled(!m_project.isNull());
    if (!m_project)
        return;

    setNewTileSetEnabled(true);
    setTileSetActionsEnabled(false);
}

void TileMenu::setNewTileSetEnabled(bool enabled)
{
    m_newAction->setEnabled(enabled);
}

void TileMenu::setTileSetActionsEnabled(bool enabled)
{
    m_tileSetActions->setEnabled(enabled);
}

void TileMenu::setAnimationDialog(const AnimationOpener &open)
{
    m_openAnimationDialog = open;
    m_animationAction->setEnabled(open != nullptr);
}

QPointer<TileSet> TileMenu::tileSet() const
{
    return m_project ? m_project->tileSet(m_tileSetId) : nullptr;
}

void TileMenu::displayNewTilesDialog()
{
    if (!m_project)
        return;
    if (!m_tileSetDialog) {
        m_tileSetDialog = new TileSetDialog(MenuDialogs::parentFor(this));
        connect(m_tileSetDialog, &TileSetDialog::accepted, this, &TileMenu::createTiles);
    }
    m_tileSetDialog->show(m_project->palettes());
}

void TileMenu::displayPaletteDialog()
{
    if (!m_project)
        return;
    if (!m_paletteDialog) {
        m_paletteDialog = new PaletteSelectorDialog(MenuDialogs::parentFor(this));
        connect(m_paletteDialog, &PaletteSelectorDialog::accepted, this, &TileMenu::swapPalette);
    }
    const QPointer<TileSet> tiles = tileSet();
    const QPointer<Palette> used = tiles ? tiles->palette() : nullptr;
    m_paletteDialog->show(m_project->palettes(), used ? used->id() : QUuid());
}

void TileMenu::displayImportFontDialog()
{
    const QPointer<TileSet> tiles = tileSet();
    if (!tiles)
        return;
    if (!m_fontDialog) {
        m_fontDialog = new ImportZXFontDialog(MenuDialogs::parentFor(this));
        connect(m_fontDialog, &ImportZXFontDialog::accepted, this, &TileMenu::importZXFont);
    }
    m_fontDialog->show(tiles->palette());
}

void TileMenu::displayAnimDialog()
{
    if (m_project && m_openAnimationDialog)
        m_openAnimationDialog(m_project->tileSets());
}

void TileMenu::displayExportDialog()
{
    if (!m_exportDialog) {
        m_exportDialog = new TileEditor::ExportDialog(MenuDialogs::parentFor(this));
        connect(m_exportDialog, &TileEditor::ExportDialog::accepted, this,
                &TileMenu::exportAccepted);
    }
    m_exportDialog->open();
}

void TileMenu::exportAccepted(QString name, int first, int last, bool rotate)
{
    const QPointer<TileSet> tiles = tileSet();
    if (!tiles)
        return;

    const WaitCursor wait;
    if (!TileExport::write(tiles, name, {first, last, rotate}))
        qWarning("Export failed!");
}

void TileMenu::displayAttributesDialog()
{
    if (!m_attributesDialog) {
        m_attributesDialog = MenuDialogs::makeFileDialog(
            this, {.title = tr("Export tile attributes"),
                   .filters = {tr("ASM Code (*.asm)"), tr("Binary Data (*.bin)")},
                   .acceptMode = QFileDialog::AcceptSave,
                   .defaultSuffix = QStringLiteral(".asm")});
        connect(m_attributesDialog, &QFileDialog::accepted, this,
                &TileMenu::exportAttributesAccepted);
    }
    m_attributesDialog->open();
}

void TileMenu::exportAttributesAccepted()
{
    const std::optional<QString> file = MenuDialogs::singleFile(m_attributesDialog);
    if (!file)
        return;
    const QPointer<TileSet> tiles = tileSet();
    if (!tiles) {
        qWarning("Null tileset");
        return;
    }

    if (!AttributeExport::write(*tiles, *file))
        qWarning("Export failed!");
}
