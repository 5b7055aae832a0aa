#pragma once

#include "tree/ProjectTree.h"
#include "uikit/DockWidget.h"

#include <QPointer>
#include <QUuid>

class Project;

/// The dock that shows the project as a tree. Keeps the tree in step with the project, renames
/// documents, and says which one the user picks.
class ProjectWindow : public DockWidget
{
    Q_OBJECT

public:
    explicit ProjectWindow(QWidget *parent = nullptr);

    ProjectTree *tree() const { return m_tree; }

signals:
    void selectedPaletteChanged(QUuid id);
    void selectedTileSetChanged(QUuid id);
    void selectedBlocksChanged(QUuid id);
    void selectedSpritesChanged(QUuid id);
    void selectedMapChanged(QUuid id);
    void selectedImageChanged(QUuid id);
    void deleteItemTriggered(ProjectTree::ProjectNode node, QUuid id);
    void copyItemTriggered(ProjectTree::ProjectNode node, QUuid id);
    /// The user gave a document another name in the tree.
    void documentRenamed(QUuid id, QString name);

public slots:
    /// Starts an empty tree for a project of that name.
    void newProject(QString name);
    /// Shows a project and follows it; null lets go of the one shown.
    void setProject(QPointer<Project> project);
    void removeItem(ProjectTree::ProjectNode node, QUuid id);
    void itemDoubleClicked(ProjectTree::ProjectNode node, QUuid id);
    /// Gives the document of @p item its new name.
    void itemEdited(QTreeWidgetItem *item, int column);

private:
    void follow();
    void fill();
    void rename(ProjectTree::ProjectNode node, const QUuid &id, const QString &name);

    ProjectTree *m_tree;
    QPointer<Project> m_project;
};
