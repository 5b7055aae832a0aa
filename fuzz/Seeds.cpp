// Makes the first inputs of every target from nothing but code:  fuzz_seeds FOLDER

#include "ProjectCheck.h"

#include "canvas/CanvasClipboard.h"
#include "editors/SpriteDrag.h"
#include "editors/TileDrag.h"
#include "model/Project.h"
#include "model/TileMap.h"
#include "model/TileMapData.h"
#include "support/TestFiles.h"
#include "support/TestImages.h"
#include "support/TestMaps.h"
#include "support/TestProjects.h"
#include "support/ZipBytes.h"

#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QImageWriter>
#include <QMimeData>
#include <QtEndian>

#include <cstdio>

namespace {

QString target;
QDir root;
bool failed = false;

void seed(const QString &name, const QByteArray &content)
{
    root.mkpath(target);
    failed |= !TestFiles::make(root.filePath(target + u'/' + name), content);
}

QByteArray archiveOf(const QMap<QString, QByteArray> &entries)
{
    QList<ZipBytes::Entry> list;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        list.append({entry.key().toUtf8(), *entry});
    return ZipBytes::archive(list);
}

void projects()
{
    const auto small = ProjectCheck::smallEntries();
    const QMap<QString, QByteArray> empty = Project().archiveEntries(false);
    target = QStringLiteral("Archive");
    seed(QStringLiteral("small"), archiveOf(small));
    seed(QStringLiteral("empty"), archiveOf(empty));
    target = QStringLiteral("ProjectJson");
    seed(QStringLiteral("small"), small.value(QStringLiteral("project.json")));
    seed(QStringLiteral("empty"), empty.value(QStringLiteral("project.json")));
    target = QStringLiteral("TileMap");
    seed(QStringLiteral("3-by-2"), TestProjects::tileMap(2, 3));
    seed(QStringLiteral("0-by-5"), TestProjects::tileMap(5, 0));
}

void rawFiles()
{
    target = QStringLiteral("RawImport");
    const QByteArray all = QByteArray("\x12\x34\x56\x78").repeated(128);
    seed(QStringLiteral("palette"), '\0' + all);
    seed(QStringLiteral("palette-npl"), '\1' + all + '\0');
    seed(QStringLiteral("tiles"), '\2' + all.left(33));
    seed(QStringLiteral("font"), '\3' + all.left(25));
    seed(QStringLiteral("sprites"), '\4' + all.left(300));

    target = QStringLiteral("FourFile");
    QByteArray lengths(6, '\0');
    qToLittleEndian<quint16>(512, lengths.data());
    qToLittleEndian<quint16>(64, lengths.data() + 2);
    qToLittleEndian<quint16>(8, lengths.data() + 4);
    const QByteArray blocks("\0\0\1\0\1\0\0\0\1\0\1\0\0\0\0\0", 16);
    seed(QStringLiteral("level"),
         '\0' + lengths + all + all.left(64) + QByteArray("\4\2\0\0\1\0\0\0", 8) + blocks);
}

void pictures()
{
    target = QStringLiteral("Picture");
    const QImage indexed = TestImages::indexed({"01234567", "12345670", "23456701", "34567012",
                                                "45670123", "56701234", "67012345", "70123456"});
    const QImage coloured = TestImages::distinctSquares(4, 2);
    for (const char *format :
         {"png", "bmp", "gif", "jpg", "ico", "ppm", "pgm", "pbm", "xpm", "xbm"}) {
        for (const QImage &image : {indexed, coloured}) {
            QBuffer buffer;
            if (buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format))
                seed(QString::fromLatin1(format) + QString::number(image.depth()), buffer.data());
        }
    }
    seed(QStringLiteral("gif"),
         QByteArray::fromHex("4749463839610200020080010000000000ff002c0000000002000200000202"
                             "8c51003b"));
    seed(QStringLiteral("svg"), "<svg xmlns='http://www.w3.org/2000/svg' width='16' height='16'>"
                                "<rect width='9' height='9' fill='#f80'/></svg>");
}

QByteArray bytesOf(const QMimeData &data, const QString &type)
{
    return data.data(type);
}

void clipboard()
{
    target = QStringLiteral("Clipboard");
    QMimeData clip;
    CanvasClipboard::write({TestImages::indexed({"0123", "4567"}), 1, 2, QUuid()}, &clip);
    seed(QStringLiteral("canvas"), '\0' + bytesOf(clip, CanvasClipboard::mimeType()));
    seed(QStringLiteral("sprite-clip"), '\1' + bytesOf(clip, CanvasClipboard::mimeType()));
    seed(QStringLiteral("tile"), '\2' + bytesOf(*TileDrag::mimeData({3, 1}), TileDrag::mimeType()));
    seed(QStringLiteral("sprite"),
         '\3' + bytesOf(*SpriteDrag::mimeData(2), SpriteDrag::mimeType()));
    const QUuid tiles(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11); // of the target's map
    seed(QStringLiteral("map"),
         '\4' + TileMapData::write(TestMaps::counted(3, 2), QRect(0, 0, 3, 2), tiles));
}

void texts()
{
    target = QStringLiteral("State");
    seed(
        QStringLiteral("state"),
        "{\"windowState\":\"AAAA/wAAAAD9AAAAAAAAAAAAAAAA\",\"windowGeometry\":\"AdnQywADAAAAAAAA\","
        "\"tileZoom\":4,\"recent\":[\"/a/b.tessaril\"],\"lastPath\":\"/a\"}");
    seed(QStringLiteral("preferences"),
         "{\"general\":{\"backupOnSave\":true,\"updateInterval\":\"weekly\",\"skippedVersion\":\"0."
         "8\"},"
         "\"mapEditor\":{\"gridColour1\":\"#ff0000\",\"gridSize\":8,\"defaultZoom\":2}}");
    target = QStringLiteral("Feed");
    seed(QStringLiteral("feed"),
         "{\"tools\":{\"tessaril\":{\"latest\":\"0.8.0-beta1\",\"channel\":\"beta\",\"released\":"
         "\"2027-01-02\",\"notes_url\":\"https://x.example/n\",\"downloads_url\":\"\"}}}");
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 2)
        return 2;
    root.setPath(QString::fromLocal8Bit(argv[1]));
    projects();
    rawFiles();
    pictures();
    clipboard();
    texts();
    return failed ? 1 : 0;
}
