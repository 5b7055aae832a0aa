#pragma once

#include <QColor>
#include <QRect>
#include <QString>

class Palette;
class QPainter;

/// How the swatch strips draw an entry and what they say of it.
namespace SwatchPainting {

/// Fills @p rect with a colour; one with alpha 0 shows a chequered half beside its colour.
void paintColour(QPainter *painter, const QRect &rect, const QColor &colour);

/// Writes @p mark in the middle of @p rect, readable on any colour.
void paintMark(QPainter *painter, const QRect &rect, const QString &mark);

/// The frame of the keyboard focus inside @p rect, readable on any colour.
void paintFocus(QPainter *painter, const QRect &rect, const QColor &highlight);

/// The entry's index, levels and flags.
QString toolTip(const Palette &palette, int index);
/// The same on one line, for a screen reader.
QString spoken(const Palette &palette, int index);

} // namespace SwatchPainting
