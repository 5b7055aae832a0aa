#pragma once

#include <QImage>
#include <QPalette>
#include <QStringList>

/// All program icons on one picture, to be judged by eye.
namespace ContactSheet {

/// The resource paths of all SVG artwork (":/Arrow/E", ":/Paint"), sorted.
QStringList iconPaths();

QPalette lightPalette();
QPalette darkPalette();

/// Every icon with its path, from the left: 16, 24 and 32 pixels, 24 disabled, 24 selected, 24 at
/// scale 2. Needs a QGuiApplication, whose palette is @p palette while this draws.
QImage draw(const QPalette &palette);

/// Writes "icons-light.png" and "icons-dark.png" into @p folder, which is made if needed.
[[nodiscard]] bool write(const QString &folder);

} // namespace ContactSheet
