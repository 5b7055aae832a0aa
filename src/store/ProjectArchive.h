#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

class Project;

/// A project as a ZIP file: the words of a failure are here, moving files about is not.
namespace ProjectArchive {

/// Fills an empty project from a file. False with @p error in the user's words.
[[nodiscard]] bool load(Project *project, const QString &path, QString *error);

/// Writes the entries to a file in their order and flushes it. False with @p error in the user's
/// words; a partial file may then be left.
[[nodiscard]] bool save(const QMap<QString, QByteArray> &entries, const QString &path,
                        QString *error);

} // namespace ProjectArchive
