#include "editors/TileLooks.h"

#include "model/TileSet.h"

#include <QTimer>

void TileLooks::follow(const TileSet *tiles, QTimer *redraw)
{
    const auto start = qOverload<>(&QTimer::start);
    QObject::connect(tiles, &TileSet::tileChanged, redraw, start);
    QObject::connect(tiles, &TileSet::tileDeleted, redraw, start);
    QObject::connect(tiles, &TileSet::tileInserted, redraw, start);
    QObject::connect(tiles, &TileSet::tileSwapped, redraw, start);
    QObject::connect(tiles, &TileSet::restored, redraw, start);
    QObject::connect(tiles, &QObject::destroyed, redraw, start);
}
