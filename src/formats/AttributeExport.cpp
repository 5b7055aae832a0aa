#include "formats/AttributeExport.h"

#include "formats/FileBytes.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QFileInfo>

namespace {

constexpr const char *Header = "\tTA_NONE        = $00\n"
                               "\tTA_TOPSOLID    = $01\n"
                               "\tTA_LEFTSOLID   = $02\n"
                               "\tTA_RIGHTSOLID  = $04\n"
                               "\tTA_BOTTOMSOLID = $08\n"
                               "\tTA_SOLID       = $0F\n"
                               "\tTA_DEADLY      = $10\n"
                               "\tTA_COLLECTIBLE = $20\n"
                               "\tTA_LADDER      = $40\n"
                               "\tTA_DOOR        = $80\n";

/// A damaged project can hold more than the eight bits.
uint byteOf(const Tile *tile)
{
    return static_cast<uint>(tile->attributes()) & 0xFF;
}

} // namespace

QByteArray AttributeExport::assembler(const TileSet &tileSet)
{
    QByteArray text(Header);
    const int last = tileSet.count() - 1;
    for (int index = 0; index <= last; ++index) {
        const int column = index % ValuesPerLine;
        if (column == 0)
            text += "\tdb\t";
        text += '$' + QByteArray::number(byteOf(tileSet.tile(index)), 16).rightJustified(2, '0');
        text += column == ValuesPerLine - 1 || index == last ? '\n' : ',';
    }
    return text;
}

QByteArray AttributeExport::binary(const TileSet &tileSet)
{
    QByteArray bytes;
    for (const Tile *tile : tileSet.tiles())
        bytes += static_cast<char>(byteOf(tile));
    return bytes;
}

bool AttributeExport::write(const TileSet &tileSet, const QString &fileName)
{
    const bool isSource = QFileInfo(fileName).suffix().toLower() == u"asm";
    return FileBytes::write(fileName, isSource ? assembler(tileSet) : binary(tileSet));
}
