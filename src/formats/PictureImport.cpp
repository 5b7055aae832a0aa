#include "formats/PictureImport.h"

#include "formats/PictureFile.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/Tile.h"
#include "model/TileMap.h"
#include "model/TileSet.h"

#include <QFileInfo>

namespace {

constexpr int PixelMask = 0x0F;
constexpr int BankSize = ImageSlicer::BankSize;

qint64 cellCount(const QImage &picture)
{
    return qint64(picture.width() / ImageSlicer::TileSide) *
           (picture.height() / ImageSlicer::TileSide);
}

} // namespace

QString PictureImport::Outcome::message() const
{
    switch (result) {
    case Result::Done:
        return {};
    case Result::PaletteFull:
        return QStringLiteral("The palette is full, so some tiles have wrong colours");
    case Result::Unreadable:
        return QStringLiteral("Could not read the image file");
    case Result::TooManyTiles:
        return QStringLiteral("Cannot import the image as it would need more than 512 tiles\n"
                              "%1 required")
            .arg(tileCount);
    case Result::MapTooLarge:
        return QStringLiteral("The map is too large");
    }
    return {};
}

PictureImport::PictureImport(const QString &fileName)
    : PictureImport(PictureFile::read(fileName), QFileInfo(fileName).baseName())
{
}

PictureImport::PictureImport(const QImage &picture, const QString &name)
    : m_name(name)
    , m_read(!picture.isNull())
    , m_tooLarge(cellCount(picture) > TileMap::MaxCells)
    , m_slicer(m_tooLarge ? QImage() : picture)
{
}

PictureImport::Outcome PictureImport::run(const QPointer<Project> &project)
{
    Outcome outcome;
    if (!m_read || m_tooLarge) {
        outcome.result = m_read ? Result::MapTooLarge : Result::Unreadable;
        return outcome;
    }

    m_slicer.sliceTiles();
    if (!m_slicer.assignBanks())
        outcome.result = Result::PaletteFull;
    outcome.tileCount = static_cast<int>(m_slicer.tiles().size());
    if (outcome.tileCount > ImageSlicer::MaxTiles) {
        outcome.result = Result::TooManyTiles;
        return outcome;
    }

    // The progress runs the event loop, in which the project can end.
    if (project) {
        makePalette(project, &outcome);
        makeTileSet(project, &outcome);
        makeMap(project, &outcome);
    }
    return outcome;
}

void PictureImport::makePalette(Project *project, Outcome *outcome) const
{
    outcome->palette = project->createPalette(CreateBlank, m_name);
    const QList<QRgb> colours = m_slicer.bankColours();
    for (int index = 0; index < colours.size(); ++index)
        outcome->palette->setColour(index, QColor(colours.at(index)));
}

void PictureImport::makeTileSet(Project *project, Outcome *outcome) const
{
    outcome->tileSet = project->createTileSet(m_name, outcome->palette->id());
    for (int index = 0; index < outcome->tileCount; ++index) {
        const ImageSlicer::Slice &slice = m_slicer.tiles().at(index);
        QImage image = slice.image;
        for (int y = 0; y < image.height(); ++y) {
            uchar *line = image.scanLine(y);
            for (int x = 0; x < image.width(); ++x)
                line[x] = static_cast<uchar>((line[x] & PixelMask) + slice.bank * BankSize);
        }
        // The slice has the picture's own colours, of which the palette kept nine bits.
        image.setColorTable(outcome->palette->colourTable());
        Tile *tile = outcome->tileSet->tile(index);
        tile->setOffset(slice.bank);
        tile->setImage(image);
    }
}

void PictureImport::makeMap(Project *project, Outcome *outcome) const
{
    const QSize size(m_slicer.columns(), m_slicer.rows());
    outcome->map = project->createMap(m_name, outcome->tileSet->id(), size);
    if (size.isEmpty())
        return;

    TileMap::Rows rows = outcome->map->tileLayer()->rows();
    auto entry = m_slicer.cells().cbegin();
    for (QList<TileMap::TileData> &row : rows) {
        for (TileMap::TileData &cell : row) {
            cell.index = entry->tile;
            cell.rotate = entry->flags & SquareIndex::Rotate;
            cell.flip = entry->flags & SquareIndex::Flip;
            cell.mirror = entry->flags & SquareIndex::Mirror;
            cell.offset = m_slicer.tiles().at(entry->tile).bank;
            cell.occupied = true;
            ++entry;
        }
    }
    outcome->map->tileLayer()->setTiles(rows);
}
