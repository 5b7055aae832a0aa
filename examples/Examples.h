#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

class Project;

/// The finished projects that come with the program, drawn by code.
///
/// Making one again gives the same documents with the same ids, so that its file only changes when
/// its art does.
namespace Examples {

/// The base names of the project files.
QStringList names();
/// The project of that name, null for a name that is none.
std::unique_ptr<Project> make(const QString &name);
/// Its project file in @p folder; false with a text on the error output if it cannot be written.
[[nodiscard]] bool save(const QString &name, const QString &folder);

} // namespace Examples
