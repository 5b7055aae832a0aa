#include "editors/TilePickerTool.h"

#include "editors/TilePickerGrid.h"
#include "model/TileSet.h"
#include "uikit/PlainText.h"

#include <QScrollArea>

TilePickerTool::TilePickerTool(QWidget *parent)
    : DockWidget(parent)
    , m_grid(new TilePickerGrid)
{
    setObjectName(QStringLiteral("TilePickerTool"));
    setPlaceholderText(tr("No active tile set"));
    setContentWidget(m_grid);
    scrollArea()->setFocusPolicy(Qt::NoFocus); // a click would reach it through the grid
    showTitle();
    connect(m_grid, &TilePickerGrid::itemDoubleClicked, this, &TilePickerTool::tileDoubleClicked);
    connect(m_grid, &TilePickerGrid::selectedIndexChanged, this, &TilePickerTool::showTile);
    connect(m_grid, &TilePickerGrid::selectedIndexChanged, this,
            &TilePickerTool::selectedTileChanged);
}

void TilePickerTool::setTileSet(const QPointer<TileSet> &tileSet)
{
    if (m_tileSet)
        m_tileSet->disconnect(this);
    m_tileSet = tileSet;
    if (m_tileSet) {
        connect(m_tileSet, &TileSet::nameChanged, this, &TilePickerTool::showTitle);
        connect(m_tileSet, &QObject::destroyed, this, [this] { setTileSet(nullptr); });
    }
    m_grid->setTileSet(m_tileSet);
    showTitle();
    if (m_tileSet)
        showContent();
    else
        showPlaceholder();
}

int TilePickerTool::zoom() const
{
    return m_grid->magnification();
}

void TilePickerTool::setZoom(int zoom)
{
    m_grid->setMagnification(zoom);
}

QList<QAction *> TilePickerTool::zoomActions() const
{
    return m_grid->zoomActions();
}

void TilePickerTool::showTitle()
{
    setWindowTitle(m_tileSet ? tr("Tiles: %1").arg(PlainText::shown(m_tileSet->name()))
                             : tr("Tiles"));
}

/// Scrolls to a tile picked elsewhere.
void TilePickerTool::showTile(int index)
{
    if (index < 0)
        return;
    const QRect cell = m_grid->cellRect(index);
    scrollArea()->ensureVisible(cell.center().x(), cell.center().y(), cell.width() / 2,
                                cell.height() / 2);
}
