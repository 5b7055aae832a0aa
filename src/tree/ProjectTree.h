#pragma once

#include <QTreeWidget>
#include <QUuid>

/// Everything in the project as a tree: one root, a group for each kind, a document in its group.
///
/// A group bears its ProjectNode, a document its id. A block list lies under its tile set. The
/// group of the palettes never shows: palettes are reached through the other windows.
class ProjectTree : public QTreeWidget
{
    Q_OBJECT

public:
    /// The kinds of documents, and the order of their groups.
    enum class ProjectNode {
        Palette = 0,
        TileSet = 1,
        Objects = 2,
        Sprites = 3,
        Map = 4,
        Image = 5
    };
    Q_ENUM(ProjectNode)

    explicit ProjectTree(QWidget *parent = nullptr);

    /// Empties the tree and makes the root and the groups, each hidden until it has a document.
    void rebuild(const QString &projectName);
    void addDocument(ProjectNode node, const QUuid &id, const QString &name);
    /// Adds a block list under its tile set, or under the objects if that is not in the tree.
    void addBlocks(const QUuid &tileSetId, const QUuid &id, const QString &name);
    void removeItem(ProjectNode node, const QUuid &id);

    /// Whether @p item is a document, and not the root or a group.
    static bool isDocument(const QTreeWidgetItem *item);
    static QUuid idOf(const QTreeWidgetItem *item);
    /// The kind of a document item.
    static ProjectNode nodeOf(const QTreeWidgetItem *item);

signals:
    void itemDoubleClicked(ProjectTree::ProjectNode node, QUuid id);
    void copyItem(ProjectTree::ProjectNode node, QUuid id);
    void deleteItem(ProjectTree::ProjectNode node, QUuid id);

public slots:
    void showContextMenu(QPoint pos);
    void doubleClickFilter(QTreeWidgetItem *item, int column);
    /// @p pos in the viewport.
    void showItemContextMenu(ProjectTree::ProjectNode type, QPoint pos, QUuid id);

protected:
    /// Return does what a double click does.
    void keyPressEvent(QKeyEvent *event) override;

private:
    QTreeWidgetItem *group(ProjectNode node) const;
    QTreeWidgetItem *find(ProjectNode node, const QUuid &id) const;
    void addItem(QTreeWidgetItem *parent, const QUuid &id, const QString &name);
};
