#pragma once

#include "model/TileAnimation.h"
#include "uikit/DockWidget.h"

#include <QList>
#include <QPointer>
#include <QTimer>

class MapObjects;
class QComboBox;
class TileSet;

namespace AnimationEditor {
class AnimationListWidget;
}

/// The dock from which a block animation is chosen to be placed on a map: a block list of the
/// active tile set, and one of its blocks.
class BlockSelectorWindow : public DockWidget
{
    Q_OBJECT

public:
    explicit BlockSelectorWindow(QWidget *parent = nullptr);

    /// Offers the block lists of @p tileSet; null shows the placeholder.
    void setTileSet(const QPointer<TileSet> &tileSet);

signals:
    void selectedItemChanged(QPointer<TileAnimation> item);

public slots:
    /// Shows the blocks of a list.
    void changeList(int index);

private:
    void showTitle();
    void listBlocks();

    QPointer<TileSet> m_tileSet;
    QList<QPointer<MapObjects>> m_blockLists; // as in the combo box
    QComboBox *m_listCombo;
    AnimationEditor::AnimationListWidget *m_animations;
    QTimer m_iconUpdate; // once for many changes of tiles
};
