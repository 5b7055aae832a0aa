#pragma once

#include <QString>

class Project;

/// Pictures of a project's maps and images, to look at.
namespace Portrait {

/// Saves "NAME-DOCUMENT.png" in @p folder for each map, sprites included, and each image.
[[nodiscard]] bool save(const Project &project, const QString &name, const QString &folder);

} // namespace Portrait
