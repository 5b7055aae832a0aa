#include "mapeditor/SelectTool.h"

#include "mapeditor/MapGrid.h"

#include <QMouseEvent>

#include <cmath>

using namespace MapEditor;

bool SelectTool::activate()
{
    m_grid->m_selection = QRect();
    m_grid->m_pasteRect = QRect();
    m_grid->setCursor(Qt::CrossCursor);
    return true;
}

bool SelectTool::contextPress(QMouseEvent *event)
{
    if (!event->buttons().testFlag(Qt::RightButton) || m_grid->m_selection.width() < 1)
        return false;
    m_grid->m_buttons = Qt::NoButton;
    m_grid->m_contextMenu.exec(event->globalPosition().toPoint());
    return true;
}

void SelectTool::mouseMove(QMouseEvent *event)
{
    if (!m_grid->m_buttons.testFlag(Qt::LeftButton))
        return;

    const QPoint first = m_grid->m_pressPos;
    const QPoint last = wholePosition(event->position());
    const QPoint topLeft(std::min(first.x(), last.x()), std::min(first.y(), last.y()));
    const QPoint bottomRight(std::max(first.x(), last.x()), std::max(first.y(), last.y()));
    m_grid->m_rubberBand.setGeometry(QRect(topLeft, bottomRight));
    if (m_grid->m_rubberBand.isHidden())
        m_grid->m_rubberBand.show();

    const GridGeometry &geometry = m_grid->cellGeometry();
    const auto cell = [&geometry](QPoint edge) {
        const QPointF offset = QPointF(edge - geometry.gridRect.topLeft()) / geometry.cellSize;
        return QPoint(static_cast<int>(std::floor(offset.x())),
                      static_cast<int>(std::floor(offset.y()))) +
               geometry.scroll;
    };
    m_grid->m_selection = QRect(cell(topLeft), cell(bottomRight));
    m_grid->update();
}

void SelectTool::paintUnderGrid(QPainter &painter)
{
    m_grid->paintSelection(painter);
}
