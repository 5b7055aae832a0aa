#include "app/AppState.h"

#include "formats/FileBytes.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSettings>

namespace {

const QString StateFile = QStringLiteral("state.json");
const QString PreferencesFile = QStringLiteral("preferences.json");
const QString WindowStateKey = QStringLiteral("windowState");
const QString WindowGeometryKey = QStringLiteral("windowGeometry");
const QString TileZoomKey = QStringLiteral("tileZoom");
const QString RecentKey = QStringLiteral("recent");
const QString LastPathKey = QStringLiteral("lastPath");

constexpr qint64 MaxFileSize = 1024 * 1024; // bytes; both files hold a few thousand

QByteArray bytesOf(const QJsonObject &object, const QString &key)
{
    const QJsonValue value = object.value(key);
    if (!value.isString())
        qWarning("JSON object not found \"%s\"", qPrintable(key));
    return QByteArray::fromBase64(value.toString().toUtf8());
}

QString base64(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.toBase64());
}

} // namespace

AppState::AppState(QObject *parent)
    : QObject(parent)
{
    const QString folder = QStringLiteral(".config/tessaril");
    QDir home(QDir::homePath());
    home.mkpath(folder);
    m_directory.setPath(home.canonicalPath());
    // A folder that could not be made is kept all the same: its files fail, and none lands beside
    // it.
    if (!m_directory.cd(folder))
        m_directory.setPath(home.filePath(folder));
    // Where Qt's file dialog keeps its history: nothing is written outside this folder.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_directory.path());
}

bool AppState::load()
{
    const auto text = FileBytes::read(m_directory.filePath(StateFile), MaxFileSize);
    if (!text) {
        qWarning("Open state.json failed");
        return false;
    }

    const QJsonObject object = QJsonDocument::fromJson(*text).object();
    windowState = bytesOf(object, WindowStateKey);
    windowGeometry = bytesOf(object, WindowGeometryKey);
    tileZoom = object.value(TileZoomKey).toInt(DefaultTileZoom);
    lastPath = object.value(LastPathKey).toString(QStringLiteral("~"));
    const QJsonArray paths = object.value(RecentKey).toArray();
    for (const QJsonValue &path : paths)
        recent.append(path.toString());
    return true;
}

bool AppState::save() const
{
    const QJsonObject object = {
        {WindowStateKey, base64(windowState)},
        {WindowGeometryKey, base64(windowGeometry)},
        {TileZoomKey, tileZoom},
        {RecentKey, QJsonArray::fromStringList(recent)},
        {LastPathKey, lastPath},
    };
    if (FileBytes::replace(m_directory.filePath(StateFile), QJsonDocument(object).toJson()))
        return true;
    qWarning("Open state.json failed");
    return false;
}

QJsonDocument AppState::loadPreferences() const
{
    const auto text = FileBytes::read(m_directory.filePath(PreferencesFile), MaxFileSize);
    if (!text) {
        qWarning("Failed to open settings json file");
        return {};
    }
    return QJsonDocument::fromJson(*text);
}

bool AppState::savePreferences(const QJsonDocument &preferences) const
{
    if (FileBytes::replace(m_directory.filePath(PreferencesFile), preferences.toJson()))
        return true;
    qWarning("Failed to open settings json file");
    return false;
}
