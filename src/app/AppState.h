#pragma once

#include <QByteArray>
#include <QDir>
#include <QJsonDocument>
#include <QObject>
#include <QString>
#include <QStringList>

/// The two small files in ".config/tessaril" below the home directory that outlive a run, and the
/// values of "state.json" on their way between the file and their owners.
class AppState : public QObject
{
    Q_OBJECT

public:
    static constexpr int DefaultTileZoom = 8;

    /// Makes the folder if it is missing; a failure shows when a file is written.
    explicit AppState(QObject *parent = nullptr);

    QByteArray windowState;         ///< of QMainWindow::saveState()
    QByteArray windowGeometry;      ///< of QWidget::saveGeometry()
    int tileZoom = DefaultTileZoom; ///< of the tile picker, as read; applied within 1 to 16
    QStringList recent;             ///< absolute project paths, newest first
    QString lastPath;               ///< directory last used in the Open dialog

    /// Reads "state.json". False, with every value kept, if it cannot be opened; damaged text
    /// counts as an empty object.
    bool load();
    /// Writes "state.json". False, with the old file kept, if that fails.
    bool save() const;

    /// The content of "preferences.json"; null if it cannot be opened or holds no JSON.
    QJsonDocument loadPreferences() const;
    /// Writes "preferences.json". False, with the old file kept, if that fails.
    bool savePreferences(const QJsonDocument &preferences) const;

private:
    QDir m_directory;
};
