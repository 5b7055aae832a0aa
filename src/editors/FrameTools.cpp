#include "editors/FrameTools.h"

#include "editors/FrameEditorWidget.h"
#include "uikit/ToolPalette.h"

#include <QAction>

using Tool = Tessaril::Ui::ToolButton;

namespace AnimationEditor::FrameTools {

void add(ToolPalette *tools, FrameEditorWidget *frame, QWidget *owner)
{
    tools->addButtons({Tool::ZoomIn, Tool::ZoomOut, Tool::RotateCW, Tool::Flip, Tool::Mirror},
                      owner);
    for (const Tool flag : {Tool::RotateCW, Tool::Flip, Tool::Mirror})
        tools->action(flag)->setCheckable(true);
    frame->setFrameActions(tools->action(Tool::RotateCW), tools->action(Tool::Flip),
                           tools->action(Tool::Mirror));
}

bool use(FrameEditorWidget *frame, Tool button, bool checked)
{
    switch (button) {
    case Tool::ZoomIn:
        frame->zoomIn();
        return true;
    case Tool::ZoomOut:
        frame->zoomOut();
        return true;
    case Tool::RotateCW:
        frame->setRotated(checked);
        return true;
    case Tool::Flip:
        frame->setFlipped(checked);
        return true;
    case Tool::Mirror:
        frame->setMirrored(checked);
        return true;
    default:
        return false;
    }
}

void showSelectedCell(const ToolPalette &tools, const FrameEditorWidget &frame)
{
    const AnimationFrame::Cell cell = frame.selectedCellData();
    tools.action(Tool::RotateCW)->setChecked(cell.rotate);
    tools.action(Tool::Flip)->setChecked(cell.flip);
    tools.action(Tool::Mirror)->setChecked(cell.mirror);
}

} // namespace AnimationEditor::FrameTools
