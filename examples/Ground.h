#pragma once

#include "examples/Brush.h"

#include <QStringList>

/// Stone, earth and water in squares of 16 by 16 pixels, in patterns that repeat every 32 pixels so
/// that they share their tiles.
namespace Ground {

inline constexpr int Side = 16; // pixels of a square

/// A grid of letters, one for each square.
class Plan
{
public:
    Plan(QSize size, QChar letter);

    int width() const { return static_cast<int>(m_rows.first().size()); }
    int height() const { return static_cast<int>(m_rows.size()); }
    void put(QRect squares, QChar letter);
    /// The letter of a square; outside the plan that of the nearest square inside.
    QChar at(int x, int y) const;

private:
    QStringList m_rows;
};

/// How near a pixel is to the middle of its stone: 0 in the crack between two, up to 255.
int stone(int x, int y, int seed);

inline constexpr QChar Solid = '#';
inline constexpr QChar Cave = ':';
inline constexpr QChar Sky = '.';
inline constexpr QChar Water = 'w';

/// Draws the squares of rock and earth, with grass below the sky, and the walls of the caves.
void draw(Brush &brush, const Plan &plan);

} // namespace Ground
