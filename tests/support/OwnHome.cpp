#include "support/OwnHome.h"

#include "formats/FileBytes.h"

bool useOwnHome(const QDir &folder)
{
    const QString home = folder.absoluteFilePath(QStringLiteral("home"));
    const QString settings = home + QStringLiteral("/.config/tessaril");
    QDir(home).removeRecursively();
    qputenv("HOME", home.toUtf8());
    for (const char *const name :
         {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        qunsetenv(name);
    return QDir().mkpath(settings) &&
           FileBytes::write(settings + QStringLiteral("/preferences.json"),
                            R"({"general": {"versionCheckEnabled": false}})");
}
