#include "model/Image.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"
#include "support/ZipBytes.h"

#include <QTest>
#include <QtEndian>

#include <functional>

using TestProjects::Entries;

/// Pictures of every kind in each place of a project that holds one.
class tst_PictureSlots : public QObject
{
    Q_OBJECT

private slots:
    void picturesLoadOrAreRefusedInWords_data();
    void picturesLoadOrAreRefusedInWords();
};

namespace {

enum ColourType { Grey = 0, Rgb = 2, Indexed = 3, GreyAlpha = 4, RgbAlpha = 6 };

/// A PNG that is made without Qt, so that it may be one that Qt would not write.
struct Png
{
    ColourType type = Indexed;
    int depth = 8;
    bool isInterlaced = false;
    int colours = 256;
    QSize change{0, 0};  ///< of the size that the place asks for
    QSize claimed = {};  ///< what the header says instead, if valid
    QByteArray bad = {}; ///< the chunk with a wrong checksum
};

QByteArray number(int value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian<qint32>(value, bytes.data());
    return bytes;
}

QByteArray chunk(const QByteArray &name, const QByteArray &data, const Png &png)
{
    const quint32 crc = ZipBytes::crc32(name + data) ^ (png.bad == name ? 1u : 0u);
    return number(int(data.size())) + name + data + number(int(crc));
}

int channelsOf(ColourType type)
{
    switch (type) {
    case Rgb:
        return 3;
    case GreyAlpha:
        return 2;
    case RgbAlpha:
        return 4;
    default:
        return 1;
    }
}

/// One pass over every @p step'th pixel: a filter byte of 0 and the bytes of each line.
QByteArray lines(QSize size, QPoint first, QPoint step, const Png &png)
{
    const int columns = (size.width() - first.x() + step.x() - 1) / step.x();
    const int bits = columns * channelsOf(png.type) * png.depth;
    QByteArray data;
    for (int y = first.y(); columns > 0 && y < size.height(); y += step.y())
        data += '\0' + QByteArray((bits + 7) / 8, char(y % 16));
    return data;
}

QByteArray pixels(QSize size, const Png &png)
{
    if (!png.isInterlaced)
        return lines(size, {0, 0}, {1, 1}, png);
    QByteArray data;
    const QList<QPair<QPoint, QPoint>> passes{{{0, 0}, {8, 8}}, {{4, 0}, {8, 8}}, {{0, 4}, {4, 8}},
                                              {{2, 0}, {4, 4}}, {{0, 2}, {2, 4}}, {{1, 0}, {2, 2}},
                                              {{0, 1}, {1, 2}}};
    for (const auto &[first, step] : passes)
        data += lines(size, first, step, png);
    return data;
}

QByteArray fileOf(QSize asked, const Png &png)
{
    const QSize size = asked + png.change;
    const QSize claimed = png.claimed.isValid() ? png.claimed : size;
    const QByteArray header = number(claimed.width()) + number(claimed.height()) + char(png.depth) +
                              char(png.type) + '\0' + '\0' + char(png.isInterlaced ? 1 : 0);
    QByteArray file("\x89PNG\r\n\x1a\n", 8);
    file += chunk("IHDR", header, png);
    if (png.type == Indexed)
        file += chunk("PLTE", QByteArray(3 * png.colours, '\x7f'), png);
    file += chunk("IDAT", qCompress(pixels(size, png)).mid(4), png);
    return file + chunk("IEND", {}, png);
}

struct Slot
{
    QString folder;
    QSize size;
    QString message; ///< of a picture that is not taken; empty if it is then left out
};

const QList<Slot> &allSlots()
{
    static const QList<Slot> all{
        {"tileset/", {8, 40}, "Error setting tile set anim - Rocks"},
        {"sprite/", {16, 48}, "Project has a missing sprite anim"},
        {"images/", {128, 96}, "Failed to load tile image Title"},
        {"scratch.png", {256, 192}, QString()},
    };
    return all;
}

void addKind(const char *name, const QString &takers, const std::function<QByteArray(QSize)> &make)
{
    for (const Slot &slot : allSlots()) {
        const bool isTaken = takers.contains(slot.folder.at(0));
        QTest::addRow("%s, %s", qPrintable(slot.folder), name)
            << slot.folder << make(slot.size) << (isTaken ? QString() : slot.message);
    }
}

} // namespace

void tst_PictureSlots::picturesLoadOrAreRefusedInWords_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("picture");
    QTest::addColumn<QString>("message");
    // Who takes it: (t)ile sets, (s)prites and the scratch, (i)mages.
    const auto add = [](const char *name, const QString &takers, const Png &png) {
        addKind(name, takers, [&png](QSize size) { return fileOf(size, png); });
    };
    add("indexed", "tsi", {});
    add("interlaced", "tsi", {.isInterlaced = true});
    add("a palette of one", "tsi", {.colours = 1});
    add("a column less", "i", {.change = {-1, 0}});
    add("a row less", "i", {.change = {0, -1}});
    add("four bits", "", {.depth = 1, .colours = 2});
    add("grey", "si", {.type = Grey});
    add("grey of 16 bits", "", {.type = Grey, .depth = 16});
    add("grey with alpha", "", {.type = GreyAlpha});
    add("colours", "", {.type = Rgb});
    add("colours of 16 bits", "", {.type = Rgb, .depth = 16});
    add("colours with alpha", "", {.type = RgbAlpha});
    add("a giant header", "", {.claimed = {0x7fffffff, 0x7fffffff}});
    add("a million wide", "", {.claimed = {1'000'000, 1'000'000}});
    add("no size", "", {.claimed = {0, 0}});
    add("fewer pixels than told", "", {.claimed = {300, 3000}});
    add("a wrong checksum of the header", "", {.bad = "IHDR"});
    add("a wrong checksum of the pixels", "", {.bad = "IDAT"});
    addKind("one pixel", "i", [](QSize size) { return fileOf({1, 1}, {.change = size * 0}); });
    addKind("SVG", "", [](QSize) {
        return QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='8' height='40'/>");
    });
    addKind("BMP", "", [](QSize) { return QByteArray("BM") + QByteArray(200, '\1'); });
    addKind("GIF", "", [](QSize) { return QByteArray("GIF89a\x08\0\x28\0\x80\0\0", 13); });
}

void tst_PictureSlots::picturesLoadOrAreRefusedInWords()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, picture);
    QFETCH(QString, message);
    Project whole;
    TestProjects::fill(&whole);
    Entries entries = whole.archiveEntries(true);
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (entry.key().startsWith(folder))
            *entry = picture;
    }
    Project project;
    QString error;

    const bool loaded = project.load(TestProjects::reader(entries), &error);

    QCOMPARE(error, message);
    QCOMPARE(loaded, message.isEmpty());
    if (!loaded)
        return;
    useProject(&project);
    Project again;
    QVERIFY(again.load(TestProjects::reader(project.archiveEntries(true)), &error));
}

QTEST_GUILESS_MAIN(tst_PictureSlots)
#include "tst_PictureSlots.moc"
