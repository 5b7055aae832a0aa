#pragma once

#include <QString>

class Project;

/// All that a project holds as lines of text, document by document, in an order and a form that
/// must never change: what was recorded once is compared with it.
QString projectText(const Project &project);
