#include "colour/SwatchStrip.h"

#include "colour/ColourEditorPopover.h"
#include "colour/SwatchPainting.h"
#include "model/Palette.h"
#include "uikit/CellPoint.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int Gap = 1; // pixels, to the right of and below each swatch
constexpr int MinMarkHeight = 9;

} // namespace

SwatchStrip::SwatchStrip(const QColor &background, QWidget *parent)
    : QWidget(parent)
    , m_background(background)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Colours"));
}

void SwatchStrip::setPalette(QPointer<Palette> palette)
{
    if (m_palette)
        m_palette->disconnect(this);
    m_palette = palette;
    if (m_palette) {
        connect(m_palette, &Palette::colourChanged, this, &SwatchStrip::paletteEntryChanged);
        connect(m_palette, &QObject::destroyed, this, qOverload<>(&QWidget::update));
    }
    m_edited = -1;
    update();
}

void SwatchStrip::paletteEntryChanged(int index, QColor, bool)
{
    update(rectOf(index));
}

void SwatchStrip::updateColour(QColor colour, bool priority)
{
    if (m_palette && m_edited >= 0)
        m_palette->setColour(m_edited, colour, priority);
}

void SwatchStrip::pickTransparent(int) {}

void SwatchStrip::pickTwice(int) {}

void SwatchStrip::setFirst(int index)
{
    m_first = index;
    update();
    tellChange(this);
}

QString SwatchStrip::spokenValue() const
{
    const bool isEntry = m_palette && m_first >= 0 && m_first < Palette::Size;
    return isEntry ? SwatchPainting::spoken(*m_palette, m_first) : QString();
}

void SwatchStrip::setSecond(int index)
{
    m_second = index;
    update();
}

void SwatchStrip::setBank(int offset)
{
    m_offset = offset;
    update();
}

void SwatchStrip::setGrid(const SwatchGrid &grid)
{
    m_grid = grid;
    update();
}

int SwatchStrip::indexAt(QPoint position) const
{
    const int cell = m_grid.cellAt(position);
    return cell < 0 ? -1 : base() + cell;
}

QRect SwatchStrip::rectOf(int index) const
{
    const int cell = index - base();
    return cell >= 0 && cell < m_grid.count ? m_grid.rectOf(cell) : QRect();
}

bool SwatchStrip::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !m_palette)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int index = indexAt(help->pos());
    QToolTip::showText(help->globalPos(),
                       index < 0 ? QString() : SwatchPainting::toolTip(*m_palette, index), this,
                       rectOf(index));
    return true;
}

void SwatchStrip::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(ground(), m_background);
    if (!m_palette)
        return;

    for (int index = base(); index < base() + m_grid.count; ++index) {
        const QRect cell = rectOf(index);
        if (event->rect().intersects(cell))
            SwatchPainting::paintColour(&painter, cell.adjusted(0, 0, -Gap, -Gap),
                                        m_palette->colour(index));
    }
    paintMarks(&painter);
    if (hasFocus() && rectOf(m_first).isValid())
        SwatchPainting::paintFocus(&painter, rectOf(m_first), palette().color(QPalette::Highlight));
}

void SwatchStrip::paintMarks(QPainter *painter) const
{
    QFont markFont = font();
    markFont.setPixelSize(std::max(m_grid.cellSide * 2 / 3, MinMarkHeight));
    markFont.setBold(true);
    painter->setFont(markFont);
    if (m_second != m_first && rectOf(m_second).isValid())
        SwatchPainting::paintMark(painter, rectOf(m_second), QStringLiteral("2"));
    if (rectOf(m_first).isValid())
        SwatchPainting::paintMark(painter, rectOf(m_first), QStringLiteral("1"));
}

void SwatchStrip::mousePressEvent(QMouseEvent *event)
{
    const int index = indexAt(cellPoint(event->position()));
    if (index < 0)
        return;
    if (event->button() == Qt::LeftButton)
        pickFirst(index);
    else if (event->button() == Qt::RightButton)
        pickSecond(index);
    else if (event->button() == Qt::MiddleButton)
        pickTransparent(index);
}

void SwatchStrip::mouseDoubleClickEvent(QMouseEvent *event)
{
    const int index = indexAt(cellPoint(event->position()));
    if (index < 0)
        return;
    pickTwice(index);
    openEditor(index);
}

void SwatchStrip::keyPressEvent(QKeyEvent *event)
{
    const bool second = event->modifiers() & Qt::ShiftModifier;
    const int cell = std::clamp((second ? m_second : m_first) - base(), 0, m_grid.count - 1);
    const int target = m_grid.stepped(cell, event->key());
    const bool edit = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (target >= 0 && second)
        pickSecond(base() + target);
    else if (target >= 0)
        pickFirst(base() + target);
    else if (edit)
        openEditor(m_first);
    else
        QWidget::keyPressEvent(event);
}

void SwatchStrip::openEditor(int index)
{
    if (!m_palette || !rectOf(index).isValid())
        return;
    if (!m_popover) {
        m_popover = new ColourEditorPopover(this);
        connect(m_popover, &ColourEditorPopover::colourChanged, this, &SwatchStrip::updateColour);
        connect(m_popover, &ColourEditorPopover::closed, this, [this] { m_edited = -1; });
    }
    m_edited = index;
    m_popover->openFor(this, rectOf(index), m_palette->colour(index), m_palette->priority(index));
}
