#pragma once

#include <QByteArray>
#include <QPointer>
#include <QString>

class Map;
class Palette;
class Project;
class TileSet;

/// The import of a level that stands in four files of one base name: palette (.nxp), tiles (.nxt),
/// map (.nxm) and blocks of 2 by 2 tiles (.nxb).
///
/// .nxb: little-endian words, four for each block: top left, top right, bottom left, bottom right,
/// each a whole tile index.
/// .nxm: the width and the height in cells, one byte each; then for each pair of rows a
/// little-endian block number for each pair of columns, and 256 minus width bytes of filling.
namespace FourFileImport {

struct Outcome
{
    bool done = false;
    QString message; ///< why not, in the user's words
    QPointer<Palette> palette;
    QPointer<TileSet> tileSet;
    QPointer<Map> map;
};

/// Imports the four files beside @p fileName, which is any of them. If one is missing nothing is
/// made; what was made before a later failure stays in @p project.
Outcome run(Project *project, const QString &fileName);

} // namespace FourFileImport
