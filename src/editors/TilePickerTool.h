#pragma once

#include "uikit/DockWidget.h"

#include <QPointer>

class TilePickerGrid;
class TileSet;

/// The dock with all tiles of the active tile set; the source of the current tile.
class TilePickerTool : public DockWidget
{
    Q_OBJECT

public:
    explicit TilePickerTool(QWidget *parent = nullptr);

    TilePickerGrid *grid() const { return m_grid; }
    QPointer<TileSet> tileSet() const { return m_tileSet; }
    /// Null shows the placeholder. Forgets what was picked.
    void setTileSet(const QPointer<TileSet> &tileSet);

    /// The grid's magnification, 1 to 16; brought into that range.
    int zoom() const;
    void setZoom(int zoom);
    /// The grid's zoom actions, for another menu.
    QList<QAction *> zoomActions() const;

signals:
    /// @p index counts from 1.
    void tileDoubleClicked(int index);
    /// @p index counts from 0.
    void selectedTileChanged(int index);

private:
    void showTitle();
    void showTile(int index);

    QPointer<TileSet> m_tileSet;
    TilePickerGrid *m_grid;
};
