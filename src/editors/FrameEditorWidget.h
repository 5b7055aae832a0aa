#pragma once

#include "model/AnimationFrame.h"
#include "uikit/Spoken.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class Animation;
class QAction;
class QMenu;
class QMimeData;

namespace AnimationEditor {

/// One frame of an animation as a grid of cells, which takes dropped tiles or sprites.
///
/// Cells and frames count from 0. A cell is the scale times 16 pixels for a sprite, 8 for a tile.
/// The editor knows no tile sets or banks: its owner draws the cells. It writes to the animation
/// and does not own it.
class FrameEditorWidget : public QWidget, public Spoken
{
    Q_OBJECT

public:
    using RenderCell = std::function<QImage(const AnimationFrame::Cell &cell)>;

    static constexpr int MinScale = 1; // screen pixels for one pixel of a tile or sprite
    static constexpr int MaxScale = 64;
    static constexpr int DefaultScale = 8;

    explicit FrameEditorWidget(QWidget *parent = nullptr);
    ~FrameEditorWidget() override;

    Animation *animation() const;
    /// Shows its first frame with no cell selected; null disables. Emits nothing.
    void setAnimation(Animation *animation);

    int currentFrame() const { return m_currentFrame; }
    /// Brought between 0 and the last frame, which without frames is -1. Emits
    /// currentFrameChanged(), and selectedCellChanged() if a cell is selected.
    void setCurrentFrame(int frame);

    int scale() const { return m_scale; }
    /// The x is -1 if there is none.
    QPoint selectedCell() const { return m_selectedCell; }
    QPoint hoverCell() const { return m_hoverCell; }
    /// The selected cell of the current frame; a zero one without a selection.
    AnimationFrame::Cell selectedCellData() const;
    /// Writes the selected cell of the current frame; nothing without a selection.
    void setSelectedCellData(const AnimationFrame::Cell &cell);
    /// Writes what @p dropped holds to a cell of the current frame and selects it: an index, and
    /// for tiles a palette offset, where sprites keep the cell's. False, with nothing changed, if
    /// it is not of the animation's kind or the cell is not in the frame.
    bool place(QPoint cell, const QMimeData *dropped);

    /// Takes the owner's checkable actions into the context menu, in place of those before.
    void setFrameActions(QAction *rotated, QAction *flipped, QAction *mirrored);
    void setRenderCell(RenderCell renderCell);

    QSize sizeHint() const override;
    /// The frame, the selected cell and what it shows.
    QString spokenValue() const override;

public slots:
    /// These write to the selected cell of the current frame.
    void setRotated(bool rotated);
    void setMirrored(bool mirrored);
    void setFlipped(bool flipped);
    void setOffset(int offset);
    /// Double and halve the scale.
    void zoomIn();
    void zoomOut();
    /// Leaves no cell selected; emits selectedCellChanged() if one was.
    void selectNone();
    /// Draws the cells anew, for changes that the animation does not tell of.
    void redraw();

signals:
    /// The cell was selected, or another frame is shown under it; x is -1 if none is any more.
    void selectedCellChanged(QPoint cell);
    void currentFrameChanged(int index);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    int unit() const;
    int cellSide() const;
    QPoint cellAt(QPoint position) const;
    QRect cellRect(QPoint cell) const;
    bool contains(QPoint cell) const;
    QString dragType() const;
    AnimationFrame *frameOnShow() const;
    const QImage &picture();
    void paintMarks(QPainter *painter) const;
    QString toolTipOf(QPoint cell) const;

    void setScale(int scale);
    void resizeToFrame();
    void contentChanged();
    void animationDied();
    void setHoverCell(QPoint cell);
    void select(QPoint cell);
    void openContextMenu(QPoint globalPosition);
    void applyActions();
    void changeSelectedCell(const std::function<void(AnimationFrame::Cell &)> &change);

    QPointer<Animation> m_animation;
    RenderCell m_renderCell;
    int m_scale = DefaultScale;
    int m_currentFrame = 0;
    QPoint m_hoverCell{-1, -1}; // under a drag
    QPoint m_selectedCell{-1, -1};
    Qt::MouseButtons m_buttons = Qt::NoButton;
    std::shared_ptr<QMenu> m_contextMenu;
    QPointer<QAction> m_rotatedAction;
    QPointer<QAction> m_flippedAction;
    QPointer<QAction> m_mirroredAction;

    QImage m_picture; // the frame in its own pixels; null if it has to be drawn anew
};

} // namespace AnimationEditor
