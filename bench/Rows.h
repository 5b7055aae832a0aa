#pragma once

#include <QSize>

#include <functional>
#include <string>
#include <vector>

/// The roads through the program that have a speed budget.
namespace Bench {

/// One repetition of something that is timed.
using Work = std::function<void()>;

/// What a row times; the two share their input.
struct Pair
{
    Work measured;
    Work bound;
};

inline constexpr double NoBudget = 0;

/// A line of the table. The median time of the road, divided by that of its bound, must not pass
/// the budget; without one the row is only told.
struct Row
{
    std::string road;
    std::string input;
    double budget = NoBudget;
    /// Makes the input, with fixed seeds; called once, right before the row is timed.
    std::function<Pair()> prepare;
};

/// Copies @p bytes bytes between two buffers: the least that making so many bytes can cost.
Work copyOf(qsizetype bytes);

/// Draws a ready picture of @p size onto another: the least that painting so much can cost.
Work pictureOf(QSize size);

/// Every row of the table, in its order. A new file of rows adds its function here.
std::vector<Row> allRows();

void addCanvasRows(std::vector<Row> *rows);
void addImportRows(std::vector<Row> *rows);
void addMapPaintRows(std::vector<Row> *rows);
void addMapRows(std::vector<Row> *rows);
void addPaintingRows(std::vector<Row> *rows);
void addPaletteRows(std::vector<Row> *rows);
void addPickerRows(std::vector<Row> *rows);
void addPictureRows(std::vector<Row> *rows);
void addProjectRows(std::vector<Row> *rows);

} // namespace Bench
