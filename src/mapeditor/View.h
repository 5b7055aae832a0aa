#pragma once

#include "history/EditTarget.h"
#include "mapeditor/MapAnimator.h"
#include "mapeditor/SpritePropertiesPopover.h"
#include "model/Enums.h"
#include "model/Map.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "uikit/Spoken.h"

#include <QColor>
#include <QList>
#include <QPointer>
#include <QSplitter>
#include <QUuid>

class ExportMapDialog;
class QUndoStack;
class ResizeMapDialog;
class ScrollBar;

namespace MapEditor {

class MapGrid;
class MapToolPalette;
class ToolBar;

/// What a new view takes from the preferences.
struct ViewSettings
{
    bool checkerBoard = true;
    bool overlayGrid = true;
    int gridSize = 8; ///< screen pixels of a cell at level 1
    QColor firstGridColour{0x40, 0x40, 0x40};
    QColor secondGridColour{0x50, 0x50, 0x50};
    int defaultZoom = 4; ///< counts only within 1 to 8
};

/// The tab that edits one map: grid, scroll bars, tool palette and the frame clock.
class View : public QSplitter, public EditTarget, public Spoken
{
    Q_OBJECT

public:
    explicit View(QWidget *parent = nullptr);
    ~View() override;

    QPointer<Map> map() const { return m_map; }
    /// Shows @p map and follows it; null disables the grid.
    void setMap(const QPointer<Map> &map);
    void setUndoStack(QUndoStack *stack);
    void applySettings(const ViewSettings &settings);
    void setSpriteBanks(const QList<QPointer<SpriteBank>> &banks);

    MapGrid *grid() const { return m_grid; }
    MapToolPalette *toolPalette() const { return m_toolPalette; }
    MapAnimator &animator() { return m_animator; }
    SpritePropertiesPopover *spritePopover() { return &m_spritePopover; }
    ResizeMapDialog *resizeDialog() const { return m_resizeDialog; }

    /// Binds the main window's tool bar: it shows this view's values, and its signals act here
    /// until it is unbound. A bar that is bound already stays as it is.
    void bindToolBar(ToolBar *toolBar);
    void unbindToolBar();
    QString sizeText() const { return m_sizeText; }

    /// What the grid says, which leaves the focus to the view.
    QString spokenValue() const override;

    void cut() override;
    void copy() override;
    void paste() override;
    void selectAll() override;
    void selectNone() override;

signals:
    void exportTileMap(QString dir, QUuid id);
    void exportTiles(QString dir, QUuid id);
    void exportTilePalette(QString dir, QUuid id);
    void tilePicked(int index);
    void createMapFromSelection(QUuid mapId, QSize size);
    void placeAnimModeEnabled();
    void placeSpriteModeEnabled();

public slots:
    void setTileIndex(int index);
    void setMapObject(QPointer<TileAnimation> animation);
    void setSpriteAnimation(QPointer<SpriteAnim> animation);
    void setSingleSprite(QUuid bankId, int index);
    void toolPaletteClicked(Tessaril::Ui::ToolButton action, bool checked);
    void toolPaletteClicked(Tessaril::Ui::ToolButton action);
    void updateScrollValues(int h, int v);
    void updateScrollBars(QPoint pos);
    void setSelectedTile(TileMap::TileData tileData);
    void addRow(Tessaril::Position position);
    void addColumn(Tessaril::Position position);
    void removeRow(Tessaril::Position position);
    void removeColumn(Tessaril::Position position);
    /// Gives the tab of this view its text.
    void updateTabText(QString text);
    void resizeMap();

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    friend class ViewBuilder;

    void followLook(const SpriteBank &bank);
    void spritesChanged();
    void cancel();
    void advanceFrames();
    void announceMode(Tessaril::Ui::ToolButton mode);
    void showSpriteProperties(int index);
    void followSelectedSprite(int index);
    void refreshSpriteProperties();
    bool isOverSprite(QPoint globalPosition) const;
    void showResizeDialog();
    void showExportDialog();
    void exportTo(const QString &directory);
    void resetPaletteOffsets();
    void clearCoveredCells();
    void updateSizeText();
    void syncToolBar();

    ResizeMapDialog *m_resizeDialog;
    MapGrid *m_grid;
    MapToolPalette *m_toolPalette;
    ScrollBar *m_horizontalScrollBar;
    ScrollBar *m_verticalScrollBar;
    QPointer<ToolBar> m_toolBar;
    QList<QMetaObject::Connection> m_toolBarConnections;
    QString m_sizeText;
    QSize m_viewportSize{40, 32}; // cells
    int m_snapSize = 1;           // cells
    MapAnimator m_animator;
    SpritePropertiesPopover m_spritePopover;
    QPointer<Map> m_map;
    bool m_wasAnimating = false;
    QPointer<QUndoStack> m_undoStack;
    ExportMapDialog *m_exportDialog = nullptr; // made at its first use
};

} // namespace MapEditor
