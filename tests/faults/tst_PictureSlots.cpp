#include "model/Image.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/PictureBytes.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"

#include <QTest>

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

using PictureBytes::Png;

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
        addKind(name, takers, [&png](QSize size) { return PictureBytes::png(size, png); });
    };
    add("indexed", "tsi", {});
    add("interlaced", "tsi", {.isInterlaced = true});
    add("a palette of one", "tsi", {.colours = 1});
    add("a column less", "i", {.change = {-1, 0}});
    add("a row less", "i", {.change = {0, -1}});
    add("four bits", "", {.depth = 1, .colours = 2});
    add("grey", "si", {.type = Png::Grey});
    add("grey of 16 bits", "", {.type = Png::Grey, .depth = 16});
    add("grey with alpha", "", {.type = Png::GreyAlpha});
    add("colours", "", {.type = Png::Rgb});
    add("colours of 16 bits", "", {.type = Png::Rgb, .depth = 16});
    add("colours with alpha", "", {.type = Png::RgbAlpha});
    add("a giant header", "", {.claimed = {0x7fffffff, 0x7fffffff}});
    add("a million wide", "", {.claimed = {1'000'000, 1'000'000}});
    add("no size", "", {.claimed = {0, 0}});
    add("fewer pixels than told", "", {.claimed = {300, 3000}});
    add("a wrong checksum of the header", "", {.bad = "IHDR"});
    add("a wrong checksum of the pixels", "", {.bad = "IDAT"});
    addKind("one pixel", "i", [](QSize size) {
        return PictureBytes::png({1, 1}, {.change = size * 0});
    });
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
