// The sprite list's painting, and dragging from and to its cells.

#include "editors/SpriteDrag.h"
#include "editors/SpriteList.h"
#include "model/SpriteBank.h"
#include "uikit/CellPoint.h"
#include "uikit/PixelLines.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>

namespace SpriteEditor {

namespace {

const QColor HoverLine(160, 160, 255, 128);
const QColor HoverFill(160, 160, 255, 80);

void drawFrame(QPainter *painter, const QRect &rect)
{
    painter->setBrush(Qt::NoBrush);
    painter->setPen(Qt::black);
    painter->drawRect(rect);
    painter->setPen(QPen(Qt::white, 1, Qt::DotLine));
    painter->drawRect(rect);
}

} // namespace

void SpriteList::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    if (!m_sprites) {
        painter.fillRect(event->rect(), Qt::black);
        return;
    }

    const QPoint origin = cellRect(0).topLeft();
    const QRect addCell = cellRect(count());
    m_sheet.prepare(*m_sprites,
                    {columns(), cellSide(), devicePixelRatioF(), palette().color(QPalette::Base)});
    // The sheet covers the whole rows above the add cell's, so that only the rest needs filling.
    const QRect fullRows(origin, QSize(columns() * cellSide(), addCell.top()));
    for (const QRect &rest : event->region().subtracted(fullRows))
        painter.fillRect(rest, palette().brush(QPalette::Base));
    for (const QRect &area : event->region())
        m_sheet.paint(&painter, *m_sprites, area.translated(-origin), origin);
    if (event->region().intersects(addCell))
        painter.drawPixmap(addCell, m_addIcon.pixmap(addCell.size(), devicePixelRatioF()));
    paintMarks(&painter);
}

void SpriteList::paintMarks(QPainter *painter) const
{
    moveLinesIntoPixels(painter);
    // Lines of one pixel reach to the cell's last one.
    const auto outline = [this](int index) { return cellRect(index).adjusted(0, 0, -1, -1); };
    if (m_hoverIndex >= 0 && underMouse()) {
        painter->setPen(HoverLine);
        painter->setBrush(HoverFill);
        const QRect rect = outline(m_hoverIndex);
        painter->drawRects(&rect, 1);
    }
    if (contains(m_selectedIndex))
        drawFrame(painter, outline(m_selectedIndex));
    if (contains(m_dropIndex))
        drawFrame(painter, outline(m_dropIndex).adjusted(0, 0, -1, -1));
}

QString SpriteList::spokenValue() const
{
    if (!contains(m_selectedIndex))
        return {};
    return tr("sprite %1 of %2").arg(m_selectedIndex + 1).arg(m_sprites->count());
}

void SpriteList::startDrag(int index)
{
    setHoverIndex(-1);
    auto *drag = new QDrag(this);
    drag->setMimeData(SpriteDrag::mimeData(index).release());
    const int side = qRound(cellSide() * devicePixelRatioF());
    QPixmap pixmap = QPixmap::fromImage(
        m_sprites->spriteImage(index, 0, false, false, false).scaled(side, side));
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    drag->setPixmap(pixmap);
    drag->setHotSpot(m_pressPos - cellRect(index).topLeft());
    // The drag takes the release.
    m_buttons = Qt::NoButton;
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
}

void SpriteList::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(SpriteDrag::mimeType()))
        event->acceptProposedAction();
}

void SpriteList::dragMoveEvent(QDragMoveEvent *event)
{
    setDropIndex(spriteAt(cellPoint(event->position())));
    event->acceptProposedAction();
}

void SpriteList::dragLeaveEvent(QDragLeaveEvent *)
{
    setDropIndex(-1);
}

void SpriteList::dropEvent(QDropEvent *event)
{
    const int source = spriteAt(m_pressPos);
    const int dest = spriteAt(cellPoint(event->position()));
    setDropIndex(-1);
    // A sprite dragged here from elsewhere is not the one that was pressed.
    if (dest < 0 || source < 0 || SpriteDrag::index(event->mimeData()) != source)
        return;

    event->acceptProposedAction();
    if (source == dest)
        return;
    if (event->modifiers() == Qt::ShiftModifier)
        emit copySprite(source, dest);
    else if (event->modifiers() == Qt::NoModifier)
        emit moveSprite(source, dest);
}

} // namespace SpriteEditor
