// Both files that outlive a run, as the window takes them.

#include "FuzzTarget.h"

#include "app/AppState.h"
#include "dialogs/PreferencesDialog.h"

#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>

namespace {

/// A window with docks of the program's names, so that a stored state finds something.
struct Window : QMainWindow
{
    Window()
    {
        for (const char *name : {"ProjectWindow", "paletteWindow", "TileEditor"}) {
            auto *dock = new QDockWidget(this);
            dock->setObjectName(QString::fromLatin1(name));
            addDockWidget(Qt::LeftDockWidgetArea, dock);
        }
    }
};

void write(const QString &name, const QByteArray &content)
{
    QFile file(QDir::home().filePath(".config/tessaril/" + name));
    Fuzz::require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), name);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv, true);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static PreferencesDialog preferences;
    AppState state; // makes its folder
    const QByteArray content = Fuzz::bytes(data, size);
    write(QStringLiteral("state.json"), content);
    write(QStringLiteral("preferences.json"), content);

    Fuzz::require(state.load(), QStringLiteral("state.json cannot be opened"));
    Window window;
    window.restoreState(state.windowState);
    window.restoreGeometry(state.windowGeometry);
    preferences.restore(state.loadPreferences());
    Fuzz::require(!preferences.snapshot().isEmpty(), QStringLiteral("no preferences are left"));

    AppState again;
    Fuzz::require(state.save() && again.load(), QStringLiteral("the state is not written back"));
    Fuzz::require(again.windowState == state.windowState && again.tileZoom == state.tileZoom,
                  QStringLiteral("the state comes back otherwise"));
    return 0;
}
