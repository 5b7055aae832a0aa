#pragma once

#include <QString>

class MainWindow;

/// The keys of the program as a page of the manual.
namespace Shortcuts {

/// A Markdown page of all actions of @p window that have keys. Its tabs must be open, one of each
/// kind.
QString page(const MainWindow &window);

} // namespace Shortcuts
