#include "bench/LargeProject.h"

#include "bench/Inputs.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"

using Bench::LargeProject;

namespace {

constexpr int MapSide = 256; // cells
constexpr int TileSetCount = 10;
constexpr int BankCount = 10;
constexpr int SpriteCount = 128; // of a bank

} // namespace

LargeProject::LargeProject(int mapCount)
{
    Project *project = store.create(QStringLiteral("large"));
    const QUuid palette = project->createPalette(CreateDefault, QStringLiteral("palette"))->id();
    for (int i = 0; i < TileSetCount; ++i)
        addTileSet(palette);
    for (int i = 0; i < BankCount; ++i)
        addBank(palette);
    for (int i = 0; i < mapCount; ++i)
        addMap(project->tileSets().at(i % TileSetCount)->id());
    store.setFileName(path());
}

void LargeProject::addTileSet(const QUuid &palette)
{
    const auto tileSet = store.project()->createTileSet(QStringLiteral("tiles"), palette);
    for (Tile *tile : tileSet->tiles()) {
        QImage image = tile->image();
        for (int i = 0; i < Tile::Side * Tile::Side; ++i)
            image.setPixel(i % Tile::Side, i / Tile::Side, m_random.bounded(16U));
        tile->setImage(image);
    }
}

void LargeProject::addBank(const QUuid &palette)
{
    const auto bank = store.project()->createSpriteBank(Tessaril::Sprite::EightBit,
                                                        QStringLiteral("sprites"), palette);
    QImage strip(SpriteBank::SpriteSide, SpriteBank::SpriteSide * SpriteCount,
                 QImage::Format_Indexed8);
    strip.setColorTable(bank->image().colorTable());
    for (int y = 0; y < strip.height(); ++y) {
        for (int x = 0; x < strip.width(); ++x)
            strip.setPixel(x, y, m_random.bounded(64U));
    }
    bank->setStrip(strip);
}

void LargeProject::addMap(const QUuid &tileSet)
{
    const auto map = store.project()->createMap(QStringLiteral("map"), tileSet, {MapSide, MapSide});
    TileMap::Rows rows = map->tileLayer()->rows();
    TileMap::TileData cell;
    for (auto &row : rows) {
        for (TileMap::TileData &target : row) {
            if (m_random.bounded(4) == 0)
                cell = Bench::anyCell(m_random.bounded(1 << 16));
            target = cell;
        }
    }
    map->tileLayer()->setTiles(rows);
}
