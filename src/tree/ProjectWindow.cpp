#include "tree/ProjectWindow.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"

#include <QSignalBlocker>

using Node = ProjectTree::ProjectNode;

ProjectWindow::ProjectWindow(QWidget *parent)
    : DockWidget(parent)
    , m_tree(new ProjectTree)
{
    setAutoFillBackground(true);
    setObjectName(QStringLiteral("ProjectWindow"));
    setWindowTitle(tr("Project"));
    setPlaceholderText(tr("No project loaded"));
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    setContentWidget(m_tree);
    setFocusProxy(m_tree); // which takes the focus neither by a click nor by Tab
    connect(m_tree, &ProjectTree::itemDoubleClicked, this, &ProjectWindow::itemDoubleClicked);
    connect(m_tree, &QTreeWidget::itemChanged, this, &ProjectWindow::itemEdited);
    connect(m_tree, &ProjectTree::deleteItem, this, &ProjectWindow::deleteItemTriggered);
    connect(m_tree, &ProjectTree::copyItem, this, &ProjectWindow::copyItemTriggered);
}

void ProjectWindow::newProject(QString name)
{
    m_tree->rebuild(name);
}

void ProjectWindow::setProject(QPointer<Project> project)
{
    if (m_project)
        disconnect(m_project, nullptr, this, nullptr);
    m_project = project;
    if (!m_project)
        return;

    newProject(m_project->name());
    showContent();
    follow();
    fill();
}

void ProjectWindow::follow()
{
    connect(m_project, &Project::paletteCreated, this, [this](const QPointer<Palette> &palette) {
        m_tree->addDocument(Node::Palette, palette->id(), palette->name());
    });
    connect(m_project, &Project::tilesetCreated, this, [this](const QPointer<TileSet> &set) {
        m_tree->addDocument(Node::TileSet, set->id(), set->name());
    });
    connect(m_project, &Project::blocksCreated, this, [this](const QPointer<MapObjects> &blocks) {
        const auto set = blocks->tileSet();
        m_tree->addBlocks(set ? set->id() : QUuid(), blocks->id(), blocks->name());
    });
    connect(m_project, &Project::mapCreated, this, [this](const QPointer<Map> &map) {
        m_tree->addDocument(Node::Map, map->id(), map->name());
    });
    connect(m_project, &Project::spritesCreated, this, [this](const QPointer<SpriteBank> &bank) {
        m_tree->addDocument(Node::Sprites, bank->id(), bank->name());
    });
    connect(m_project, &Project::imageCreated, this, [this](const QPointer<Image> &image) {
        m_tree->addDocument(Node::Image, image->id(), image->name());
    });
}

void ProjectWindow::fill()
{
    const auto blockLists = m_project->mapObjects();
    const auto addBlocksOf = [this, &blockLists](const TileSet *set) {
        for (const auto &blocks : blockLists) {
            if (blocks->tileSet() == set)
                m_tree->addBlocks(set ? set->id() : QUuid(), blocks->id(), blocks->name());
        }
    };
    for (const auto &palette : m_project->palettes())
        m_tree->addDocument(Node::Palette, palette->id(), palette->name());
    for (const auto &set : m_project->tileSets()) {
        m_tree->addDocument(Node::TileSet, set->id(), set->name());
        addBlocksOf(set);
    }
    addBlocksOf(nullptr);
    for (const auto &bank : m_project->spriteBanks())
        m_tree->addDocument(Node::Sprites, bank->id(), bank->name());
    for (const auto &map : m_project->maps())
        m_tree->addDocument(Node::Map, map->id(), map->name());
    for (const auto &image : m_project->images())
        m_tree->addDocument(Node::Image, image->id(), image->name());
}

void ProjectWindow::removeItem(Node node, QUuid id)
{
    m_tree->removeItem(node, id);
}

void ProjectWindow::itemDoubleClicked(Node node, QUuid id)
{
    switch (node) {
    case Node::Palette:
        emit selectedPaletteChanged(id);
        break;
    case Node::TileSet:
        emit selectedTileSetChanged(id);
        break;
    case Node::Objects:
        emit selectedBlocksChanged(id);
        break;
    case Node::Sprites:
        emit selectedSpritesChanged(id);
        break;
    case Node::Map:
        emit selectedMapChanged(id);
        break;
    case Node::Image:
        emit selectedImageChanged(id);
        break;
    }
}

void ProjectWindow::itemEdited(QTreeWidgetItem *item, int)
{
    if (!m_project || !ProjectTree::isDocument(item))
        return;
    const Node node = ProjectTree::nodeOf(item);
    const QUuid id = ProjectTree::idOf(item);
    const QString name = item->text(0);
    {
        const QSignalBlocker blocker(m_tree);
        item->parent()->sortChildren(0, Qt::AscendingOrder);
    }
    rename(node, id, name);
    emit documentRenamed(id, name);
}

void ProjectWindow::rename(Node node, const QUuid &id, const QString &name)
{
    const auto apply = [&name](const auto &document) {
        if (document)
            document->setName(name);
    };
    switch (node) {
    case Node::Palette:
        apply(m_project->palette(id));
        break;
    case Node::TileSet:
        apply(m_project->tileSet(id));
        break;
    case Node::Objects:
        apply(m_project->blocks(id));
        break;
    case Node::Sprites:
        apply(m_project->spriteBank(id));
        break;
    case Node::Map:
        apply(m_project->map(id));
        break;
    case Node::Image:
        apply(m_project->image(id));
        break;
    }
}
