#include "access/Surfaces.h"

#include "colour/ColourEditorPopover.h"
#include "dialogs/ExportMapDialog.h"
#include "dialogs/LicenceDialog.h"
#include "dialogs/MapEditorPage.h"
#include "dialogs/ResizeMapDialog.h"
#include "editors/ImportBinaryDialog.h"
#include "editors/ImportImageDialog.h"
#include "mapeditor/View.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QTest>
#include <QTimer>

namespace {

bool writeFile(const QString &name, const QByteArray &content)
{
    QFile file(name);
    return QDir().mkpath(QFileInfo(name).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

/// Menu items that end the project, or reach for the network or the frame.
bool isLeftOut(const QAction *action)
{
    static const QStringList texts{"Quit",         "Close",        "Save",
                                   "Reset Layout", "Status Bar",   "Check for Updates…",
                                   "Recent",       "Window",       "Tile List Magnification",
                                   "Next Tile",    "Previous Tile"};
    return !action->isEnabled() || action->isSeparator() || texts.contains(action->text());
}

QDialog *visibleDialog()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *const dialog = qobject_cast<QDialog *>(widget);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

} // namespace

Surfaces::Surfaces()
{
    if (!writeFile(QDir::homePath() + "/.config/tessaril/preferences.json",
                   "{\"general\": {\"versionCheckEnabled\": false}}"))
        qFatal("No home to write to");
    m_window = std::make_unique<MainWindow>();
    // Nobody answers there: the About dialog must not ask beyond this machine.
    m_window->updates()->checker().setFeedAddress(QUrl(QStringLiteral("http://127.0.0.1:9/")));
    m_window->projectController()->_unsavedPrompt = [](const QString &) { return 1; };
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("The window is not active");
    m_window->projectController()->openProject(QStringLiteral(EXAMPLE));
    if (!project())
        qFatal("The example does not open");
    openTabs();
}

Surfaces::~Surfaces() = default;

void Surfaces::openTabs()
{
    DocumentController *const documents = m_window->documentController();
    documents->setActivePalette(project()->palettes().first()->id());
    documents->setActiveBlockEditor(project()->mapObjects().first()->id());
    documents->setActiveSpriteEditor(project()->spriteBanks().first()->id());
    const auto image = project()->createImage(Tessaril::ImageMode::Layer2_256x192, "title",
                                              project()->palettes().first()->id());
    documents->setActiveImageEditor(image->id());
    emit views().menuBar->viewMenu()->toggleScratch(true);
    documents->setActiveMap(project()->maps().first()->id());
    documents->setActiveTileSet(project()->maps().first()->tileSetId());
    QApplication::processEvents();
}

void Surfaces::visitTabs(const Visit &visit)
{
    DocumentTabView *const tabs = views().tabs;
    const int shown = tabs->currentIndex();
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        if (auto *const list = tabs->currentWidget()->findChild<QListWidget *>())
            list->setCurrentRow(0);
        QApplication::processEvents();
        visit(QStringLiteral("tab %1 %2").arg(i).arg(tabs->tabText(i)), m_window.get());
    }
    tabs->setCurrentIndex(shown);
    QApplication::processEvents();
}

void Surfaces::visitDocks(const Visit &visit)
{
    for (QDockWidget *dock : m_window->findChildren<QDockWidget *>()) {
        dock->raise();
        for (auto *const list : dock->findChildren<QListWidget *>())
            list->setCurrentRow(0);
        QApplication::processEvents();
        visit(QStringLiteral("dock %1").arg(dock->objectName()), dock);
    }
}

void Surfaces::visitDialogs(const Visit &visit)
{
    for (const QAction *action : views().menuBar->actions()) {
        // What that menu does is no dialog, and pictures made after it would show what it left.
        if (action->menu() != views().menuBar->editMenu())
            visitMenu(action->text(), action->menu(), visit);
    }
    visitImports(visit);
    visitMapDialogs(visit);
    visitMessages(visit);
}

void Surfaces::visitAll(const Visit &visit)
{
    visitTabs(visit);
    visitDocks(visit);
    visitDialogs(visit);
}

QList<QWidget *> Surfaces::shownIn(const QWidget *surface)
{
    QList<QWidget *> widgets;
    for (QWidget *widget : surface->findChildren<QWidget *>()) {
        if (widget->isVisible() && widget->window() == surface->window())
            widgets += widget;
    }
    return widgets;
}

void Surfaces::visitMenu(const QString &path, const QMenu *menu, const Visit &visit)
{
    for (QAction *action : menu->actions()) {
        if (isLeftOut(action))
            continue;
        if (action->menu())
            visitMenu(path + QStringLiteral(" ") + action->text(), action->menu(), visit);
        else
            visitDialog(
                path + QStringLiteral(" ") + action->text(), [action] { action->trigger(); },
                visit);
    }
}

void Surfaces::visitImports(const Visit &visit)
{
    if (!writeFile("sheet.bin", QByteArray(512, '\x11')))
        qFatal("No folder to write to");
    QImage sheet(64, 32, QImage::Format_RGB32);
    sheet.fill(Qt::red);
    sheet.save("sheet.png");
    SpriteEditor::ImportBinaryDialog binary(m_window.get());
    visitDialog(
        "import binary", [&] { binary.show("sheet.bin", true, project()->palettes()); }, visit);
    SpriteEditor::ImportImageDialog image(m_window.get());
    visitDialog(
        "import image", [&] { image.show("sheet.png", true, project()->palettes()); }, visit);
}

void Surfaces::visitMapDialogs(const Visit &visit)
{
    auto *const view = qobject_cast<MapEditor::View *>(views().tabs->currentWidget());
    visitDialog(
        "resize map", [view] { view->toolPaletteClicked(Tessaril::Ui::ToolButton::Resize); },
        visit);
    visitDialog(
        "export map", [view] { view->toolPaletteClicked(Tessaril::Ui::ToolButton::Save); }, visit);
    view->spritePopover()->showFor(Map::PlacedSprite(), view->rect());
    QApplication::processEvents();
    visit("sprite properties", view->spritePopover());
    view->spritePopover()->hide();
    ColourEditorPopover colour(m_window.get());
    colour.openFor(view, QRect(40, 40, 16, 16), Qt::red, false);
    QApplication::processEvents();
    visit("colour editor", &colour);
    colour.hide();
}

void Surfaces::visitMessages(const Visit &visit)
{
    visitDialog(
        "message", [this] { m_window->showError("The file could not be written."); }, visit);
    UpdateDialog update(m_window.get());
    const Update::Release release{.version = "2.0",
                                  .channel = "stable",
                                  .released = "2027-01-31",
                                  .notes = "https://brindlemoor.example/notes",
                                  .downloads = "https://brindlemoor.example/download"};
    visitDialog(
        "update", [&] { update.showRelease(release, {.version = "1.0", .date = "2026-01-01"}); },
        visit);
    MapEditorPage page;
    visitDialog(
        "grid colour", [&] { page.showColourPicker(0); }, visit);
    LicenceDialog licence(m_window.get());
    visitDialog(
        "licence", [&] { licence.open(); }, visit);
}

void Surfaces::visitDialog(const QString &name, const std::function<void()> &open,
                           const Visit &visit)
{
    // Some return only when they are answered.
    bool isVisited = false;
    const auto use = [&] {
        QDialog *const dialog = visibleDialog();
        if (!dialog || isVisited)
            return;
        isVisited = true;
        QApplication::processEvents();
        visitPreferencePages(name, dialog, visit);
        dialog->reject();
    };
    QTimer blocking;
    QObject::connect(&blocking, &QTimer::timeout, use);
    blocking.start(0);
    open();
    blocking.stop();
    QApplication::processEvents();
    use();
    QApplication::processEvents();
}

void Surfaces::visitPreferencePages(const QString &name, QWidget *dialog, const Visit &visit)
{
    auto *const preferences = qobject_cast<PreferencesDialog *>(dialog);
    auto *const pages = preferences ? preferences->findChild<QListWidget *>() : nullptr;
    for (int i = 0; i < (pages ? pages->count() : 1); ++i) {
        if (pages)
            pages->setCurrentRow(i);
        QApplication::processEvents();
        visit(pages ? name + QStringLiteral(" ") + pages->item(i)->text() : name, dialog);
    }
}
