#pragma once

#include <QByteArray>

class Project;

/// The whole model behind a project as bytes, down to pixels and frame ids, in an order that does
/// not depend on hashes: equal bytes are equal models.
QByteArray modelBytes(const Project &project);
