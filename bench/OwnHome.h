#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace Bench {

/// A home of its own for the window, so that nothing of the user's is read and nobody is asked for
/// a new version. Made before the application.
class OwnHome
{
public:
    OwnHome()
    {
        qputenv("HOME", m_folder.path().toUtf8());
        for (const char *const name :
             {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
            qunsetenv(name);
        const QString settings = m_folder.filePath(QStringLiteral(".config/tessaril"));
        QFile file(settings + QStringLiteral("/preferences.json"));
        if (QDir().mkpath(settings) && file.open(QIODevice::WriteOnly))
            file.write(R"({"general": {"versionCheckEnabled": false}})");
    }

private:
    QTemporaryDir m_folder;
};

} // namespace Bench
