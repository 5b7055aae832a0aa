#pragma once

#include "app/MainWindow.h"
#include "canvas/Canvas.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QTest>

#include <memory>

/// The whole window in the test's own empty home, active, without network and without prompts.
class QuietWindow
{
public:
    QuietWindow()
    {
        QDir(QDir::homePath() + "/.config").removeRecursively();
        QDir().mkpath(QDir::homePath() + "/.config/tessaril");
        QFile preferences(QDir::homePath() + "/.config/tessaril/preferences.json");
        if (preferences.open(QIODevice::WriteOnly))
            preferences.write("{\"general\": {\"versionCheckEnabled\": false}}");
        preferences.close();
        m_window = std::make_unique<MainWindow>();
        m_window->projectController()->_unsavedPrompt = [](const QString &) { return 1; };
        m_window->activateWindow();
        m_isReady = QTest::qWaitForWindowActive(m_window.get());
    }

    bool isReady() const { return m_isReady; }
    MainWindow *get() const { return m_window.get(); }
    MainWindow *operator->() const { return m_window.get(); }

    const DocumentViews &views() const { return m_window->views(); }
    MenuBar *menus() const { return m_window->views().menuBar; }
    ProjectController *control() const { return m_window->projectController(); }
    DocumentController *documents() const { return m_window->documentController(); }
    Project *project() const { return control()->project(); }

    Project *newProject(const QString &name = "game") const
    {
        control()->newProject(name);
        return project();
    }

    /// A tile set of 16 tiles, with a blank palette of its name.
    QPointer<TileSet> addTileSet(const QString &name = "cave") const
    {
        return project()->createTileSet(name, QUuid(), 16);
    }

    /// A map over a tile set of its own, both of that name.
    QPointer<Map> addMap(const QString &name = "level") const
    {
        return project()->createMap(name, addTileSet(name)->id(), QSize(40, 32));
    }

    MapEditor::View *currentMap() const
    {
        return qobject_cast<MapEditor::View *>(views().tabs->currentWidget());
    }

    /// The item of @p menu whose text begins so; null if there is none.
    static QAction *item(const QMenu *menu, const QString &text)
    {
        const QList<QAction *> actions = menu->actions();
        for (QAction *const action : actions) {
            if (action->text().startsWith(text))
                return action;
        }
        return nullptr;
    }

    QAction *undo() const { return item(menus()->editMenu(), "Undo"); }
    QMenu *windowMenu() const { return item(menus()->viewMenu(), "Window")->menu(); }
    QAction *scratchItem() const { return item(windowMenu(), "Scratch"); }

    /// Paints a dot into the middle of the canvas of a dock or tab.
    static void paintDot(const QWidget *window, int ink)
    {
        auto *const canvas = window->findChild<Canvas *>();
        canvas->setInk(ink);
        QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->viewRect().center());
    }

private:
    std::unique_ptr<MainWindow> m_window;
    bool m_isReady = false;
};
