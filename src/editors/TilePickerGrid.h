#pragma once

#include "editors/HoverMark.h"
#include "editors/TileGridPictures.h"
#include "uikit/Spoken.h"

#include <QMenu>
#include <QPointer>
#include <QWidget>

class QActionGroup;

/// All tiles of a set, to pick from, to move about and to drag into frames.
///
/// Tiles count from 0. A cell is a tile's eight pixels times the magnification, in widget pixels;
/// the cells fill the width from left to right, then the next row. The grid reads the set and does
/// not own it.
class TilePickerGrid : public QWidget, public Spoken
{
    Q_OBJECT

public:
    static constexpr int MinMagnification = 1;
    static constexpr int MaxMagnification = 16;
    static constexpr int DefaultMagnification = 6;

    explicit TilePickerGrid(QWidget *parent = nullptr);

    QPointer<TileSet> tileSet() const { return m_tileSet; }
    /// Null shows nothing. Forgets what was picked, hovered and copied.
    void setTileSet(const QPointer<TileSet> &tileSet);

    int magnification() const { return m_magnification; }
    /// Brought into the range from MinMagnification to MaxMagnification.
    void setMagnification(int magnification);
    /// Zooming in and out and the fixed magnifications, for another menu; owned by the grid.
    QList<QAction *> zoomActions() const { return m_zoomActions; }

    int hoverIndex() const { return m_hoverIndex; }
    int selectedIndex() const { return m_selectedIndex; }
    int dropIndex() const { return m_dropIndex; }
    int copiedIndex() const { return m_copiedIndex; }

    int columns() const;
    /// The tile at a position, -1 between and beyond the tiles.
    int indexAt(QPoint position) const;
    /// The cell of a tile, which may be beyond the count.
    QRect cellRect(int index) const;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    /// The selected tile, as the tile editor counts it.
    QString spokenValue() const override;

signals:
    /// The user has picked a tile. Who emits it for them also moves the grid's selection.
    void selectedIndexChanged(int index);
    /// @p index counts from 1.
    void itemDoubleClicked(int index);

public slots:
    /// Marks a tile; -1 for none. Emits nothing.
    void setSelectedIndex(int index);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    int cellSide() const;
    int count() const;
    bool contains(int index) const { return index >= 0 && index < count(); }
    void makeContextMenu();
    void showZoomChecked();

    void reset();
    void layOutAgain();
    void tilesChanged();
    void refreshPictures();
    void updateCell(int index);
    QRect markRect(int index) const;

    void pick(int index);
    int steppedIndex(int key) const;
    void openContextMenu(int index, QPoint globalPosition);
    void clearTile();
    void pasteImage();
    void insertTile();
    void deleteTile();

    void setHoverIndex(int index);
    void setDropIndex(int index);
    void startDrag(int index);
    bool isOwnDrag(const QDropEvent *event) const;
    void paintCells(QPainter *painter, const QRect &area);
    void paintMarks(QPainter *painter, const QRegion &region);
    void paintMarkedTile(QPainter *painter, int index);

    QPointer<TileSet> m_tileSet;
    int m_magnification = DefaultMagnification;
    int m_hoverIndex = -1;
    int m_selectedIndex = -1;
    int m_dropIndex = -1; // under a drag
    Qt::MouseButtons m_buttons = Qt::NoButton;
    QPoint m_pressPos;
    int m_menuIndex = -1;   // under a right click
    int m_copiedIndex = -1; // the source of "Paste Image"
    QMenu m_contextMenu;
    QActionGroup *m_zoomGroup;
    QList<QAction *> m_zoomActions;

    TileGridPictures m_pictures;
    HoverMark m_hoverMark;
    bool m_picturesAreOld = false;
    bool m_refreshIsQueued = false;
};
