#pragma once

#include <QList>
#include <QPoint>
#include <QStringList>

class Brush;

/// The figures of the lantern game. Each frame has 16 rows of 16 letters; a letter is the pixel
/// value in hexadecimal, and '.' is the transparent value.
namespace Figures {

inline constexpr int Side = 16; // pixels

/// The steps of the lantern bearer, walking to the right.
const QList<QStringList> &bearer();
const QList<QStringList> &slime();
const QList<QStringList> &bat();
/// A turning coin.
QList<QStringList> coin();

/// The sixteen colours of each, as octal digits.
const QList<int> &bearerColours();
const QList<int> &slimeColours();
const QList<int> &frostSlimeColours();
const QList<int> &batColours();
const QList<int> &coinColours();

/// Draws a frame where a picture shows it without the hardware's help.
void draw(Brush &brush, QPoint at, const QStringList &frame, const QList<int> &colours);

} // namespace Figures
