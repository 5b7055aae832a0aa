#include "canvas/ToolCursors.h"

#include <QPixmap>

QCursor ToolCursors::fill()
{
    return QCursor(QPixmap(QStringLiteral(":/FillCursor")), 29, 26);
}

QCursor ToolCursors::picker()
{
    return QCursor(QPixmap(QStringLiteral(":/PickerCursor")), 5, 28);
}
