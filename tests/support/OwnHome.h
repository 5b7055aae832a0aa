#pragma once

#include <QDir>

/// Makes a home below @p folder for programs that show the main window, so that nothing of the
/// user's is read or written and no update is asked for. To be called before the application is
/// made; false if the home cannot be made.
[[nodiscard]] bool useOwnHome(const QDir &folder);
