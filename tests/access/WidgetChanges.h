#pragma once

#include "access/Change.h"

class Project;
class QWidget;

/// What changes in how the widgets of the window show their documents: tools, zoom, scrolling,
/// grids, selections, what the pointer is over, and the focus.
namespace WidgetChanges {

/// Those of the widgets below @p root that are visible now.
Changes of(const QWidget *root, const Project &project);

} // namespace WidgetChanges
