#pragma once

#include "editors/AnimationControlWidget.h"
#include "editors/AnimationListWidget.h"
#include "editors/FrameEditorWidget.h"
#include "tour/WindowTour.h"

#include <QPointer>

#include <functional>
#include <memory>

class QMimeData;
class QTimer;

/// The hands and eyes of an animator at the tab of a sprite bank or of a block list.
///
/// Cells and frames count from 0, and every gesture is one of real events on shown widgets.
class AnimationDesk
{
public:
    using Action = AnimationControlWidget::Action;
    using Cell = AnimationFrame::Cell;
    /// What a cell must look like, in its own pixels.
    using Look = std::function<QImage(const Cell &)>;

    /// @p timer is the one that plays.
    AnimationDesk(WindowTour &tour, QWidget *view, const QTimer &timer, const Look &look);

    Animation *animation() const { return m_editor->animation(); }
    AnimationEditor::FrameEditorWidget &editor() { return *m_editor; }
    AnimationEditor::AnimationListWidget &list() { return *m_list; }
    Cell cell(int frame, QPoint cell) const { return animation()->frame(frame)->cell(cell); }

    /// Presses a button of the list, which is known by its tool tip.
    void pressListButton(const QString &toolTip);
    /// Chooses from the context menu of the animation in the list that is open.
    void chooseInList(const QString &entry);
    /// Presses a button of the transport row.
    void press(Action action);
    /// Presses a flag or another tool.
    void pressTool(Tessaril::Ui::ToolButton tool);
    void typeName(const QString &name);
    void typeNumber(const QString &field, int value);
    void click(QPoint cell);
    /// Drags the thing at @p from off @p source and drops it on a cell of the frame on show.
    void drop(QWidget *source, QPoint from, QPoint cell);

    /// Whether each pixel of the frame on show is as its cells must look.
    bool looksRight();
    /// Plays until each frame has come up twice, and checks order, picture and pace.
    void checkPlayback();

private:
    QPoint middle(QPoint cell) const;

    WindowTour &m_tour;
    QPointer<QWidget> m_view;
    const QTimer &m_timer;
    Look m_look;
    QPointer<AnimationEditor::FrameEditorWidget> m_editor;
    QPointer<AnimationEditor::AnimationListWidget> m_list;
    QPointer<AnimationControlWidget> m_controls;
};

/// What a drag from the point @p from off @p source carries, null if none starts. The platform of
/// the tour ends each drag at once, so that it still has to be brought to its target.
std::unique_ptr<QMimeData> dragOff(QWidget *source, QPoint from);

/// The chapters on animations; each goes on with the project of the one before.
void spriteChapter(WindowTour &tour);
void blockChapter(WindowTour &tour);
