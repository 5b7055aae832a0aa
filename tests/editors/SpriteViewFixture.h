#pragma once

#include "editors/AnimationListWidget.h"
#include "editors/FrameEditorWidget.h"
#include "editors/SpriteDrag.h"
#include "editors/SpriteEditorToolBar.h"
#include "editors/SpriteEditorView.h"
#include "support/DialogDriver.h"
#include "support/DragEvents.h"
#include "support/RecordedProject.h"
#include "uikit/ToolPalette.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <memory>

/// A shown sprite tab over a recorded bank, whose animation "Walk" is 4 by 1 cells in one frame.
struct SpriteViewFixture
{
    using AnimationListWidget = AnimationEditor::AnimationListWidget;
    using FrameEditorWidget = AnimationEditor::FrameEditorWidget;
    using Action = AnimationControlWidget::Action;
    using Tool = Tessaril::Ui::ToolButton;

    void open()
    {
        m_project = std::make_unique<RecordedProject>();
        m_project->animation->setName(QStringLiteral("Walk"));
        m_view = std::make_unique<SpriteEditor::View>(m_project->sprites);
        m_view->resize(900, 500);
        m_view->show();
        if (!QTest::qWaitForWindowExposed(m_view.get()))
            qFatal("the view does not show");
    }
    void close()
    {
        m_view.reset();
        m_project.reset();
    }

    template <typename Widget>
    Widget *child() const
    {
        return m_view->findChild<Widget *>();
    }
    AnimationControlWidget *controls() const { return child<AnimationControlWidget>(); }
    FrameEditorWidget *frames() const { return child<FrameEditorWidget>(); }
    AnimationListWidget *list() const { return child<AnimationListWidget>(); }
    QListWidget *items() const { return list()->findChild<QListWidget *>(); }
    QTimer *timer() const
    {
        return m_view->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QAction *tool(Tool button) const { return child<ToolPalette>()->action(button); }
    QSpinBox *spin(const QString &name) const
    {
        return DialogDriver::field<QSpinBox>(*m_view, name);
    }
    QString label() const { return controls()->findChild<QLabel *>()->text(); }
    QUndoStack *stack() const { return m_project->stackOf(m_project->sprites->id()); }
    AnimationFrame::Cell cell(QPoint position, int frame = 0) const
    {
        return m_project->animation->frame(frame)->cell(position);
    }
    QColor colour(int index) const
    {
        return QColor::fromRgb(m_project->palette->colourTable().at(index));
    }
    /// Of the middle of a cell of the first row.
    QColor shownColour(int column) const
    {
        return frames()->grab().toImage().pixelColor(at({column, 0}));
    }

    void click(Action action) const
    {
        QTest::mouseClick(controls()->findChildren<QToolButton *>().at(action), Qt::LeftButton);
    }
    void select(Animation *animation) const { list()->addAnimation(animation, true); }
    QPoint at(QPoint cell) const
    {
        const int side = 16 * frames()->scale();
        return cell * side + QPoint(side / 2, side / 2);
    }
    void selectCell(QPoint cell) const
    {
        QTest::mouseClick(frames(), Qt::LeftButton, {}, at(cell));
    }
    void drop(int sprite, QPoint cell) const
    {
        if (!DragEvents::drop(frames(), at(cell), SpriteDrag::mimeData(sprite).get()))
            qFatal("the drop is refused");
    }

    std::unique_ptr<RecordedProject> m_project;
    std::unique_ptr<SpriteEditor::View> m_view;
};
