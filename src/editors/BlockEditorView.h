#pragma once

#include "history/EditTarget.h"
#include "model/TileAnimation.h"

#include <QPointer>
#include <QSplitter>
#include <QTimer>

class MapObjects;
class TilePickerTool;

namespace AnimationEditor {
class AnimationListWidget;
}

namespace BlockEditor {

class AnimationEditorWidget;

/// The tab that edits a block list: its blocks, one of which is open in the editor.
///
/// The view does not own the list; when that dies the view is empty. The clipboard commands work on
/// the selected cell: a copied cell is a tile that can be pasted.
class View : public QSplitter, public EditTarget
{
    Q_OBJECT

public:
    explicit View(MapObjects *blocks, QWidget *parent = nullptr);

    QPointer<MapObjects> blocks() const { return m_blocks; }
    AnimationEditor::AnimationListWidget *animationList() const { return m_animationList; }
    AnimationEditorWidget *editor() const { return m_editor; }

    /// Has double clicks of @p picker repeated by tileDoubleClicked(). Once is enough, and again
    /// after the picker has been disconnected.
    void followTilePicker(TilePickerTool *picker);

    void cut() override;
    void copy() override;
    void paste() override;
    void selectAll() override;
    void selectNone() override;

signals:
    /// @p index counts from 1.
    void tileDoubleClicked(int index);
    /// The block is about to be deleted.
    void animationRemoved(TileAnimation *animation);
    void animationAdded(TileAnimation *animation);

public slots:
    /// Makes a block of one blank tile and opens it.
    void addNewAnimation();
    /// Asks, and deletes the selected block.
    void deleteAnimation();
    /// Opens a copy of a block of this list.
    void cloneAnimation(Animation *animation);

private:
    friend class ViewBuilder;

    void listAnimations();
    void showAnimation(Animation *animation);
    void enter(TileAnimation *animation);
    bool confirmDeletion();
    void redraw();

    QPointer<MapObjects> m_blocks;
    AnimationEditor::AnimationListWidget *m_animationList = nullptr;
    AnimationEditorWidget *m_editor = nullptr;
    QTimer m_redraw; // once for many changes of tiles
};

} // namespace BlockEditor
