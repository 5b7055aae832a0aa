#include "bench/Inputs.h"
#include "bench/Rows.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "store/ProjectStore.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <miniz.h>

namespace {

using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr int MapCount = 20;
constexpr int MapSide = 256; // cells
constexpr int TileSetCount = 10;
constexpr int BankCount = 10;
constexpr int SpriteCount = 128; // of a bank
const char *const Input = "20 maps of 256 x 256";

/// 20 maps, 10 tile sets of 512 and 10 banks of 128: noise in the pixels, stretches of like cells
/// in the maps, as games have them.
class LargeProject
{
public:
    LargeProject();

    QString path() const { return m_folder.filePath(QStringLiteral("large.tessaril")); }

    ProjectStore store;

private:
    void addTileSet(const QUuid &palette);
    void addBank(const QUuid &palette);
    void addMap(const QUuid &tileSet);

    QTemporaryDir m_folder;
    QRandomGenerator m_random{20};
};

LargeProject::LargeProject()
{
    Project *project = store.create(QStringLiteral("large"));
    const QUuid palette = project->createPalette(CreateDefault, QStringLiteral("palette"))->id();
    for (int i = 0; i < TileSetCount; ++i)
        addTileSet(palette);
    for (int i = 0; i < BankCount; ++i)
        addBank(palette);
    for (int i = 0; i < MapCount; ++i)
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

Row digest()
{
    return {"digest of a project", Input, 9, [] {
                const auto project = std::make_shared<LargeProject>();
                const auto entries = project->store.project()->archiveEntries(false);
                const Work hash = [entries] {
                    QCryptographicHash sha1(QCryptographicHash::Sha1);
                    for (const QByteArray &entry : entries)
                        sha1.addData(entry);
                    benchmark::DoNotOptimize(sha1.result());
                };
                const Work measured = [project] {
                    benchmark::DoNotOptimize(project->store.digest());
                };
                return Pair{measured, hash};
            }};
}

/// Packs the entries into memory as tightly as a project file has them.
Work packingOf(const QMap<QString, QByteArray> &entries)
{
    return [entries] {
        mz_zip_archive zip = {};
        mz_zip_writer_init_heap(&zip, 0, size_t(1) << 25);
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
            mz_zip_writer_add_mem(&zip, entry.key().toUtf8().constData(), entry->constData(),
                                  static_cast<size_t>(entry->size()), MZ_BEST_COMPRESSION);
        }
        mz_zip_writer_end(&zip);
    };
}

Row save()
{
    return {"save of a project", Input, 1.5, [] {
                const auto project = std::make_shared<LargeProject>();
                const auto entries = project->store.project()->archiveEntries(true);
                const Work measured = [project] {
                    benchmark::DoNotOptimize(project->store.save(true));
                };
                return Pair{measured, packingOf(entries)};
            }};
}

/// Unpacks every entry of an archive in memory.
Work unpackingOf(const QByteArray &archive)
{
    return [archive] {
        mz_zip_archive zip = {};
        mz_zip_reader_init_mem(&zip, archive.constData(), static_cast<size_t>(archive.size()), 0);
        for (mz_uint i = 0; i < mz_zip_reader_get_num_files(&zip); ++i) {
            size_t size = 0;
            void *data = mz_zip_reader_extract_to_heap(&zip, i, &size, 0);
            benchmark::DoNotOptimize(data);
            mz_free(data);
        }
        mz_zip_reader_end(&zip);
    };
}

Row load()
{
    return {"load of a project", Input, 2.7, [] {
                const auto project = std::make_shared<LargeProject>();
                QByteArray archive;
                if (QFile file(project->path());
                    project->store.save(false) && file.open(QIODevice::ReadOnly))
                    archive = file.readAll();
                const Work measured = [project] {
                    benchmark::DoNotOptimize(project->store.load(project->path()));
                };
                return Pair{measured, unpackingOf(archive)};
            }};
}

} // namespace

void Bench::addProjectRows(std::vector<Row> *rows)
{
    rows->push_back(save());
    rows->push_back(load());
    rows->push_back(digest());
}
