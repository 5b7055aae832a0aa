#pragma once

#include <QList>
#include <QMenu>
#include <QPointer>
#include <QUuid>

#include <functional>

class ImportZXFontDialog;
class PaletteSelectorDialog;
class Project;
class QActionGroup;
class QFileDialog;
class TileSet;
class TileSetDialog;

namespace TileEditor {
class ExportDialog;
}

/// Makes tile sets, and offers everything about the active one.
class TileMenu : public QMenu
{
    Q_OBJECT

public:
    using TileSets = QList<QPointer<TileSet>>;
    using AnimationOpener = std::function<void(const TileSets &)>;

    explicit TileMenu(QWidget *parent = nullptr);

    /// With a project the menu and its first item are on, and the items about a tile set off.
    void setProject(const QPointer<Project> &project);

    QUuid tileSetId() const { return m_tileSetId; }
    void setTileSet(const QUuid &id) { m_tileSetId = id; }
    void setNewTileSetEnabled(bool enabled);
    /// The items that need an active tile set.
    void setTileSetActionsEnabled(bool enabled);

    /// How the dialog for a new block list opens; its item is off until then.
    void setAnimationDialog(const AnimationOpener &open);

    /// Filled with the zoom actions of the tile picker by their owner.
    QMenu *magnificationMenu() const { return m_magnificationMenu; }

signals:
    /// @p paletteId is null for a new palette of the set's name.
    void createTiles(QString name, QUuid paletteId, int tileCount, bool hiRes);
    void swapPalette(QUuid id);
    void importZXFont(int index, int foreIndex, int backIndex, int offset, QString file);
    void createBlocks(QString name, QUuid tileSetId);
    void nextTile();
    void previousTile();

public slots:
    void displayNewTilesDialog();
    void displayPaletteDialog();
    void displayImportFontDialog();
    void displayAnimDialog();
    void displayExportDialog();
    /// Writes the active set to @p name: all of it for ".nxt"; for ".bin" the tiles @p first to @p
    /// last, counted from 1, transposed if @p rotate. A failure is logged.
    void exportAccepted(QString name, int first, int last, bool rotate);
    void exportAttributesAccepted();

private:
    QAction *addTileSetAction(QMenu *menu, const QString &text, void (TileMenu::*slot)());
    void addDialogItems();
    void displayAttributesDialog();
    QPointer<TileSet> tileSet() const;

    QPointer<Project> m_project;
    QUuid m_tileSetId;
    QAction *m_newAction;
    QActionGroup *m_tileSetActions;
    QAction *m_animationAction = nullptr;
    QMenu *m_magnificationMenu = nullptr;
    AnimationOpener m_openAnimationDialog;
    // Made at their first use.
    QPointer<TileSetDialog> m_tileSetDialog;
    QPointer<PaletteSelectorDialog> m_paletteDialog;
    QPointer<ImportZXFontDialog> m_fontDialog;
    QPointer<TileEditor::ExportDialog> m_exportDialog;
    QPointer<QFileDialog> m_attributesDialog;
};
