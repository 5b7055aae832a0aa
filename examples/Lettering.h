#pragma once

#include <QPoint>
#include <QString>

class Brush;

/// Big lettering for titles.
namespace Lettering {

/// Draws @p text, capitals that the title needs, @p scale pixels for each of the letter's, with an
/// outline, a shadow and a shine from top to bottom.
void draw(Brush &brush, QPoint at, const QString &text, int scale);

} // namespace Lettering
