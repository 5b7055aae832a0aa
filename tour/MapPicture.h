#pragma once

#include "model/Map.h"
#include "model/SpriteBank.h"

#include <QImage>
#include <QList>
#include <QPointer>

class SpriteAnim;

/// What a map must look like, worked out from its cells one pixel after the other.
///
/// It shares no line with the program's own drawing: neither its caches nor its turns.
namespace MapPicture {

using Banks = QList<QPointer<SpriteBank>>;

/// The map at one screen pixel for each map pixel, with the layers and sprites that are visible.
/// @p ticks is the frame clock of the placed sprites. The background repeats from the corner of
/// the view, which is cell @p scroll.
QImage drawn(const Map &map, const Banks &banks, qint64 ticks, QPoint scroll);

/// The frame that a placed animation of @p count frames of @p delay ticks shows.
int frameAt(const Map::PlacedSprite &sprite, int count, int delay, qint64 ticks);

} // namespace MapPicture
