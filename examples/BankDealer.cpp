#include "examples/BankDealer.h"

#include "examples/Brush.h"
#include "model/Map.h"
#include "model/NextColour.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int BankSize = 16;
constexpr int BankCount = 16;
constexpr int FirstEntry = BankDealer::FreeEntry + 1;
constexpr int Free = 0707; // the Next's own colour for what is transparent

using Bank = QList<quint16>; // colour words

Bank coloursOf(const Tile &tile, const Palette &palette)
{
    Bank colours;
    for (int pixel = 0; pixel < Tile::Side * Tile::Side; ++pixel) {
        const int value = tile.image().pixelIndex(pixel % Tile::Side, pixel / Tile::Side);
        const quint16 word = palette.word((value % BankSize) + tile.offset() * BankSize);
        if (!colours.contains(word))
            colours += word;
    }
    return colours;
}

/// The bank that needs the fewest new entries for @p colours, or -1.
int bestBank(const QList<Bank> &banks, const Bank &colours)
{
    int best = -1;
    qsizetype fewest = BankSize;
    for (int bank = 0; bank < banks.size(); ++bank) {
        const auto missing = std::count_if(colours.cbegin(), colours.cend(), [&](quint16 word) {
            return !banks.at(bank).contains(word);
        });
        if (missing < fewest && FirstEntry + banks.at(bank).size() + missing <= BankSize) {
            fewest = missing;
            best = bank;
        }
    }
    return best;
}

/// The bank of each tile; empty if the colours do not fit. The tiles with most colours go first.
QList<int> chooseBanks(const QList<Bank> &tiles, QList<Bank> *banks)
{
    QList<int> order(tiles.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return tiles.at(a).size() > tiles.at(b).size(); });
    QList<int> chosen(tiles.size());
    for (const int tile : std::as_const(order)) {
        const int bank = bestBank(*banks, tiles.at(tile));
        if (bank < 0)
            return {};
        for (const quint16 word : tiles.at(tile)) {
            if (!banks->at(bank).contains(word))
                (*banks)[bank] += word;
        }
        chosen[tile] = bank;
    }
    return chosen;
}

QImage inBank(const Tile &tile, const Palette &palette, const Bank &bank)
{
    QImage image = tile.image();
    for (int y = 0; y < Tile::Side; ++y) {
        for (int x = 0; x < Tile::Side; ++x) {
            const int value = tile.image().pixelIndex(x, y) % BankSize;
            const quint16 word = palette.word(value + tile.offset() * BankSize);
            image.setPixel(x, y, static_cast<uint>(FirstEntry + bank.indexOf(word)));
        }
    }
    return image;
}

void fillPalette(Palette *palette, const QList<Bank> &banks)
{
    for (int bank = 0; bank < banks.size(); ++bank) {
        const int first = bank * BankSize;
        palette->setColour(first + BankDealer::FreeEntry, QColor(Brush::colour(Free)));
        for (int entry = FirstEntry; entry < BankSize; ++entry)
            palette->setWord(first + entry, banks.at(bank).value(entry - FirstEntry, 0));
    }
}

} // namespace

bool BankDealer::deal(TileSet *tiles, int count, Palette *palette, Map *map)
{
    QList<Bank> colours;
    for (int index = 0; index < count; ++index)
        colours += coloursOf(*tiles->tile(index), *palette);
    QList<Bank> banks(BankCount);
    const QList<int> chosen = chooseBanks(colours, &banks);
    if (chosen.isEmpty())
        return false;

    for (int index = 0; index < count; ++index) {
        Tile *tile = tiles->tile(index);
        tile->setImage(inBank(*tile, *palette, banks.at(chosen.at(index))));
        tile->setOffset(chosen.at(index));
    }
    fillPalette(palette, banks);
    for (int index = 0; index < Palette::Size; ++index)
        tiles->updateColour(index, palette->colour(index));
    TileMap::Rows rows = map->tileLayer()->rows();
    for (auto &row : rows) {
        for (TileMap::TileData &cell : row)
            cell.offset = chosen.value(cell.index);
    }
    map->tileLayer()->setTiles(rows);
    return true;
}
