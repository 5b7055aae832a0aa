#pragma once

#include <QPointer>

class Map;
class Palette;
class Project;
class TileSet;

/// Copies of documents, made through the project like any new document and named with " (copy)"
/// behind the source's name.
namespace ProjectClones {

/// The cells of the tile layer and nothing else. Null for a map without a tile layer or tile set.
QPointer<Map> clone(Project *project, const Map &source);
/// As by copyWords().
QPointer<Palette> clone(Project *project, const Palette &source);
/// All tiles, over the same palette or a new one if there is none; never hi-res.
QPointer<TileSet> clone(Project *project, const TileSet &source);

/// The colours as they are, without the transparency index; sends nothing.
void copyWords(Palette *to, const Palette &from);

} // namespace ProjectClones
