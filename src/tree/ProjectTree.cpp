#include "tree/ProjectTree.h"

#include "uikit/PlainText.h"
#include "uikit/ReadableColours.h"

#include <QKeyEvent>
#include <QMenu>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <array>

namespace {

constexpr int IdRole = Qt::UserRole; // the id of a document, the ProjectNode of a group

struct Group
{
    const char *text;
    Qt::GlobalColor colour;
};

constexpr std::array<Group, 6> Groups = {{
    {QT_TRANSLATE_NOOP("ProjectTree", "Palettes"), Qt::blue},
    {QT_TRANSLATE_NOOP("ProjectTree", "Tile Sets"), Qt::red},
    {QT_TRANSLATE_NOOP("ProjectTree", "Objects"), Qt::magenta},
    {QT_TRANSLATE_NOOP("ProjectTree", "Sprites"), Qt::green},
    {QT_TRANSLATE_NOOP("ProjectTree", "Maps"), Qt::cyan},
    {QT_TRANSLATE_NOOP("ProjectTree", "Images"), Qt::yellow},
}};

/// Long names are shown by their beginning, and edited whole. The colours of the groups are drawn
/// as strong as it takes to read them: yellow on white is not.
class NameDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &) const override
    {
        return PlainText::shown(value.toString());
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        const QColor plain = option->palette.color(QPalette::Text);
        QStyledItemDelegate::initStyleOption(option, index);
        option->palette.setColor(QPalette::Text, ReadableColours::strengthened(
                                                     option->palette.color(QPalette::Text), plain,
                                                     {option->palette.color(QPalette::Base)},
                                                     ReadableColours::TextContrast));
    }
};

/// From the last child to the first, so that the places of those to come stay.
void removeChildren(QTreeWidgetItem *parent, const QUuid &id)
{
    for (int i = parent->childCount() - 1; i >= 0; --i) {
        if (ProjectTree::idOf(parent->child(i)) == id)
            delete parent->takeChild(i);
    }
}

} // namespace

ProjectTree::ProjectTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAlternatingRowColors(false);
    setHeaderHidden(true);
    setAnimated(true);
    setRootIsDecorated(false);
    setMouseTracking(false);
    setFocusPolicy(Qt::NoFocus);
    setColumnCount(1);
    setItemDelegate(new NameDelegate(this));
    setExpandsOnDoubleClick(false);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setAccessibleName(tr("Project"));
    connect(this, &QWidget::customContextMenuRequested, this, &ProjectTree::showContextMenu);
    connect(this, &QTreeWidget::itemDoubleClicked, this, &ProjectTree::doubleClickFilter);
}

void ProjectTree::rebuild(const QString &projectName)
{
    const QSignalBlocker blocker(this);
    clear();
    auto *const root = new QTreeWidgetItem(this, {projectName});
    for (size_t i = 0; i < Groups.size(); ++i) {
        auto *const item = new QTreeWidgetItem(root, {tr(Groups[i].text)});
        item->setForeground(0, QColor(Groups[i].colour).lighter(150));
        item->setData(0, IdRole, static_cast<int>(i));
        item->setHidden(true);
    }
    expandAll();
}

void ProjectTree::addDocument(ProjectNode node, const QUuid &id, const QString &name)
{
    if (QTreeWidgetItem *const parent = group(node))
        addItem(parent, id, name);
}

void ProjectTree::addBlocks(const QUuid &tileSetId, const QUuid &id, const QString &name)
{
    QTreeWidgetItem *const tileSet = find(ProjectNode::TileSet, tileSetId);
    if (QTreeWidgetItem *const parent = tileSet ? tileSet : group(ProjectNode::Objects))
        addItem(parent, id, name);
}

void ProjectTree::addItem(QTreeWidgetItem *parent, const QUuid &id, const QString &name)
{
    const QSignalBlocker blocker(this);
    auto *const item = new QTreeWidgetItem({name});
    item->setData(0, IdRole, id);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    parent->setHidden(false);
    parent->addChild(item);
    parent->sortChildren(0, Qt::AscendingOrder);
    parent->setExpanded(true);
    if (parent == group(ProjectNode::Palette))
        parent->setHidden(true);
}

void ProjectTree::removeItem(ProjectNode node, const QUuid &id)
{
    if (node == ProjectNode::Objects) {
        for (size_t i = 0; i < Groups.size(); ++i) {
            QTreeWidgetItem *const parent = group(static_cast<ProjectNode>(i));
            for (int child = 0; parent && child < parent->childCount(); ++child)
                removeChildren(parent->child(child), id);
        }
    }
    if (QTreeWidgetItem *const parent = group(node))
        removeChildren(parent, id);
}

bool ProjectTree::isDocument(const QTreeWidgetItem *item)
{
    return item && item->parent() &&
           item->data(0, IdRole).metaType() == QMetaType::fromType<QUuid>();
}

QUuid ProjectTree::idOf(const QTreeWidgetItem *item)
{
    return isDocument(item) ? item->data(0, IdRole).toUuid() : QUuid();
}

ProjectTree::ProjectNode ProjectTree::nodeOf(const QTreeWidgetItem *item)
{
    if (isDocument(item->parent()))
        return ProjectNode::Objects;
    return static_cast<ProjectNode>(item->parent()->data(0, IdRole).toInt());
}

QTreeWidgetItem *ProjectTree::group(ProjectNode node) const
{
    const QTreeWidgetItem *const root = topLevelItem(0);
    return root ? root->child(static_cast<int>(node)) : nullptr;
}

QTreeWidgetItem *ProjectTree::find(ProjectNode node, const QUuid &id) const
{
    for (QTreeWidgetItemIterator it(const_cast<ProjectTree *>(this)); *it; ++it) {
        if (isDocument(*it) && idOf(*it) == id && nodeOf(*it) == node)
            return *it;
    }
    return nullptr;
}

void ProjectTree::doubleClickFilter(QTreeWidgetItem *item, int)
{
    if (isDocument(item))
        emit itemDoubleClicked(nodeOf(item), idOf(item));
}

void ProjectTree::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && state() != EditingState)
        doubleClickFilter(currentItem(), 0);
    else
        QTreeWidget::keyPressEvent(event);
}

void ProjectTree::showContextMenu(QPoint pos)
{
    const QTreeWidgetItem *const item = itemAt(pos);
    if (isDocument(item) && !idOf(item).isNull())
        showItemContextMenu(nodeOf(item), pos, idOf(item));
}

void ProjectTree::showItemContextMenu(ProjectNode type, QPoint pos, QUuid id)
{
    QMenu menu;
    const QAction *const rename = menu.addAction(tr("Rename"));
    const QAction *const remove = menu.addAction(tr("Delete"));
    const QAction *const copy = menu.addAction(tr("Copy"));
    const QAction *const chosen = menu.exec(viewport()->mapToGlobal(pos));
    if (!chosen)
        return;

    if (chosen == rename) {
        if (QTreeWidgetItem *const item = find(type, id))
            editItem(item, 0);
    } else if (chosen == remove) {
        emit deleteItem(type, id);
    } else if (chosen == copy) {
        emit copyItem(type, id);
    }
}
