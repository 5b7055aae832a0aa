#pragma once

#include "mapeditor/GridGeometry.h"
#include "mapeditor/LayersPicture.h"
#include "mapeditor/MapTool.h"
#include "mapeditor/SpriteLayer.h"
#include "model/Enums.h"
#include "model/Map.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "uikit/Spoken.h"

#include <QColor>
#include <QHash>
#include <QMenu>
#include <QPointer>
#include <QRubberBand>
#include <QWidget>

#include <memory>

class QUndoStack;

namespace MapEditor {

/// The widget on which a map is edited: its layers and sprites on a grid of square cells.
///
/// It forwards the mouse to the current tool, keeps scroll position and zoom, and makes one undo
/// command of each gesture. It has no scroll bars of its own; ranges and positions go out by
/// signal. Disabled until it has a map. Tools reach its state as friends.
class MapGrid : public QWidget, public Spoken
{
    Q_OBJECT

public:
    static constexpr int MinZoomLevel = 1;
    static constexpr int MaxZoomLevel = 8;

    explicit MapGrid(QWidget *parent = nullptr);
    ~MapGrid() override;

    QPointer<Map> map() const { return m_map; }
    void setMap(const QPointer<Map> &map);
    void setUndoStack(QUndoStack *stack);

    const GridGeometry &cellGeometry() const { return m_geometry; }
    int zoomLevel() const { return m_zoomLevel; }
    /// The screen pixels of a cell at level 1, and the level; @p zoomLevel outside its range keeps
    /// it.
    void setCellMetrics(int tileSize, int zoomLevel);
    void setGridColours(const QColor &first, const QColor &second);

    Tessaril::Ui::ToolButton mode() const { return m_mode; }
    void setMode(Tessaril::Ui::ToolButton mode);
    void setOrientation(bool rotated, bool flipped, bool mirrored);
    bool isRotated() const { return m_rotated; }
    bool isFlipped() const { return m_flipped; }
    bool isMirrored() const { return m_mirrored; }
    int currentTile() const { return m_currentTile; }
    bool isGridVisible() const { return m_gridVisible; }

    /// In cells; invalid for none.
    QRect selection() const { return m_selection; }
    void setSelection(const QRect &cells);
    QRect pasteRect() const { return m_pasteRect; }
    void hideRubberBand() { m_rubberBand.hide(); }

    /// Edits between these two become one undo step, unless nothing differs. They nest; the
    /// outermost end gives the text.
    void beginEdit();
    void endEdit(const QString &text);

    void updateCursor();
    /// Repaints @p region, and the cells and sprites that look different from what is shown.
    void updateChanged(const QRegion &region = {});
    /// Lays the cells out anew and emits scrollDeltaChanged().
    void updateGeometryMetrics();
    /// Tidies up after an undo.
    void mapRestored();
    /// Placed sprites have gone with a sprite of their bank: what was selected may be another now.
    void placedSpritesRenumbered();

    void copySelection();
    void cutSelection();
    void clearSelection();
    /// Deletes the sprite or the placed object under the mouse, else clears the selection.
    void deleteHovered();

    /// The last placed sprite over a map pixel, or -1.
    int spriteAt(QPoint mapPixel) const;
    int selectedSprite() const { return m_selectedSprite; }
    /// The bounds of sprite @p index in global coordinates; invalid if there is no such sprite.
    QRect spriteScreenRect(int index) const;
    /// Overwrites the selected sprite as one undo step.
    void applySpriteEdit(const Map::PlacedSprite &sprite);

    /// The current tile as it is painted, with its own palette offset.
    TileMap::TileData currentTileData(bool occupied) const;

    /// Lets the keys that @p view gets do what the mouse does here: Shift and an arrow move over
    /// the cells, and Space is the left button.
    void takeKeysOf(QWidget *view);

    /// One step on one axis, the horizontal one first.
    void scrollBy(QPoint delta);

    QSize sizeHint() const override { return {640, 512}; }
    /// The cell under the pointer and what it shows, as the tile editor counts them.
    QString spokenValue() const override;

signals:
    void scrollDeltaChanged(int h, int v);
    void scrollPositionChanged(QPoint pos);
    void mapResized(QSize size);
    void tilePicked(TileMap::TileData tileData);
    void modeChanged(Tessaril::Ui::ToolButton mode);
    void selectedSpriteChanged(int index);
    void spriteClicked(int index);
    void createMapFromSelection(QUuid mapId, QSize size);

public slots:
    /// Limits the view to @p size cells. Switching it off shows at the next change of the layout.
    void setViewPort(bool enabled, QSize size);
    void setCurrentTileIndex(int index);
    void setCurrentTileAnimation(QPointer<TileAnimation> anim);
    void setCurrentSpriteAnimation(QPointer<SpriteAnim> anim);
    void setCurrentSprite(QUuid bankId, int index);
    void setGridVisible(bool visible);
    void zoomIn();
    void zoomOut();
    /// The largest cell with which the map, or the viewport, fits. Without @p doEvent nothing is
    /// laid out or painted.
    void fitTo(bool doEvent);
    void fitTo() { fitTo(true); }
    void scrollRight() { scrollBy({1, 0}); }
    void scrollLeft() { scrollBy({-1, 0}); }
    void scrollUp() { scrollBy({0, -1}); }
    void scrollDown() { scrollBy({0, 1}); }
    void setHorizontalScrollPosition(int pos);
    void setVerticalScrollPosition(int pos);
    void addRows(Tessaril::Position where, int count);
    void addColumns(Tessaril::Position where, int count);
    void removeRows(Tessaril::Position where, int count);
    void removeColumns(Tessaril::Position where, int count);
    void resizeMap(QSize size, Qt::Alignment alignment);
    void setTransparencyIndex(int index);
    void setBackgroundTileIndex(int index);
    void setSnapToSize(int size);
    void setSpriteBanks(QList<QPointer<SpriteBank>> banks);
    void setSpriteTicks(qint64 ticks);
    void setMapVisibility(bool visible);
    void setObjectVisibility(bool visible);
    void setSpriteVisibility(bool visible);
    void tileMapChanged();
    void copyAsImage();
    void mapFromSelection();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    friend class CellTool;
    friend class DrawTool;
    friend class PasteTool;
    friend class PickTool;
    friend class PlaceAnimationTool;
    friend class PlaceSpriteTool;
    friend class SelectTool;

    using LayerStep = void (TileMap::*)(Tessaril::Position);

    void makeTools();
    void makeContextMenu();
    void moveTo(QMouseEvent *event);
    void pickAt(QPoint position);
    void reveal(QPoint cell);
    void selectSprite(int index);
    void fillSelection();
    void setZoom(int level);
    void chooseTemplate(const Map::PlacedSprite &sprite, bool isUsable);
    void changeSize(const QString &text, Tessaril::Position where, QPoint shift, int count,
                    LayerStep step);
    void finishResize();
    void deleteSprite(int index);
    void deletePlacedObject(const QRect &rect);

    /// Brings the kept pictures up to date; the widget's pixels that show something else for that.
    QRegion refreshPictures();
    /// Repaints what a move of the mouse changes; the arguments are what was hovered before it.
    void updateHover(QPoint cellBefore, const QRect &objectBefore);
    QRect statusArea() const;
    void paintLayers(QPainter &painter);
    void paintSprite(QPainter &painter, const Map::PlacedSprite &sprite, qint64 ticks);
    void paintHoveredSprite(QPainter &painter);
    void paintGridLines(QPainter &painter, const QRegion &region);
    void paintSelection(QPainter &painter);
    void paintCellOutline(QPainter &painter, const QRect &cells);

    QPointer<Map> m_map;
    QPointer<QUndoStack> m_undoStack;
    GridGeometry m_geometry;
    int m_tileSize = 8; // screen pixels of a cell at level 1
    int m_zoomLevel = 4;
    int m_snapSize = 1; // cells; 1 for off
    bool m_viewportEnabled = false;
    QSize m_viewportSize;
    int m_transparencyIndex = -1;
    int m_backgroundTileIndex = -1;
    int m_currentTile = 0; // -1 while an object or a sprite is placed
    bool m_rotated = false;
    bool m_flipped = false;
    bool m_mirrored = false;
    Tessaril::Ui::ToolButton m_mode = Tessaril::Ui::ToolButton::Draw;
    Tessaril::Ui::ToolButton m_previousMode = Tessaril::Ui::ToolButton::Draw;
    bool m_gridVisible = false;
    bool m_gridPreference = true;
    QColor m_firstGridColour{0x40, 0x40, 0x40};
    QColor m_secondGridColour{0x50, 0x50, 0x50};
    QRect m_selection;
    QRect m_pasteRect;
    QPoint m_hoverCell{-1, 0}; // x of -1 for none
    QPoint m_pressPos{-1, -1};
    Qt::MouseButtons m_buttons = Qt::NoButton; // of the gesture in progress
    QRect m_hoverAnimationRect;
    int m_editDepth = 0;
    Map::State m_editBefore;
    QPointer<TileAnimation> m_currentAnimation;
    Map::PlacedSprite m_spriteTemplate;
    bool m_hasSpriteTemplate = false;
    SpriteBanks m_spriteBanks;
    qint64 m_spriteTicks = 0;
    int m_hoverSprite = -1;
    int m_selectedSprite = -1;
    QHash<Tessaril::Ui::ToolButton, std::shared_ptr<MapTool>> m_tools;
    MapTool *m_currentTool = nullptr;
    LayersPicture m_layers;
    SpriteLayer m_sprites;
    QRubberBand m_rubberBand;
    QMenu m_contextMenu;
};

} // namespace MapEditor
