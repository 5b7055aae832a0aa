#include "mapeditor/PlaceAnimationTool.h"

#include "mapeditor/MapGrid.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QPainter>

using namespace MapEditor;

namespace {

/// Frame 0 at 8 pixels a cell.
QImage firstFrame(const TileAnimation &animation, const TileSet &tileSet)
{
    QImage image(animation.size() * GridGeometry::CellPixels, QImage::Format_ARGB32);
    const auto frame = animation.frame(0);
    if (image.isNull() || !frame)
        return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const AnimationFrame::Cells &cells = frame->cells();
    for (int row = 0; row < cells.size(); ++row) {
        for (int column = 0; column < cells.at(row).size(); ++column) {
            const AnimationFrame::Cell &cell = cells.at(row).at(column);
            painter.drawImage(
                column * GridGeometry::CellPixels, row * GridGeometry::CellPixels,
                tileSet.tileImage(cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset));
        }
    }
    return image;
}

} // namespace

bool PlaceAnimationTool::activate()
{
    m_grid->updateCursor();
    return true;
}

bool PlaceAnimationTool::isBlocked() const
{
    return !m_grid->m_map->objectLayer()->isVisible();
}

void PlaceAnimationTool::mouseRelease(QMouseEvent *)
{
    m_grid->endEdit(QStringLiteral("Place Animation"));
}

void PlaceAnimationTool::paintOverGrid(QPainter &painter)
{
    const auto animation = m_grid->m_currentAnimation;
    const auto tileSet = m_grid->m_map->tileSet();
    if (!animation || !tileSet || m_grid->m_hoverAnimationRect.isValid() ||
        m_grid->m_hoverCell.x() == -1)
        return;
    painter.drawImage(m_grid->cellGeometry().fromCells({m_grid->m_hoverCell, animation->size()}),
                      firstFrame(*animation, *tileSet));
}
