#include "colour/PaletteGrid.h"

#include "colour/SwatchGrid.h"
#include "colour/SwatchPainting.h"
#include "model/Palette.h"
#include "uikit/CellPoint.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr SwatchGrid Cells{PaletteGrid::Columns, PaletteGrid::CellSide, Palette::Size};
constexpr int Gap = 1; // pixels, to the right of and below each square
const QColor Background(88, 88, 88);

} // namespace

PaletteGrid::PaletteGrid(QWidget *parent)
    : QWidget(parent)
{
    setFixedSize(Cells.size());
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Palette colours"));
}

void PaletteGrid::setPalette(const QPointer<Palette> &palette)
{
    if (m_palette)
        m_palette->disconnect(this);
    m_palette = palette;
    if (m_palette) {
        connect(m_palette, &Palette::colourChanged, this, &PaletteGrid::updateColour);
        connect(m_palette, &QObject::destroyed, this, qOverload<>(&QWidget::update));
    }
    update();
}

void PaletteGrid::setSelection(int first, int last)
{
    m_first = first;
    m_last = last;
    m_start = cellRect(std::max(first, 0)).topLeft();
    m_end = cellRect(std::max(last, 0)).topLeft();
    update();
}

void PaletteGrid::updateColour(int index, QColor)
{
    update(cellRect(index));
}

int PaletteGrid::indexAt(QPoint position)
{
    // A drag goes on beyond the border.
    const int x = std::clamp(position.x(), 0, Columns * CellSide - 1);
    const int y = std::clamp(position.y(), 0, Palette::Size / Columns * CellSide - 1);
    return Cells.cellAt({x, y});
}

QRect PaletteGrid::cellRect(int index)
{
    return Cells.rectOf(index);
}

void PaletteGrid::takeRun()
{
    const auto [first, last] = std::minmax({indexAt(m_start), indexAt(m_end)});
    m_first = first;
    m_last = last;
    update();
    tellChange(this);
}

QString PaletteGrid::spokenValue() const
{
    if (!m_palette || m_first < 0)
        return {};
    const QString colour = SwatchPainting::spoken(*m_palette, indexAt(m_end));
    return m_first == m_last ? colour
                             : tr("%1, %2 to %3 selected").arg(colour).arg(m_first).arg(m_last);
}

bool PaletteGrid::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !m_palette)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int index = indexAt(help->pos());
    QToolTip::showText(help->globalPos(), SwatchPainting::toolTip(*m_palette, index), this,
                       cellRect(index));
    return true;
}

void PaletteGrid::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(rect(), Background);
    if (!m_palette)
        return;

    const QPen frame(Qt::white, 1, Qt::DotLine);
    for (int index = 0; index < Palette::Size; ++index) {
        const QRect cell = cellRect(index);
        if (!event->rect().intersects(cell))
            continue;
        const bool selected = isEnabled() && index >= m_first && index <= m_last;
        painter.setPen(selected ? frame : QPen(Qt::NoPen));
        painter.setBrush(m_palette->colour(index));
        painter.drawRect(cell.adjusted(0, 0, -Gap, -Gap));
    }
    if (m_keyboard && hasFocus())
        SwatchPainting::paintFocus(&painter, cellRect(indexAt(m_end)),
                                   palette().color(QPalette::Highlight));
}

void PaletteGrid::mousePressEvent(QMouseEvent *event)
{
    m_keyboard = false;
    m_start = cellPoint(event->position());
    m_end = m_start;
    takeRun();
    emit selectionChanged(m_first, m_last);
}

void PaletteGrid::mouseMoveEvent(QMouseEvent *event)
{
    m_end = cellPoint(event->position());
    takeRun();
}

void PaletteGrid::mouseReleaseEvent(QMouseEvent *event)
{
    m_end = cellPoint(event->position());
    takeRun();
    emit selectionChanged(m_first, m_last);
}

void PaletteGrid::keyPressEvent(QKeyEvent *event)
{
    const int target = Cells.stepped(indexAt(m_end), event->key());
    if (target < 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    m_keyboard = true;
    if (m_first >= 0)
        m_end = cellRect(target).topLeft();
    if (!(event->modifiers() & Qt::ShiftModifier))
        m_start = m_end;
    takeRun();
    emit selectionChanged(m_first, m_last);
}

void PaletteGrid::focusInEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::MouseFocusReason)
        m_keyboard = true;
    QWidget::focusInEvent(event);
}
