#pragma once

class Brush;

namespace Examples {

/// The grassy bank in front of the title's lake, with its lantern and the lantern bearer.
void drawTitleForeground(Brush &brush);

} // namespace Examples
