#include "mapeditor/PickTool.h"

#include "canvas/ToolCursors.h"
#include "mapeditor/MapGrid.h"

#include <QMouseEvent>

using namespace MapEditor;

bool PickTool::activate()
{
    if (m_grid->m_previousMode != id())
        m_rememberedMode = m_grid->m_previousMode;
    m_grid->setCursor(ToolCursors::picker());
    return true;
}

void PickTool::mouseRelease(QMouseEvent *event)
{
    if (!m_grid->m_buttons.testFlag(Qt::LeftButton))
        return;
    m_grid->pickAt(wholePosition(event->position()));
    m_grid->setMode(m_rememberedMode);
}
