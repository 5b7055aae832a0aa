#pragma once

#include <QStringList>

class Project;

/// What a save and a load must not change.
namespace ProjectDifferences {

/// The fields in which two projects differ, empty for none. Documents are matched by id; the frame
/// ids of sprite animations are not compared.
QStringList between(const Project &first, const Project &second);

} // namespace ProjectDifferences
