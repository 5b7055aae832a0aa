#include "app/QuietWindow.h"
#include "model/Image.h"
#include "model/MapObjects.h"
#include "model/SpriteBank.h"

#include <QTest>
#include <QUndoStack>

/// Where Undo and the Edit menu go as the focus, the tabs and the documents change.
class tst_MainWindowFocus : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void theTileWindowTakesUndoAndTheCommands();
    void theSpriteWindowTakesUndoAndTheCommands();
    void theTabTakesUndoBackByFocus();
    void otherDocksLeaveUndoWhereItIs();
    void anotherTileSetInTheFocusedWindowBringsItsUndo();
    void anotherBankInTheFocusedWindowBringsItsUndo();
    void aDeletedTileSetTakesItsUndoAlong();
    void theNextProjectsTileSetHasItsUndo();
    void anEmptyDockHasNothingToUndo();
    void whatTheTreeOpensHasTheFocus();
    void withoutAProjectTheFocusChangesNothing();

private:
    QPointer<SpriteBank> addBank(const QString &name) const;
    void focus(const QWidget *window) const;
    bool canCopy() const;

    std::unique_ptr<QuietWindow> m_window;
};

void tst_MainWindowFocus::init()
{
    m_window = std::make_unique<QuietWindow>();
    QVERIFY(m_window->isReady());
}

QPointer<SpriteBank> tst_MainWindowFocus::addBank(const QString &name) const
{
    Project *const project = m_window->project();
    const QUuid palette = project->createPalette(CreateDefault, name)->id();
    return project->createSpriteBank(Tessaril::Sprite::EightBit, name, palette);
}

void tst_MainWindowFocus::focus(const QWidget *window) const
{
    auto *const canvas = window->findChild<Canvas *>();
    canvas->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), canvas);
}

bool tst_MainWindowFocus::canCopy() const
{
    return QuietWindow::item(m_window->menus()->editMenu(), "Copy")->isEnabled();
}

void tst_MainWindowFocus::theTileWindowTakesUndoAndTheCommands()
{
    m_window->newProject();
    const auto tileSet = m_window->addTileSet();
    m_window->documents()->setActiveTileSet(tileSet->id());
    QVERIFY(!canCopy());

    focus(m_window->views().tileWindow);
    QVERIFY(canCopy());
    QVERIFY(!m_window->undo()->isEnabled());
    QuietWindow::paintDot(m_window->views().tileWindow, 7);
    QVERIFY(m_window->undo()->isEnabled());
    QCOMPARE(m_window->documents()->undoStack(tileSet->id())->count(), 1);
    m_window->undo()->trigger();

    QVERIFY(m_window->documents()->undoStack(tileSet->id())->canRedo());
}

void tst_MainWindowFocus::theSpriteWindowTakesUndoAndTheCommands()
{
    m_window->newProject();
    const auto bank = addBank("heroes");
    const auto map = m_window->addMap();
    m_window->documents()->setActiveSpriteEditor(bank->id());
    SpriteWindow *const window = m_window->views().spriteWindow;
    QuietWindow::paintDot(window, 7);
    const int painted = m_window->documents()->undoStack(bank->id())->count();
    QVERIFY(painted > 0);
    m_window->documents()->setActiveMap(map->id());
    m_window->currentMap()->grid()->setFocus();
    QTRY_VERIFY(!m_window->undo()->isEnabled());

    window->raise();
    focus(window);
    QVERIFY(m_window->undo()->isEnabled());
    QVERIFY(canCopy());
    m_window->undo()->trigger();

    QCOMPARE(m_window->documents()->undoStack(bank->id())->index(), painted - 1);
    emit m_window->menus()->editMenu()->selectAll();
    QVERIFY(m_window->currentMap()->grid()->selection().isEmpty()); // the sprite took it
}

void tst_MainWindowFocus::theTabTakesUndoBackByFocus()
{
    m_window->newProject();
    const auto map = m_window->addMap();
    m_window->documents()->setActiveMap(map->id());
    MapEditor::View *const view = m_window->currentMap();
    view->grid()->addRows(Tessaril::Position::End, 1);
    focus(m_window->views().tileWindow);
    QVERIFY(!m_window->undo()->isEnabled());

    view->grid()->setFocus();
    QTRY_VERIFY(m_window->undo()->isEnabled());
    m_window->undo()->trigger();

    QCOMPARE(map->tileLayer()->height(), 32);
    emit m_window->menus()->editMenu()->selectAll();
    QCOMPARE(view->grid()->selection(), QRect(0, 0, 40, 32));
}

void tst_MainWindowFocus::otherDocksLeaveUndoWhereItIs()
{
    m_window->newProject();
    m_window->documents()->setActiveMap(m_window->addMap()->id());
    m_window->currentMap()->grid()->addRows(Tessaril::Position::End, 1);
    for (QWidget *const dock : {static_cast<QWidget *>(m_window->views().paletteWindow),
                                static_cast<QWidget *>(m_window->views().blockSelector),
                                static_cast<QWidget *>(m_window->views().tilePicker)}) {
        dock->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), dock);
        QVERIFY(m_window->undo()->isEnabled());
    }
}

void tst_MainWindowFocus::anotherTileSetInTheFocusedWindowBringsItsUndo()
{
    m_window->newProject();
    const auto first = m_window->addTileSet("one");
    const auto second = m_window->addTileSet("two");
    m_window->documents()->setActiveTileSet(first->id());
    focus(m_window->views().tileWindow);
    QuietWindow::paintDot(m_window->views().tileWindow, 7);

    m_window->documents()->setActiveTileSet(second->id()); // the tree takes no focus
    QVERIFY(!m_window->undo()->isEnabled());
    QuietWindow::paintDot(m_window->views().tileWindow, 7);
    m_window->undo()->trigger();

    QVERIFY(m_window->documents()->undoStack(first->id())->canUndo());
    QVERIFY(m_window->documents()->undoStack(second->id())->canRedo());
}

void tst_MainWindowFocus::anotherBankInTheFocusedWindowBringsItsUndo()
{
    m_window->newProject();
    const auto first = addBank("one");
    m_window->documents()->setActiveSpriteEditor(first->id());
    SpriteWindow *const window = m_window->views().spriteWindow;
    emit m_window->menus()->spriteMenu()->create(SpriteDialog::EightBit, "two",
                                                 first->palette()->id()); // opens no tab
    QCOMPARE(window->sprites()->name(), QString("two"));
    focus(window);
    QuietWindow::paintDot(window, 7);
    QVERIFY(m_window->undo()->isEnabled());

    m_window->documents()->setActiveSpriteEditor(first->id()); // its tab is in front already
    QVERIFY(!m_window->undo()->isEnabled());
    QuietWindow::paintDot(window, 7);

    QVERIFY(m_window->undo()->isEnabled());
}

void tst_MainWindowFocus::aDeletedTileSetTakesItsUndoAlong()
{
    m_window->newProject();
    const auto first = m_window->addTileSet("one");
    const auto second = m_window->addTileSet("two");
    m_window->documents()->setActiveTileSet(first->id());
    focus(m_window->views().tileWindow);
    QuietWindow::paintDot(m_window->views().tileWindow, 7);

    emit m_window->views().projectWindow->deleteItemTriggered(ProjectTree::ProjectNode::TileSet,
                                                              first->id());
    QVERIFY(!first);
    QVERIFY(!m_window->undo()->isEnabled());
    m_window->documents()->setActiveTileSet(second->id());
    focus(m_window->views().tileWindow);
    QuietWindow::paintDot(m_window->views().tileWindow, 7);

    QVERIFY(m_window->undo()->isEnabled());
}

void tst_MainWindowFocus::theNextProjectsTileSetHasItsUndo()
{
    for (const char *const name : {"first", "second"}) {
        m_window->newProject(name);
        const auto tileSet = m_window->addTileSet();
        m_window->documents()->setActiveTileSet(tileSet->id());
        QVERIFY(!canCopy());
        focus(m_window->views().tileWindow);

        QuietWindow::paintDot(m_window->views().tileWindow, 7);

        QVERIFY(m_window->undo()->isEnabled());
        QVERIFY(canCopy());
        m_window->control()->close();
    }
}

void tst_MainWindowFocus::anEmptyDockHasNothingToUndo()
{
    m_window->newProject();
    m_window->scratchItem()->trigger();
    QuietWindow::paintDot(m_window->views().tabs->currentWidget(), 7);
    QVERIFY(m_window->undo()->isEnabled());
    for (QWidget *const dock : {static_cast<QWidget *>(m_window->views().tileWindow),
                                static_cast<QWidget *>(m_window->views().spriteWindow)}) {
        dock->setFocus();
        QTRY_VERIFY(!m_window->undo()->isEnabled());
        m_window->views().tabs->scratchEditor()->canvas()->setFocus();
        QTRY_VERIFY(m_window->undo()->isEnabled());
    }
}

void tst_MainWindowFocus::whatTheTreeOpensHasTheFocus()
{
    Project *const project = m_window->newProject();
    const auto map = m_window->addMap();
    const auto bank = addBank("heroes");
    const auto blocks = project->createBlockList("doors", map->tileSetId());
    const auto image =
        project->createImage(Tessaril::ImageMode::LoRes_128x96, "title", bank->palette()->id());
    ProjectWindow *const tree = m_window->views().projectWindow;
    const QTabWidget *const tabs = m_window->views().tabs;
    const auto opens = [&](ProjectTree::ProjectNode node, const QUuid &id) {
        focus(m_window->views().tileWindow);
        tree->itemDoubleClicked(node, id);
        return tabs->currentWidget()->isAncestorOf(QApplication::focusWidget()) ||
               tabs->currentWidget()->hasFocus();
    };
    m_window->documents()->setActiveTileSet(map->tileSetId());

    for (const char *const time : {"new", "again"}) {
        QVERIFY2(opens(ProjectTree::ProjectNode::Map, map->id()), time);
        QVERIFY2(opens(ProjectTree::ProjectNode::Sprites, bank->id()), time);
        QVERIFY2(opens(ProjectTree::ProjectNode::Objects, blocks->id()), time);
        QVERIFY2(opens(ProjectTree::ProjectNode::Image, image->id()), time);
    }
    QCOMPARE(tabs->count(), 4);
}

void tst_MainWindowFocus::withoutAProjectTheFocusChangesNothing()
{
    m_window->views().tileWindow->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), m_window->views().tileWindow);

    QVERIFY(!canCopy());
}

QTEST_MAIN(tst_MainWindowFocus)
#include "tst_MainWindowFocus.moc"
