#include "mapeditor/MapTool.h"

using namespace MapEditor;

MapTool::~MapTool() = default;

QCursor MapTool::cursor() const
{
    return Qt::ArrowCursor;
}

bool MapTool::isBlocked() const
{
    return false;
}

bool MapTool::contextPress(QMouseEvent *)
{
    return false;
}

bool MapTool::mousePress(QMouseEvent *)
{
    return false;
}

void MapTool::mouseMove(QMouseEvent *) {}

void MapTool::mouseRelease(QMouseEvent *) {}

void MapTool::paintUnderGrid(QPainter &) {}

void MapTool::paintOverGrid(QPainter &) {}
