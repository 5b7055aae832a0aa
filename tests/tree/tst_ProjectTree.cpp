#include "tree/ProjectTree.h"

#include "uikit/ReadableColours.h"

#include <QHash>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <algorithm>

using Node = ProjectTree::ProjectNode;

class tst_ProjectTree : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isSetUpForDocuments();
    void rebuildMakesSixHiddenGroupsInOrder();
    void groupsCanBeReadOnEveryGround_data();
    void groupsCanBeReadOnEveryGround();
    void aGroupShowsOnceItHasADocument();
    void palettesNeverShow();
    void documentsAreSortedByName();
    void blocksLieUnderTheirTileSet();
    void blocksWithoutATileSetLieUnderTheObjects();
    void removeTakesOutEveryItemOfThatId();
    void removeOfAnUnknownIdChangesNothing();
    void doubleClickOnADocumentNamesIt();
    void doubleClickOnAGroupDoesNothing();
    void returnDoesWhatADoubleClickDoes();
    void contextMenuActions_data();
    void contextMenuActions();
    void noMenuForRootAndGroups();
    void namesAreNotTakenForMarkup();

private:
    QTreeWidgetItem *group(Node node) const
    {
        return m_tree->topLevelItem(0)->child(static_cast<int>(node));
    }
    QStringList texts(const QTreeWidgetItem *parent) const;
    void doubleClick(QTreeWidgetItem *item);
    /// Right-clicks and triggers the entry of that text. The texts of the menu, empty without one.
    QStringList chooseFromMenu(QTreeWidgetItem *item, const QString &entry);

    std::unique_ptr<ProjectTree> m_tree;
    const QUuid m_first = QUuid::createUuid();
    const QUuid m_second = QUuid::createUuid();
};

void tst_ProjectTree::init()
{
    m_tree = std::make_unique<ProjectTree>();
    m_tree->resize(300, 400);
    m_tree->rebuild("game");
    m_tree->show();
    m_tree->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tree.get()));
}

QStringList tst_ProjectTree::texts(const QTreeWidgetItem *parent) const
{
    QStringList texts;
    for (int i = 0; i < parent->childCount(); ++i)
        texts += parent->child(i)->text(0);
    return texts;
}

void tst_ProjectTree::doubleClick(QTreeWidgetItem *item)
{
    const QPoint centre = m_tree->visualItemRect(item).center();
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(m_tree->viewport(), Qt::LeftButton, {}, centre);
}

QStringList tst_ProjectTree::chooseFromMenu(QTreeWidgetItem *item, const QString &entry)
{
    QStringList texts;
    QTimer::singleShot(0, m_tree.get(), [&texts, &entry] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *const action : menu->actions()) {
            texts += action->text();
            if (action->text() == entry)
                menu->setActiveAction(action);
        }
        QTest::keyClick(menu, menu->activeAction() ? Qt::Key_Return : Qt::Key_Escape);
    });
    emit m_tree->customContextMenuRequested(m_tree->visualItemRect(item).center());
    QCoreApplication::processEvents();
    return texts;
}

void tst_ProjectTree::isSetUpForDocuments()
{
    QCOMPARE(m_tree->contextMenuPolicy(), Qt::CustomContextMenu);
    QVERIFY(!m_tree->alternatingRowColors());
    QVERIFY(m_tree->isHeaderHidden());
    QVERIFY(m_tree->isAnimated());
    QVERIFY(!m_tree->rootIsDecorated());
    QVERIFY(!m_tree->hasMouseTracking());
    QCOMPARE(m_tree->focusPolicy(), Qt::NoFocus);
    QCOMPARE(m_tree->columnCount(), 1);
    QVERIFY(!m_tree->expandsOnDoubleClick());
    QCOMPARE(m_tree->editTriggers(), QAbstractItemView::EditKeyPressed);
}

void tst_ProjectTree::rebuildMakesSixHiddenGroupsInOrder()
{
    m_tree->addDocument(Node::Map, m_first, "old");

    m_tree->rebuild("other game");

    QCOMPARE(m_tree->topLevelItemCount(), 1);
    QCOMPARE(m_tree->topLevelItem(0)->text(0), QString("other game"));
    QCOMPARE(texts(m_tree->topLevelItem(0)),
             QStringList({"Palettes", "Tile Sets", "Objects", "Sprites", "Maps", "Images"}));
    const Qt::GlobalColor colours[] = {Qt::blue,  Qt::red,  Qt::magenta,
                                       Qt::green, Qt::cyan, Qt::yellow};
    for (int i = 0; i < 6; ++i) {
        const QTreeWidgetItem *const item = m_tree->topLevelItem(0)->child(i);
        QVERIFY(item->isHidden());
        QCOMPARE(item->data(0, Qt::UserRole).toInt(), i);
        QCOMPARE(item->foreground(0).color(), QColor(colours[i]).lighter(150));
        QCOMPARE(item->childCount(), 0);
    }
}

void tst_ProjectTree::groupsCanBeReadOnEveryGround_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<bool>("isAsTold"); // each in its own colour
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black) << false;
    QTest::newRow("dark") << QColor(20, 20, 20) << QColor(Qt::white) << true;
}

void tst_ProjectTree::groupsCanBeReadOnEveryGround()
{
    QFETCH(QColor, ground);
    QFETCH(QColor, text);
    QFETCH(bool, isAsTold);
    QPalette colours = m_tree->palette();
    colours.setColor(QPalette::Base, ground);
    colours.setColor(QPalette::Text, text);
    m_tree->setPalette(colours);
    QFont large = m_tree->font();
    large.setPixelSize(40); // with pixels that no edge softens
    m_tree->setFont(large);
    m_tree->resize(400, 600);
    for (const Node node : {Node::TileSet, Node::Objects, Node::Sprites, Node::Map, Node::Image})
        m_tree->addDocument(node, QUuid::createUuid(), "a");
    m_tree->show();

    const QImage shown = m_tree->viewport()->grab().toImage();
    for (int i = 1; i < 6; ++i) {
        const QTreeWidgetItem *const item = m_tree->topLevelItem(0)->child(i);
        const QRect row = m_tree->visualItemRect(item);
        QHash<QRgb, int> counts;
        for (int y = row.top(); y <= row.bottom(); ++y) {
            for (int x = row.left(); x <= row.right(); ++x)
                counts[shown.pixel(x, y)] += shown.pixel(x, y) != ground.rgb();
        }
        const QColor drawn(std::max_element(counts.cbegin(), counts.cend()).key());
        QVERIFY2(ReadableColours::contrast(drawn, ground) >= ReadableColours::TextContrast,
                 qPrintable(item->text(0) + " " + drawn.name()));
        QCOMPARE(drawn.rgb() == item->foreground(0).color().rgb(), isAsTold);
    }
}

void tst_ProjectTree::aGroupShowsOnceItHasADocument()
{
    m_tree->addDocument(Node::Sprites, m_first, "heroes");

    QVERIFY(!group(Node::Sprites)->isHidden());
    QVERIFY(group(Node::Sprites)->isExpanded());
    QVERIFY(group(Node::Map)->isHidden());
    const QTreeWidgetItem *const item = group(Node::Sprites)->child(0);
    QCOMPARE(item->data(0, Qt::UserRole).toUuid(), m_first);
    QVERIFY(item->flags().testFlag(Qt::ItemIsEditable));
}

void tst_ProjectTree::palettesNeverShow()
{
    m_tree->addDocument(Node::Palette, m_first, "sunset");

    QVERIFY(group(Node::Palette)->isHidden());
    QCOMPARE(texts(group(Node::Palette)), QStringList({"sunset"}));
}

void tst_ProjectTree::documentsAreSortedByName()
{
    m_tree->addDocument(Node::Map, m_first, "level 2");
    m_tree->addDocument(Node::Map, m_second, "level 1");

    QCOMPARE(texts(group(Node::Map)), QStringList({"level 1", "level 2"}));
}

void tst_ProjectTree::blocksLieUnderTheirTileSet()
{
    m_tree->addDocument(Node::TileSet, m_first, "castle");

    m_tree->addBlocks(m_first, m_second, "lifts");

    QVERIFY(group(Node::Objects)->isHidden());
    QTreeWidgetItem *const tileSet = group(Node::TileSet)->child(0);
    QCOMPARE(texts(tileSet), QStringList({"lifts"}));
    QVERIFY(tileSet->isExpanded());
    QCOMPARE(ProjectTree::nodeOf(tileSet->child(0)), Node::Objects);
    QCOMPARE(ProjectTree::nodeOf(tileSet), Node::TileSet);
}

void tst_ProjectTree::blocksWithoutATileSetLieUnderTheObjects()
{
    m_tree->addBlocks(QUuid(), m_first, "orphans");

    QCOMPARE(texts(group(Node::Objects)), QStringList({"orphans"}));
    QCOMPARE(ProjectTree::nodeOf(group(Node::Objects)->child(0)), Node::Objects);
}

void tst_ProjectTree::removeTakesOutEveryItemOfThatId()
{
    m_tree->addDocument(Node::TileSet, m_first, "castle");
    m_tree->addBlocks(m_first, m_second, "lifts");
    m_tree->addDocument(Node::Map, m_second, "a map of the same id");

    m_tree->removeItem(Node::Objects, m_second);
    QCOMPARE(group(Node::TileSet)->child(0)->childCount(), 0);
    QCOMPARE(group(Node::Map)->childCount(), 1);
    m_tree->removeItem(Node::Map, m_second);
    m_tree->removeItem(Node::TileSet, m_first);

    QCOMPARE(group(Node::Map)->childCount(), 0);
    QCOMPARE(group(Node::TileSet)->childCount(), 0);
}

void tst_ProjectTree::removeOfAnUnknownIdChangesNothing()
{
    m_tree->addDocument(Node::Map, m_first, "level");

    m_tree->removeItem(Node::Map, m_second);
    m_tree->removeItem(Node::Sprites, m_first);

    QCOMPARE(texts(group(Node::Map)), QStringList({"level"}));
}

void tst_ProjectTree::doubleClickOnADocumentNamesIt()
{
    m_tree->addDocument(Node::Map, m_first, "level");
    QSignalSpy picked(m_tree.get(), &ProjectTree::itemDoubleClicked);

    doubleClick(group(Node::Map)->child(0));

    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().at(0).value<Node>(), Node::Map);
    QCOMPARE(picked.first().at(1).toUuid(), m_first);
}

void tst_ProjectTree::returnDoesWhatADoubleClickDoes()
{
    m_tree->addDocument(Node::Map, m_first, "level");
    QSignalSpy picked(m_tree.get(), &ProjectTree::itemDoubleClicked);

    m_tree->setCurrentItem(group(Node::Map));
    QTest::keyClick(m_tree.get(), Qt::Key_Return);
    QCOMPARE(picked.count(), 0);
    m_tree->setCurrentItem(group(Node::Map)->child(0));
    QTest::keyClick(m_tree.get(), Qt::Key_Return);

    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().at(1).toUuid(), m_first);
}

void tst_ProjectTree::doubleClickOnAGroupDoesNothing()
{
    m_tree->addDocument(Node::Map, m_first, "level");
    QSignalSpy picked(m_tree.get(), &ProjectTree::itemDoubleClicked);

    doubleClick(group(Node::Map));
    doubleClick(m_tree->topLevelItem(0));

    QCOMPARE(picked.count(), 0);
    QVERIFY(group(Node::Map)->isExpanded());
    QVERIFY(m_tree->topLevelItem(0)->isExpanded());
}

void tst_ProjectTree::contextMenuActions_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("deletes");
    QTest::addColumn<int>("copies");
    QTest::newRow("delete") << "Delete" << 1 << 0;
    QTest::newRow("copy") << "Copy" << 0 << 1;
    QTest::newRow("rename") << "Rename" << 0 << 0;
}

void tst_ProjectTree::contextMenuActions()
{
    QFETCH(QString, entry);
    QFETCH(int, deletes);
    QFETCH(int, copies);
    m_tree->addDocument(Node::Image, m_first, "title");
    QSignalSpy deleted(m_tree.get(), &ProjectTree::deleteItem);
    QSignalSpy copied(m_tree.get(), &ProjectTree::copyItem);

    const QStringList texts = chooseFromMenu(group(Node::Image)->child(0), entry);

    QCOMPARE(texts, QStringList({"Rename", "Delete", "Copy"}));
    QCOMPARE(deleted.count(), deletes);
    QCOMPARE(copied.count(), copies);
    const auto &spy = deletes ? deleted : copied;
    if (!spy.isEmpty())
        QCOMPARE(spy.first(), QVariantList({QVariant::fromValue(Node::Image), m_first}));
    QCOMPARE(m_tree->findChild<QLineEdit *>() != nullptr, entry == "Rename");
}

void tst_ProjectTree::noMenuForRootAndGroups()
{
    m_tree->addDocument(Node::Map, m_first, "level");

    QCOMPARE(chooseFromMenu(m_tree->topLevelItem(0), "Delete"), QStringList());
    QCOMPARE(chooseFromMenu(group(Node::Map), "Delete"), QStringList());
}

void tst_ProjectTree::namesAreNotTakenForMarkup()
{
    const QString name = "<b>%1\nlevel</b>";

    m_tree->addDocument(Node::Map, m_first, name);

    QCOMPARE(group(Node::Map)->child(0)->text(0), name);
}

QTEST_MAIN(tst_ProjectTree)
#include "tst_ProjectTree.moc"
