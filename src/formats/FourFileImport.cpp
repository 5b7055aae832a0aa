#include "formats/FourFileImport.h"

#include "formats/FileBytes.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileMap.h"
#include "model/TileSet.h"

#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype WordBytes = 2;
constexpr qsizetype BlockWords = 4;
constexpr int BlockSide = 2;              // cells
constexpr qsizetype MapHeaderBytes = 2;   // width, height
constexpr qsizetype MapPairBytes = 0x100; // of a pair of rows, its filling included

/// The little-endian word at @p place; 0 if it is not whole.
int wordAt(const QByteArray &data, qsizetype place)
{
    if (place + WordBytes > data.size())
        return 0;
    return qFromLittleEndian<quint16>(data.constData() + place);
}

int byteAt(const QByteArray &data, qsizetype place)
{
    return place < data.size() ? static_cast<uchar>(data.at(place)) : 0;
}

QList<int> readWords(const QString &fileName)
{
    const QByteArray data = FileBytes::read(fileName).value_or(QByteArray());
    QList<int> words(data.size() / WordBytes);
    for (qsizetype index = 0; index < words.size(); ++index)
        words[index] = wordAt(data, index * WordBytes);
    return words;
}

/// Writes the block of the four tiles from @p tiles on, as far as it is inside.
void placeBlock(TileMap::Rows *rows, int x, int y, const int *tiles)
{
    for (int part = 0; part < BlockWords; ++part) {
        const int column = x + part % BlockSide;
        const int row = y + part / BlockSide;
        if (row >= rows->size() || column >= rows->at(row).size())
            continue;
        TileMap::TileData cell;
        cell.index = tiles[part];
        cell.occupied = true;
        (*rows)[row][column] = cell;
    }
}

/// Fills the cells from the blocks that @p data names. False, with what came before it filled, at a
/// block beyond @p words.
bool fillRows(TileMap::Rows *rows, int width, const QByteArray &data, const QList<int> &words)
{
    qsizetype place = MapHeaderBytes;
    for (int y = 0; y < rows->size(); y += BlockSide) {
        for (int x = 0; x < width; x += BlockSide) {
            const qsizetype first = wordAt(data, place) * BlockWords;
            if (first + BlockWords > words.size())
                return false;
            placeBlock(rows, x, y, words.constData() + first);
            place += WordBytes;
        }
        place += MapPairBytes - width;
    }
    return true;
}

bool readMap(Map *map, const QString &mapFile, const QString &blockFile)
{
    const QList<int> words = readWords(blockFile);
    const auto data = FileBytes::read(mapFile);
    if (!data)
        return false;

    const QSize size(byteAt(*data, 0), byteAt(*data, 1));
    map->resize(size, Qt::AlignLeft | Qt::AlignTop);
    if (size.isEmpty())
        return true;

    TileMap::Rows rows = map->tileLayer()->rows();
    const bool complete = fillRows(&rows, size.width(), *data, words);
    map->tileLayer()->setTiles(rows);
    return complete;
}

} // namespace

FourFileImport::Outcome FourFileImport::run(Project *project, const QString &fileName)
{
    const QFileInfo chosen(fileName);
    const QString name = chosen.completeBaseName();
    const QString base = chosen.path() + u'/' + name;
    const QString paletteFile = base + QStringLiteral(".nxp");
    const QString tileFile = base + QStringLiteral(".nxt");
    const QString mapFile = base + QStringLiteral(".nxm");
    const QString blockFile = base + QStringLiteral(".nxb");

    Outcome outcome;
    const std::array files{paletteFile, tileFile, mapFile, blockFile};
    if (!std::all_of(files.begin(), files.end(), [](const auto &f) { return QFile::exists(f); })) {
        outcome.message = QStringLiteral("Some of the required files are missing");
        return outcome;
    }

    outcome.palette = project->createPalette(CreateBlank, name);
    if (!outcome.palette->importData(paletteFile)) {
        outcome.message = QStringLiteral("Could not import the palette data");
        return outcome;
    }
    outcome.tileSet = project->createTileSet(name, outcome.palette->id());
    if (!outcome.tileSet->importNxt(tileFile)) {
        outcome.message = QStringLiteral("Could not import the tile data");
        return outcome;
    }
    outcome.map = project->createMap(name, outcome.tileSet->id(), QSize(1, 1));
    outcome.done = readMap(outcome.map, mapFile, blockFile);
    if (!outcome.done)
        outcome.message = QStringLiteral("Could not import the map data");
    return outcome;
}
