#include "manual/Shortcuts.h"

#include "app/MainWindow.h"
#include "canvas/View.h"
#include "editors/BlockEditorView.h"
#include "editors/SpriteEditorView.h"
#include "mapeditor/View.h"

#include <QAction>
#include <QMenu>

namespace {

QString keysOf(const QAction &action)
{
    QStringList keys;
    for (const QKeySequence &sequence : action.shortcuts())
        keys += QStringLiteral("`%1`").arg(sequence.toString(QKeySequence::PortableText));
    return keys.join(QStringLiteral(" or "));
}

/// The text of a menu item; the two of the undo group tell what they would undo behind it.
QString textOf(const QAction &action)
{
    for (const QString &first : {QStringLiteral("Undo"), QStringLiteral("Redo")}) {
        if (action.text().startsWith(first))
            return first;
    }
    return action.text();
}

QString row(const QString &what, const QAction &action)
{
    return QStringLiteral("| %1 | %2 |\n").arg(what, keysOf(action));
}

QString menuRows(const QMenu &menu, const QString &path)
{
    QString rows;
    for (const QAction *action : menu.actions()) {
        if (action->menu())
            rows += menuRows(*action->menu(), path + QStringLiteral(" > ") + action->text());
        else if (!action->shortcuts().isEmpty())
            rows += row(QStringLiteral("%1 > %2").arg(path, textOf(*action)), *action);
    }
    return rows;
}

/// The actions with keys inside a view, in the order in which they were made.
QString viewRows(const QWidget &view)
{
    QString rows;
    for (const QAction *action : view.findChildren<QAction *>()) {
        if (!action->shortcuts().isEmpty())
            rows += row(action->text(), *action);
    }
    return rows;
}

QString section(const QString &title, const QString &rows)
{
    if (rows.isEmpty())
        return {};
    return QStringLiteral("\n## %1\n\n| What | Keys |\n| --- | --- |\n").arg(title) + rows;
}

template <typename View>
QString tabSection(const MainWindow &window, const QString &title)
{
    const auto *view = window.findChild<View *>();
    return view ? section(title, viewRows(*view)) : QString();
}

} // namespace

QString Shortcuts::page(const MainWindow &window)
{
    const DocumentViews &views = window.views();
    QString menus;
    for (const QAction *action : views.menuBar->actions())
        menus += menuRows(*action->menu(), action->text());
    QString panes;
    for (const QAction *action : window.actions()) {
        if (!action->shortcuts().isEmpty())
            panes += row(action->text(), *action);
    }
    return QStringLiteral("# Keys\n\nThe keys of the menus work everywhere. Those of a tab or a "
                          "dock work while it has the focus, as a document has that you have "
                          "just opened: click into it, or go there with `F6`. `Alt` alone goes to "
                          "the menu bar, whose menus the arrow keys "
                          "open.\n\nOn a canvas the arrow keys move a pointer from pixel to "
                          "pixel, on a map the arrow keys with `Shift` from cell to cell. `Space` "
                          "is the left mouse button there: hold it and move to draw. `Esc` ends "
                          "pasting, or else takes the selection away. `Tab` goes from a canvas to "
                          "its colours, where the arrow keys choose the first and with `Shift` "
                          "the second one, and `Return` opens its sliders.\n") +
           section(QStringLiteral("Menus"), menus) + section(QStringLiteral("Window"), panes) +
           tabSection<MapEditor::View>(window, QStringLiteral("Map tab")) +
           tabSection<ImageEditor::View>(window, QStringLiteral("Image tab")) +
           tabSection<SpriteEditor::View>(window, QStringLiteral("Sprite animation tab")) +
           tabSection<BlockEditor::View>(window, QStringLiteral("Block tab")) +
           section(QStringLiteral("Tile Editor dock"), viewRows(*views.tileWindow)) +
           section(QStringLiteral("Sprite Editor dock"), viewRows(*views.spriteWindow));
}
