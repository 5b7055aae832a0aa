#pragma once

#include "editors/AnimationEditorWidget.h"
#include "editors/AnimationListWidget.h"
#include "editors/BlockEditorView.h"
#include "editors/FrameEditorWidget.h"
#include "support/RecordedProject.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <memory>

/// A shown block tab over a recorded list of one block, "Door", of 2 by 1 cells and two frames.
struct BlockViewFixture
{
    using AnimationListWidget = AnimationEditor::AnimationListWidget;
    using FrameEditorWidget = AnimationEditor::FrameEditorWidget;
    using AnimationEditorWidget = BlockEditor::AnimationEditorWidget;
    using View = BlockEditor::View;

    void open()
    {
        qRegisterMetaType<TileAnimation *>();
        m_set = std::make_unique<RecordedProject>();
        m_set->stacks.setActive(m_set->tileSet->id());
        m_view = std::make_unique<View>(m_set->blocks);
        m_view->resize(800, 500);
        m_view->show();
    }
    void close()
    {
        m_view.reset();
        m_set.reset();
    }

    AnimationEditorWidget *editor() const { return m_view->editor(); }
    FrameEditorWidget *frames() const { return editor()->frameEditor(); }
    AnimationListWidget *list() const { return m_view->animationList(); }
    QListWidget *items() const { return list()->findChild<QListWidget *>(); }
    QPushButton *button(const QString &toolTip) const
    {
        for (QPushButton *one : list()->findChildren<QPushButton *>()) {
            if (one->toolTip() == toolTip)
                return one;
        }
        return nullptr;
    }
    void pressDelete() const
    {
        QTest::mouseClick(button(QStringLiteral("Delete the selected animation")), Qt::LeftButton);
    }
    void select(Animation *animation) const { list()->addAnimation(animation, true); }
    static QPoint at(QPoint cell) { return cell * 64 + QPoint(32, 32); }
    void selectCell(QPoint cell) const
    {
        QTest::mouseClick(frames(), Qt::LeftButton, {}, at(cell));
    }
    QColor shownColour(QPoint cell) const
    {
        return frames()->grab().toImage().pixelColor(at(cell));
    }
    TileAnimation *addBlock(const QString &name) const
    {
        TileAnimation *block = m_set->blocks->createTileAnimation(name);
        block->setTileSet(m_set->tileSet);
        block->addFrame();
        block->notifyContentChanged();
        return block;
    }
    void deleteBlockList() const
    {
        if (!m_set->project.deleteMap(m_set->map->id()) || // which uses it
            !m_set->project.deleteBlocks(m_set->blocks->id()))
            qFatal("the block list stays");
    }

    std::unique_ptr<RecordedProject> m_set;
    std::unique_ptr<View> m_view;
};
