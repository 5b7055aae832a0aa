#include "model/TileSet.h"

#include "formats/FileBytes.h"
#include "formats/NextFormats.h"
#include "formats/NxImage.h"
#include "formats/PixelOrder.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/PictureEquality.h"
#include "model/Tile.h"

namespace {

constexpr int InsertedTileOffset = 1;      // a set's first tiles have 0
constexpr int CharacterBytes = Tile::Side; // of a font, one bit a pixel
constexpr uint PixelMask = 0x0F;           // the bits of a pixel's own value
constexpr uint LeftPixelBit = 0x80;        // of a font's byte

QImage characterImage(const QByteArray &font, qsizetype offset, QImage image, int foreIndex,
                      int backIndex)
{
    for (int y = 0; y < Tile::Side; ++y) {
        const uint bits = static_cast<uchar>(font.at(offset + y));
        uchar *line = image.scanLine(y);
        for (int x = 0; x < Tile::Side; ++x)
            line[x] = static_cast<uchar>((bits & (LeftPixelBit >> x)) ? foreIndex : backIndex);
    }
    return image;
}

} // namespace

bool TileSet::TileState::operator==(const TileState &other) const
{
    return offset == other.offset && attributes == other.attributes && value == other.value &&
           PictureEquality::areEqual(image, other.image);
}

TileSet::TileSet(QObject *parent, int tileCount)
    : QObject(parent)
    , m_id(QUuid::createUuid())
{
    m_tiles.reserve(std::max(tileCount, 0));
    for (int i = 0; i < tileCount; ++i)
        m_tiles.append(new Tile(0, this));
}

TileSet::~TileSet()
{
    clearTiles();
}

int TileSet::tileOffset(int index) const
{
    return contains(index) ? m_tiles.at(index)->offset() : 0;
}

void TileSet::clearTiles()
{
    qDeleteAll(m_tiles);
    m_tiles.clear();
}

void TileSet::appendTile(Tile *tile)
{
    tile->setParent(this);
    m_tiles.append(tile);
}

void TileSet::copyTile(int to, int from)
{
    if (to == from || !contains(to) || !contains(from))
        return;

    emit structureAboutToChange();
    m_tiles.at(to)->setImage(m_tiles.at(from)->image());
    m_tiles.at(to)->setOffset(m_tiles.at(from)->offset());
    emit tileChanged(to);
    emit structureChanged(QStringLiteral("Copy Tile"));
}

void TileSet::moveTile(int from, int to)
{
    if (to == from || !contains(to) || !contains(from))
        return;

    emit structureAboutToChange();
    const int step = from < to ? 1 : -1;
    for (int place = from; place != to; place += step) {
        m_tiles.swapItemsAt(place, place + step);
        emit tileSwapped(place, place + step);
    }
    emit structureChanged(QStringLiteral("Move Tile"));
}

QImage TileSet::tileImage(int index, bool rotate, bool flip, bool mirror, int paletteOffset) const
{
    if (!contains(index)) {
        qInfo() << "Image index out of range" << index;
        return Tile::blankImage(colourTable());
    }

    const QImage &source = m_tiles.at(index)->image();
    QImage image = source.copy();
    const PixelOrder order =
        PixelOrder::of(image.size(), image.bytesPerLine(), rotate, flip, mirror);
    const uint bank = (static_cast<uint>(paletteOffset) * 16) & 0xFF;
    uchar *pixels = image.bits();
    for (int y = 0; y < Tile::Side; ++y) {
        const uchar *line = source.constScanLine(y);
        qsizetype place = order.first + y * order.down;
        for (int x = 0; x < Tile::Side; ++x, place += order.right)
            pixels[place] = static_cast<uchar>((line[x] & PixelMask) | bank);
    }
    return image;
}

bool TileSet::exportData(QString fileName)
{
    QByteArray data;
    data.reserve(m_tiles.size() * NextFormats::TileBytes);
    for (const Tile *tile : std::as_const(m_tiles))
        data += NextFormats::tileBytes(tile->image());
    return FileBytes::write(fileName, data);
}

TileSet::State TileSet::state() const
{
    State state;
    state.reserve(m_tiles.size());
    for (const Tile *tile : m_tiles)
        state.append({tile->image(), tile->offset(), tile->attributes(), tile->value()});
    return state;
}

void TileSet::restore(const State &state)
{
    clearTiles();
    for (const TileState &record : state) {
        auto *tile = new Tile(record.offset, this);
        tile->setImage(record.image);
        tile->setAttributes(record.attributes);
        tile->setValue(record.value);
        m_tiles.append(tile);
    }
}

void TileSet::notifyRestored()
{
    emit restored();
}

void TileSet::addBlockList(const QUuid &id, const QPointer<MapObjects> &blocks)
{
    m_blockLists.insert(id, blocks);
}

void TileSet::setName(QString name)
{
    if (name == m_name)
        return;

    m_name = name;
    emit nameChanged(m_name);
}

void TileSet::setHiRes(bool hiRes)
{
    m_hiRes = hiRes;
}

void TileSet::setPalette(QPointer<Palette> palette)
{
    m_paletteId = QUuid();
    if (m_palette)
        m_palette->disconnect(this);

    m_palette = palette;
    if (!m_palette)
        return;

    m_paletteId = m_palette->id();
    // The signal may tell the colour before it was cut to three bits a channel; the tiles show what
    // the palette does, whether an entry is set or an undo puts it back.
    connect(m_palette, &Palette::colourChanged, this,
            [this](int index) { updateColour(index, m_palette->colour(index)); });
}

void TileSet::notifyImageChanged(int index)
{
    emit tileChanged(index);
}

bool TileSet::importZXFont(int index, int foreIndex, int backIndex, int offset, QString filename)
{
    const std::optional<QByteArray> font = FileBytes::read(filename);
    if (!font)
        return false;

    const QImage blank = Tile::blankImage(colourTable());
    qsizetype place = 0;
    for (int t = index; place < font->size() && t < count(); ++t, place += CharacterBytes) {
        if (font->size() - place < CharacterBytes)
            return false;

        m_tiles.at(t)->setOffset(offset);
        m_tiles.at(t)->setImage(characterImage(*font, place, blank, foreIndex, backIndex));
        emit tileChanged(t);
    }
    return true;
}

void TileSet::importImage(int index, QImage image, int offset)
{
    m_tiles.at(index)->setOffset(offset);
    NxImage picture;
    picture.setImage(image);
    m_tiles.at(index)->setImage(picture.remap(m_palette));
    notifyImageChanged(index);
}

bool TileSet::importNxt(QString filename)
{
    const std::optional<QByteArray> data = FileBytes::read(filename);
    if (!data)
        return false;

    const QList<QRgb> colours = colourTable();
    qsizetype place = 0;
    for (Tile *tile : std::as_const(m_tiles)) {
        if (data->size() - place < NextFormats::TileBytes)
            break;

        tile->setOffset(0);
        tile->setImage(NextFormats::tileImage(*data, place, colours));
        place += NextFormats::TileBytes;
    }
    return true;
}

void TileSet::clearImage(int index)
{
    m_tiles.at(index)->setImage(Tile::blankImage(colourTable()));
    emit tileChanged(index);
}

void TileSet::deleteTile(int index)
{
    emit structureAboutToChange();
    delete m_tiles.takeAt(index);
    emit tileDeleted(index);
    emit structureChanged(QStringLiteral("Delete Tile"));
}

void TileSet::insertTile(int index)
{
    emit structureAboutToChange();
    m_tiles.insert(index, new Tile(InsertedTileOffset, this));
    emit tileInserted(index);
    emit structureChanged(QStringLiteral("Insert Tile"));
}

void TileSet::updateColour(int index, QColor colour)
{
    for (Tile *tile : std::as_const(m_tiles))
        tile->setColourTableEntry(index, colour.rgb());
    emit tileChanged(0);
}

bool TileSet::contains(int index) const
{
    return index >= 0 && index < count();
}

QList<QRgb> TileSet::colourTable() const
{
    return m_palette ? m_palette->colourTable() : QList<QRgb>(Palette::Size, qRgb(0, 0, 0));
}
