#pragma once

#include "editors/AnimationEditorWidget.h"
#include "editors/FrameEditorWidget.h"
#include "editors/MapObjectTypeCombo.h"
#include "editors/TileDrag.h"
#include "support/DialogDriver.h"
#include "support/DragEvents.h"
#include "support/RecordedProject.h"
#include "uikit/ToolPalette.h"

#include <QAction>
#include <QLabel>
#include <QMimeData>
#include <QSpinBox>
#include <QTest>

#include <memory>

/// A shown pane that edits a recorded block, "Door", of 2 by 1 cells and two frames.
struct BlockPaneFixture
{
    using FrameEditorWidget = AnimationEditor::FrameEditorWidget;
    using AnimationEditorWidget = BlockEditor::AnimationEditorWidget;
    using Action = AnimationControlWidget::Action;
    using Tool = Tessaril::Ui::ToolButton;

    void open()
    {
        m_set = std::make_unique<RecordedProject>();
        m_set->stacks.setActive(m_set->tileSet->id());
        m_editor = std::make_unique<AnimationEditorWidget>();
        m_editor->resize(600, 400);
        m_editor->show();
        m_editor->setAnimation(m_set->block);
    }
    void close()
    {
        m_editor.reset();
        m_set.reset();
    }

    FrameEditorWidget *frames() const { return m_editor->frameEditor(); }
    QAction *tool(Tool button) const { return m_editor->toolPalette()->action(button); }
    QSpinBox *spin(const char *name) const
    {
        return DialogDriver::field<QSpinBox>(*m_editor, QString::fromLatin1(name));
    }
    QString label() const { return m_editor->controls()->findChild<QLabel *>()->text(); }
    QUndoStack *stack() const { return m_set->stackOf(m_set->tileSet->id()); }
    AnimationFrame::Cell cell(QPoint position, int frame = 0) const
    {
        return m_set->block->frame(frame)->cell(position);
    }

    void click(Action action) const { m_editor->controls()->action(action)->trigger(); }
    void addFrames(int count) const
    {
        for (int i = 0; i < count; ++i)
            m_set->block->addFrame();
        m_set->block->notifyContentChanged();
    }
    static QPoint at(QPoint cell) { return cell * 64 + QPoint(32, 32); }
    void selectCell(QPoint cell) const
    {
        QTest::mouseClick(frames(), Qt::LeftButton, {}, at(cell));
    }
    void drop(const TileDrag::Content &tile, QPoint cell) const
    {
        if (!DragEvents::drop(frames(), at(cell), TileDrag::mimeData(tile).get()))
            qFatal("the drop is refused");
    }

    std::unique_ptr<RecordedProject> m_set;
    std::unique_ptr<AnimationEditorWidget> m_editor;
};
