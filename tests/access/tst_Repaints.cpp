#include "access/DocumentChanges.h"
#include "access/Surfaces.h"
#include "access/WidgetChanges.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "support/Screen.h"
#include "uikit/Expandable.h"

#include <QListWidget>
#include <QTest>
#include <QUndoStack>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using DocumentType = DocumentTabView::DocumentType;
Q_DECLARE_METATYPE(DocumentType)

namespace {

/// Side by side: a dock behind another one paints nothing.
void showAllDocks(MainWindow *window)
{
    const DocumentViews &views = window->views();
    window->resize(1900, 1300);
    const QList<DockWidget *> docks{views.paletteWindow, views.tileWindow,    views.spriteWindow,
                                    views.tilePicker,    views.blockSelector, views.mapSprites};
    for (DockWidget *dock : docks)
        window->removeDockWidget(dock);
    window->addDockWidget(Qt::RightDockWidgetArea, views.tileWindow);
    window->splitDockWidget(views.tileWindow, views.paletteWindow, Qt::Horizontal);
    window->addDockWidget(Qt::RightDockWidgetArea, views.spriteWindow, Qt::Vertical);
    window->splitDockWidget(views.paletteWindow, views.spriteWindow, Qt::Vertical);
    window->addDockWidget(Qt::LeftDockWidgetArea, views.blockSelector);
    window->addDockWidget(Qt::LeftDockWidgetArea, views.mapSprites);
    window->addDockWidget(Qt::BottomDockWidgetArea, views.tilePicker);
    for (DockWidget *dock : docks)
        dock->show();
    for (Expandable *section : window->findChildren<Expandable *>())
        section->expand();
}

} // namespace

/// Whatever happens, the screen shows what a fresh paint would show.
class tst_Repaints : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_surfaces.reset(); }

    void aMissingPaintIsFound();
    void changesOfDocumentsAreShown_data() { addTabs(); }
    void changesOfDocumentsAreShown();
    void undoneChangesAreShown_data() { addTabs(); }
    void undoneChangesAreShown();
    void changesOfViewsAreShown_data() { addTabs(); }
    void changesOfViewsAreShown();
    void allSurfacesAreShown();

private:
    static void addTabs();
    void bringToFront(DocumentType type);
    /// Makes them one by one, and tells after which of them the screen is out of date.
    static QStringList staleAfter(const Changes &changes);
    QList<QUndoStack *> stacks();

    std::unique_ptr<Surfaces> m_surfaces;
};

void tst_Repaints::initTestCase()
{
#ifdef __GLIBC__
    // Pictures of the window come and go; to fetch their memory anew takes longer than to paint.
    mallopt(M_MMAP_THRESHOLD, 1 << 28);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
#endif
}

void tst_Repaints::init()
{
    m_surfaces = std::make_unique<Surfaces>();
    Screen::holdStill();
    showAllDocks(m_surfaces->window());
    QCOMPARE(Screen::staleParts(), QStringList());
}

void tst_Repaints::addTabs()
{
    QTest::addColumn<DocumentType>("tab");
    QTest::newRow("map") << DocumentType::Map;
    QTest::newRow("image") << DocumentType::Image;
    QTest::newRow("sprites") << DocumentType::Sprites;
    QTest::newRow("blocks") << DocumentType::Blocks;
}

void tst_Repaints::bringToFront(DocumentType type)
{
    DocumentTabView *const tabs = m_surfaces->views().tabs;
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i)->property("document_type").value<DocumentType>() == type)
            tabs->setCurrentIndex(i);
    }
    for (QListWidget *list : tabs->currentWidget()->findChildren<QListWidget *>())
        list->setCurrentRow(0);
    QCOMPARE(tabs->currentWidget()->property("document_type").value<DocumentType>(), type);
}

QStringList tst_Repaints::staleAfter(const Changes &changes)
{
    QStringList stale = Screen::staleParts();
    for (const Change &change : changes) {
        change.make();
        for (const QString &part : Screen::staleParts())
            stale += change.name + ": " + part;
    }
    return stale;
}

QList<QUndoStack *> tst_Repaints::stacks()
{
    DocumentController *const documents = m_surfaces->window()->documentController();
    const Project *const project = m_surfaces->project();
    QList<QUndoStack *> all{documents->undoStack(QUuid())};
    const auto add = [&](const auto &list) {
        for (const auto &document : list)
            all += documents->undoStack(document->id());
    };
    add(project->palettes());
    add(project->tileSets());
    add(project->spriteBanks());
    add(project->maps());
    add(project->mapObjects());
    add(project->images());
    return all;
}

/// The check itself, in all its parts.
void tst_Repaints::aMissingPaintIsFound()
{
    class Forgetful : public QWidget
    {
    public:
        QColor colour = Qt::red;

    protected:
        void paintEvent(QPaintEvent *) override
        {
            QPainter(this).fillRect(QRect(10, 20, 5, 7), colour);
        }
    };
    Forgetful widget;
    widget.setAccessibleName("Sign");
    widget.resize(100, 100);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCOMPARE(Screen::staleParts(), QStringList());

    widget.colour = Qt::blue;

    QCOMPARE(Screen::staleParts(), QStringList("QWidget \"Sign\" at 10,20 5x7"));
    widget.update();
    QCOMPARE(Screen::staleParts(), QStringList());
}

void tst_Repaints::changesOfDocumentsAreShown()
{
    QFETCH(DocumentType, tab);
    bringToFront(tab);

    const QStringList stale = staleAfter(DocumentChanges::all(*m_surfaces));

    QVERIFY2(stale.isEmpty(), qPrintable(stale.join(QLatin1Char('\n'))));
}

void tst_Repaints::undoneChangesAreShown()
{
    QFETCH(DocumentType, tab);
    bringToFront(tab);
    const QWidget *const front = m_surfaces->views().tabs->currentWidget();
    for (const Change &change : WidgetChanges::of(front, *m_surfaces->project()) +
                                    DocumentChanges::ofContents(*m_surfaces))
        change.make();
    bringToFront(tab);
    Changes changes;
    int count = 0;
    for (QUndoStack *stack : stacks()) {
        count += stack->count();
        for (int i = 0; i < stack->count(); ++i)
            changes.append(
                {"undo " + stack->text(stack->count() - 1 - i), [stack] { stack->undo(); }});
        for (int i = 0; i < stack->count(); ++i)
            changes.append({"redo " + stack->text(i), [stack] { stack->redo(); }});
    }

    const QStringList stale = staleAfter(changes);

    QVERIFY(count > 30);
    QVERIFY2(stale.isEmpty(), qPrintable(stale.join(QLatin1Char('\n'))));
}

void tst_Repaints::changesOfViewsAreShown()
{
    QFETCH(DocumentType, tab);
    bringToFront(tab);
    // The docks are the same beside each tab.
    const MainWindow *const window = m_surfaces->window();
    const QWidget *const root = tab == DocumentType::Map
                                    ? static_cast<const QWidget *>(window)
                                    : m_surfaces->views().tabs->currentWidget();

    const QStringList stale = staleAfter(WidgetChanges::of(root, *m_surfaces->project()));

    QVERIFY2(stale.isEmpty(), qPrintable(stale.join(QLatin1Char('\n'))));
}

void tst_Repaints::allSurfacesAreShown()
{
    QStringList stale;
    m_surfaces->visitAll([&](const QString &name, QWidget *) {
        for (const QString &part : Screen::staleParts())
            stale += name + ": " + part;
    });

    QVERIFY2(stale.isEmpty(), qPrintable(stale.join(QLatin1Char('\n'))));
}

QTEST_MAIN(tst_Repaints)
#include "tst_Repaints.moc"
