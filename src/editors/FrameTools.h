#pragma once

#include "model/Enums.h"

class QWidget;
class ToolPalette;

namespace AnimationEditor {

class FrameEditorWidget;

/// The tools of a frame editor, which the owner shows on a palette of its own: zoom, and the three
/// flags of the selected cell.
namespace FrameTools {

/// Puts the buttons on @p tools, and the flags into the context menu of @p frame too. @p owner is
/// where their keys work.
void add(ToolPalette *tools, FrameEditorWidget *frame, QWidget *owner);
/// Does what @p button stands for. False, with nothing done, if it is none of these tools.
[[nodiscard]] bool use(FrameEditorWidget *frame, Tessaril::Ui::ToolButton button, bool checked);
/// Checks the buttons of the flags that the selected cell has; none without a selection.
void showSelectedCell(const ToolPalette &tools, const FrameEditorWidget &frame);

} // namespace FrameTools

} // namespace AnimationEditor
