#include "editors/FrameEditorWidget.h"

#include "editors/SpriteDrag.h"
#include "editors/TileDrag.h"
#include "model/Animation.h"
#include "uikit/CellPoint.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QToolTip>

#include <algorithm>

namespace AnimationEditor {

namespace {

constexpr int TileUnit = 8;    // pixels
constexpr int SpriteUnit = 16; // pixels
constexpr QPoint NoCell(-1, -1);

QAction *makeFlagAction(const QString &text, QObject *parent)
{
    auto *action = new QAction(text, parent);
    action->setCheckable(true);
    return action;
}

} // namespace

FrameEditorWidget::FrameEditorWidget(QWidget *parent)
    : QWidget(parent)
    , m_contextMenu(std::make_shared<QMenu>(tr("Frame")))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAcceptDrops(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("Frame"));
    setFrameActions(makeFlagAction(tr("Rotated"), this), makeFlagAction(tr("Flipped"), this),
                    makeFlagAction(tr("Mirrored"), this));
    connect(m_contextMenu.get(), &QMenu::triggered, this, &FrameEditorWidget::applyActions);
    setEnabled(false);
}

FrameEditorWidget::~FrameEditorWidget() = default;

Animation *FrameEditorWidget::animation() const
{
    return m_animation;
}

void FrameEditorWidget::setAnimation(Animation *animation)
{
    if (m_animation)
        disconnect(m_animation, nullptr, this, nullptr);
    m_animation = animation;
    m_selectedCell = NoCell;
    m_hoverCell = NoCell;
    m_currentFrame = 0;
    if (m_animation) {
        connect(m_animation, &Animation::sizeChanged, this, &FrameEditorWidget::resizeToFrame);
        connect(m_animation, &Animation::frameChanged, this, &FrameEditorWidget::redraw);
        connect(m_animation, &Animation::contentChanged, this, &FrameEditorWidget::contentChanged);
        connect(m_animation, &QObject::destroyed, this, &FrameEditorWidget::animationDied);
    }
    setEnabled(m_animation != nullptr);
    resizeToFrame();
}

void FrameEditorWidget::animationDied()
{
    // Who heard of it earlier may have given us another one.
    if (!m_animation)
        setAnimation(nullptr);
}

void FrameEditorWidget::setCurrentFrame(int frame)
{
    const int count = m_animation ? m_animation->frameCount() : 0;
    m_currentFrame = std::min(std::max(frame, 0), count - 1);
    redraw();
    emit currentFrameChanged(m_currentFrame);
    if (m_selectedCell.x() >= 0)
        emit selectedCellChanged(m_selectedCell); // its flags in this frame can differ
}

AnimationFrame::Cell FrameEditorWidget::selectedCellData() const
{
    const AnimationFrame *frame = frameOnShow();
    return frame ? frame->cell(m_selectedCell) : AnimationFrame::Cell();
}

void FrameEditorWidget::setSelectedCellData(const AnimationFrame::Cell &cell)
{
    changeSelectedCell([&cell](AnimationFrame::Cell &selected) { selected = cell; });
}

void FrameEditorWidget::changeSelectedCell(
    const std::function<void(AnimationFrame::Cell &)> &change)
{
    AnimationFrame *frame = frameOnShow();
    if (!frame || !contains(m_selectedCell))
        return;

    AnimationFrame::Cell cell = frame->cell(m_selectedCell);
    change(cell);
    frame->setCell(m_selectedCell, cell);
    frame->notifyChanged();
}

bool FrameEditorWidget::place(QPoint cell, const QMimeData *dropped)
{
    AnimationFrame *frame = frameOnShow();
    if (!frame || !contains(cell))
        return false;

    AnimationFrame::Cell content = frame->cell(cell);
    if (m_animation->isSprite()) {
        const std::optional<int> sprite = SpriteDrag::index(dropped);
        if (!sprite)
            return false;
        content.index = *sprite;
    } else {
        const std::optional<TileDrag::Content> tile = TileDrag::content(dropped);
        if (!tile)
            return false;
        content.index = tile->index;
        content.offset = tile->offset;
    }
    frame->setCell(cell, content);
    frame->notifyChanged();
    select(cell);
    return true;
}

void FrameEditorWidget::setFrameActions(QAction *rotated, QAction *flipped, QAction *mirrored)
{
    m_contextMenu->clear();
    m_rotatedAction = rotated;
    m_flippedAction = flipped;
    m_mirroredAction = mirrored;
    m_contextMenu->addActions({rotated, flipped, mirrored});
}

void FrameEditorWidget::setRenderCell(RenderCell renderCell)
{
    m_renderCell = std::move(renderCell);
    redraw();
}

void FrameEditorWidget::setRotated(bool rotated)
{
    changeSelectedCell([rotated](AnimationFrame::Cell &cell) { cell.rotate = rotated; });
}

void FrameEditorWidget::setMirrored(bool mirrored)
{
    changeSelectedCell([mirrored](AnimationFrame::Cell &cell) { cell.mirror = mirrored; });
}

void FrameEditorWidget::setFlipped(bool flipped)
{
    changeSelectedCell([flipped](AnimationFrame::Cell &cell) { cell.flip = flipped; });
}

void FrameEditorWidget::setOffset(int offset)
{
    changeSelectedCell([offset](AnimationFrame::Cell &cell) { cell.offset = offset; });
}

void FrameEditorWidget::applyActions()
{
    changeSelectedCell([this](AnimationFrame::Cell &cell) {
        cell.rotate = m_rotatedAction && m_rotatedAction->isChecked();
        cell.flip = m_flippedAction && m_flippedAction->isChecked();
        cell.mirror = m_mirroredAction && m_mirroredAction->isChecked();
    });
}

void FrameEditorWidget::zoomIn()
{
    setScale(m_scale * 2);
}

void FrameEditorWidget::zoomOut()
{
    setScale(m_scale / 2);
}

void FrameEditorWidget::setScale(int scale)
{
    m_scale = std::clamp(scale, MinScale, MaxScale);
    resizeToFrame();
}

void FrameEditorWidget::redraw()
{
    m_picture = QImage();
    update();
}

void FrameEditorWidget::resizeToFrame()
{
    if (!contains(m_selectedCell))
        selectNone();
    resize(sizeHint());
    updateGeometry();
    redraw();
}

void FrameEditorWidget::contentChanged()
{
    m_hoverCell = NoCell;
    selectNone();
    redraw();
    // An undo may have taken the frame on show.
    if (m_currentFrame >= m_animation->frameCount() || m_currentFrame < 0)
        setCurrentFrame(m_currentFrame);
}

void FrameEditorWidget::selectNone()
{
    if (m_selectedCell.x() < 0)
        return;
    m_selectedCell = NoCell;
    update();
    emit selectedCellChanged(m_selectedCell);
}

void FrameEditorWidget::select(QPoint cell)
{
    m_selectedCell = cell;
    update();
    tellChange(this);
    emit selectedCellChanged(m_selectedCell);
}

void FrameEditorWidget::setHoverCell(QPoint cell)
{
    m_hoverCell = contains(cell) ? cell : NoCell;
    update();
}

void FrameEditorWidget::mousePressEvent(QMouseEvent *event)
{
    m_buttons = event->buttons();
}

void FrameEditorWidget::mouseReleaseEvent(QMouseEvent *event)
{
    const Qt::MouseButtons buttons = std::exchange(m_buttons, Qt::NoButton);
    const QPoint cell = cellAt(cellPoint(event->position()));
    if (!contains(cell))
        return;

    select(cell);
    if (buttons & Qt::RightButton)
        openContextMenu(event->globalPosition().toPoint());
}

void FrameEditorWidget::openContextMenu(QPoint globalPosition)
{
    const AnimationFrame::Cell cell = selectedCellData();
    if (m_rotatedAction)
        m_rotatedAction->setChecked(cell.rotate);
    if (m_flippedAction)
        m_flippedAction->setChecked(cell.flip);
    if (m_mirroredAction)
        m_mirroredAction->setChecked(cell.mirror);
    m_contextMenu->popup(globalPosition);
}

void FrameEditorWidget::keyPressEvent(QKeyEvent *event)
{
    static const QHash<int, QPoint> steps{{Qt::Key_Left, {-1, 0}},
                                          {Qt::Key_Right, {1, 0}},
                                          {Qt::Key_Up, {0, -1}},
                                          {Qt::Key_Down, {0, 1}}};
    if (event->key() == Qt::Key_Menu && contains(m_selectedCell)) {
        openContextMenu(mapToGlobal(cellRect(m_selectedCell).center()));
        return;
    }
    if (!steps.contains(event->key())) {
        QWidget::keyPressEvent(event);
        return;
    }
    const QPoint cell =
        contains(m_selectedCell) ? m_selectedCell + steps.value(event->key()) : QPoint(0, 0);
    if (contains(cell))
        select(cell);
}

void FrameEditorWidget::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_animation && event->mimeData()->hasFormat(dragType()))
        event->acceptProposedAction();
}

void FrameEditorWidget::dragMoveEvent(QDragMoveEvent *event)
{
    setHoverCell(cellAt(cellPoint(event->position())));
    event->setAccepted(contains(m_hoverCell));
}

void FrameEditorWidget::dragLeaveEvent(QDragLeaveEvent *)
{
    setHoverCell(NoCell);
}

void FrameEditorWidget::dropEvent(QDropEvent *event)
{
    setHoverCell(NoCell);
    if (place(cellAt(cellPoint(event->position())), event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

bool FrameEditorWidget::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);

    const auto *help = static_cast<QHelpEvent *>(event);
    const QPoint cell = cellAt(help->pos());
    QToolTip::showText(help->globalPos(), toolTipOf(cell), this);
    if (!contains(cell) || !frameOnShow())
        event->ignore();
    return true;
}

QString FrameEditorWidget::toolTipOf(QPoint cell) const
{
    const AnimationFrame *frame = frameOnShow();
    if (!frame || !contains(cell))
        return {};

    const AnimationFrame::Cell content = frame->cell(cell);
    const auto word = [](bool isSet) { return isSet ? tr("Yes") : tr("No"); };
    return tr("Index:\t%1\nOffset:\t%2\nFlip\t%3\nMirror:\t%4\nRotate:\t%5")
        .arg(QString::number(content.index), QString::number(content.offset), word(content.flip),
             word(content.mirror), word(content.rotate));
}

QString FrameEditorWidget::dragType() const
{
    return m_animation && m_animation->isSprite() ? SpriteDrag::mimeType() : TileDrag::mimeType();
}

AnimationFrame *FrameEditorWidget::frameOnShow() const
{
    return m_animation ? m_animation->frame(m_currentFrame).data() : nullptr;
}

int FrameEditorWidget::unit() const
{
    return m_animation && m_animation->isSprite() ? SpriteUnit : TileUnit;
}

int FrameEditorWidget::cellSide() const
{
    return unit() * m_scale;
}

QSize FrameEditorWidget::sizeHint() const
{
    return (m_animation ? m_animation->size() : QSize(1, 1)) * cellSide();
}

QPoint FrameEditorWidget::cellAt(QPoint position) const
{
    // A division would bring what lies to the left of the first cell into it.
    if (position.x() < 0 || position.y() < 0)
        return NoCell;
    return {position.x() / cellSide(), position.y() / cellSide()};
}

QRect FrameEditorWidget::cellRect(QPoint cell) const
{
    return {cell * cellSide(), QSize(cellSide(), cellSide())};
}

bool FrameEditorWidget::contains(QPoint cell) const
{
    return m_animation && QRect(QPoint(), m_animation->size()).contains(cell);
}

} // namespace AnimationEditor
