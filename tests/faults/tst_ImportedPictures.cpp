#include "Sweep.h"

#include "canvas/Canvas.h"
#include "canvas/View.h"
#include "control/ActionsDesk.h"
#include "formats/SpriteImport.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/PictureBytes.h"
#include "support/TestFiles.h"
#include "support/TestImages.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"

#include <QApplication>
#include <QBuffer>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

/// Pictures that lie, are cut, or are far too large, to every import of a picture: to a level, to
/// sprites of a bank, and to a canvas. Each ends, in bounded memory, and says what became of it.
class tst_ImportedPictures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_desk.reset(); }

    void aLevelIsMadeOrRefusedInWords_data() { addPictures(); }
    void aLevelIsMadeOrRefusedInWords();
    void spritesAreAddedOrNoneIs_data() { addPictures(); }
    void spritesAreAddedOrNoneIs();
    void aCanvasIsFilledOrStays_data() { addPictures(); }
    void aCanvasIsFilledOrStays();

private:
    static void addPictures();
    static void addHeaders();
    static void addPngs();
    QString path() const { return m_folder->filePath(QStringLiteral("picture")); }
    Project *project() const { return m_desk->project(); }
    QString told() const;
    void verifyBounds(qint64 startMs);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ActionsDesk> m_desk;
};

namespace {

using PictureBytes::Png;

constexpr int MaxMegabytes = 1024;
constexpr int MaxMs = 20'000; // of the processor, for the largest picture that is taken

const QString Unread = QStringLiteral("Could not read the image file");
/// The number of tiles stands behind it.
const QString TooManyTiles =
    QStringLiteral("Cannot import the image as it would need more than 512 tiles\n");

QByteArray fileOf(const QImage &image, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

/// A picture of as many colours as pixels.
QImage colourful(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256 + 4 * (y / 256)) * 16));
    }
    return image;
}

QImage plain(QSize size)
{
    QImage image(size, QImage::Format_Mono);
    image.fill(0);
    return image;
}

/// Whether the picture can be read, by the words for a level made of it.
bool isRead(const QString &message)
{
    return message != Unread;
}

void add(const char *name, const QByteArray &file, const QString &message)
{
    QTest::newRow(name) << file << message;
}

/// Whether a project can be saved and loads again; or cannot be saved, in words, as a bank of more
/// sprites than a picture file holds cannot.
bool isSavedOrRefused(const Project &project)
{
    Project copy;
    QString error;
    const TestProjects::Entries entries = project.archiveEntries(true);
    const bool isTooHigh = std::any_of(entries.cbegin(), entries.cend(),
                                       [](const auto &entry) { return entry.isEmpty(); });
    return copy.load(TestProjects::reader(entries), &error) ||
           (isTooHigh && error == QStringLiteral("Project has a missing sprite anim"));
}

} // namespace

void tst_ImportedPictures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_desk = std::make_unique<ActionsDesk>("game");
    Sweep::forgetPeak();
}

/// The message is that of an import to a level, empty if it is done.
void tst_ImportedPictures::addPictures()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("message");
    const QByteArray jpeg = fileOf(colourful({64, 64}), "jpg");
    add("7 by 7", fileOf(colourful({7, 7}), "png"), QString());
    add("512 tiles", fileOf(TestImages::distinctSquares(512, 32), "png"), QString());
    add("513 tiles", fileOf(TestImages::distinctSquares(513, 27), "png"),
        TooManyTiles + "513 required");
    add("100,000 colours", fileOf(colourful({400, 256}), "png"), TooManyTiles);
    add("32767 by 32767", PictureBytes::png({8, 8}, {.claimed = {32767, 32767}}), Unread);
    add("32767 by 8", fileOf(plain({32767, 8}), "png"), QString());
    add("8 by 32767", fileOf(plain({8, 32767}), "png"), QString());
    add("the most that is read", fileOf(plain({8192, 4096}), "png"), QString());
    add("a line more", fileOf(plain({8192, 4097}), "png"), Unread);
    add("JPEG without its picture", jpeg.left(20), Unread);
    add("animated GIF", PictureBytes::gif({16, 16}, 3), QString());
    add("GIF of a thousand frames", PictureBytes::gif({8, 8}, 1000), QString());
    add("GIF without a frame", PictureBytes::gif({16, 16}, 0), Unread);
    add("nothing", QByteArray(), Unread);
    add("zeros", QByteArray(100'000, '\0'), Unread);
    addHeaders();
    addPngs();
}

void tst_ImportedPictures::addHeaders()
{
    add("PPM 0 by 0", "P6\n0 0\n255\n", Unread);
    add("PPM of minus one", "P6\n-1 -1\n255\n" + QByteArray(100, 'x'), Unread);
    add("PPM 99999 by 99999", "P6\n99999 99999\n255\n" + QByteArray(100, 'x'), Unread);
    add("PPM 2^31 wide", "P6\n2147483648 1\n255\n" + QByteArray(100, 'x'), Unread);
    add("PPM of no depth", "P6\n8 8\n0\n" + QByteArray(192, 'x'), Unread);
    add("PPM that never says", "P3\n" + QByteArray(1 << 20, ' '), Unread);
    add("PPM of comments", "P3\n" + QByteArray("#\n").repeated(1 << 19), Unread);
    add("PGM cut", "P5\n16 16\n255\n" + QByteArray(100, 'x'), Unread);
    const QByteArray xpm = "/* XPM */\nstatic char *a[] = {\n";
    add("XPM 32767 by 32767", xpm + "\"32767 32767 1 1\",\n\"a c #000000\",\n\"a\"};", Unread);
    add("XPM of a million colours", xpm + "\"8 8 1000000 4\",\n\"aaaa c #000000\"};", Unread);
    add("XPM of wide letters", xpm + "\"8 8 1 100000\",\n\"a c #000000\"};", Unread);
    add("XPM of minus one", xpm + "\"-1 -1 -1 -1\"};", Unread);
    add("XPM without an end", xpm + "\"8 8 1 1\",\n\"a c #000000\",\n\"aaaa", Unread);
    add("BMP 2^31 high", PictureBytes::bmp({8, -0x7fffffff - 1}, 192), Unread);
    add("BMP 99999 by 99999", PictureBytes::bmp({99999, 99999}, 192), Unread);
    add("BMP 0 by 0", PictureBytes::bmp({0, 0}, 0), Unread);
    const QByteArray header = PictureBytes::bmp({99999, 99999}, 16).mid(14);
    add("ICO of 65535 pictures", PictureBytes::ico(65535, header, 56, 22), Unread);
    add("ICO of none", PictureBytes::ico(0, header, 56, 22), Unread);
    add("ICO beyond its end", PictureBytes::ico(1, header, 0xffffffff, 0xfffffff0), Unread);
    add("ICO of a huge picture", PictureBytes::ico(1, header, quint32(header.size()), 22), Unread);
    add("ICO of a huge PNG",
        PictureBytes::ico(1, PictureBytes::png({8, 8}, {.claimed = {60000, 60000}}), 300, 22),
        Unread);
}

void tst_ImportedPictures::addPngs()
{
    const QSize size(16, 16);
    const auto row = [size](const char *name, const Png &png, const QString &message) {
        add(name, PictureBytes::png(size, png), message);
    };
    row("PNG 0 by 0", {.claimed = {0, 0}}, Unread);
    row("PNG 2^31 - 1", {.claimed = {0x7fffffff, 0x7fffffff}}, Unread);
    row("PNG of fewer lines", {.claimed = {16, 3000}}, Unread);
    row("PNG, grey", {.type = Png::Grey}, QString());
    row("PNG, grey of 16 bits", {.type = Png::Grey, .depth = 16}, QString());
    row("PNG, grey with alpha", {.type = Png::GreyAlpha}, QString());
    row("PNG, 16 bits", {.type = Png::Rgb, .depth = 16}, QString());
    row("PNG, alpha", {.type = Png::RgbAlpha}, QString());
    row("PNG, interlaced", {.isInterlaced = true}, QString());
    row("PNG, one bit", {.depth = 1, .colours = 2}, QString());
    row("PNG, a palette of one", {.colours = 1}, QString());
    row("PNG, 15 wide", {.change = {-1, 0}}, QString());
    row("PNG, a row short", {.change = {0, -1}}, QString());
    row("PNG, broken header", {.bad = "IHDR"}, Unread);
    row("PNG, broken pixels", {.bad = "IDAT"}, Unread);
}

/// What the box of an import says; empty if none is open.
QString tst_ImportedPictures::told() const
{
    const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    return box ? box->informativeText() : QString();
}

void tst_ImportedPictures::verifyBounds(qint64 startMs)
{
    const int peak = Sweep::peakMegabytes();
    const qint64 spent = Sweep::usedMs() - startMs;
    QVERIFY2(peak < MaxMegabytes, qPrintable(QString::number(peak)));
    QVERIFY2(spent < MaxMs * (peak > 0 ? 1 : 10), qPrintable(QString::number(spent)));
}

void tst_ImportedPictures::aLevelIsMadeOrRefusedInWords()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, message);
    QVERIFY(TestFiles::make(path(), file));
    const qint64 start = Sweep::usedMs();

    m_desk->actions.importMap(path());

    verifyBounds(start);
    QVERIFY2(message.isEmpty() ? told().isEmpty() : told().startsWith(message), qPrintable(told()));
    const bool isMade = message.isEmpty();
    QCOMPARE(project()->maps().size(), isMade ? 1 : 0);
    QCOMPARE(project()->tileSets().size(), isMade ? 1 : 0);
    const QWidgetList left = QApplication::topLevelWidgets();
    for (const QWidget *widget : left)
        QVERIFY(!qobject_cast<const QProgressDialog *>(widget));
    QVERIFY(isSavedOrRefused(*project()));
    useProject(project());
}

void tst_ImportedPictures::spritesAreAddedOrNoneIs()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, message);
    QVERIFY(TestFiles::make(path(), file));
    const qint64 start = Sweep::usedMs();

    const auto palette = project()->createPalette(CreateDefault, QStringLiteral("Day"));
    const auto own =
        SpriteImport::importSheet(project(), nullptr, path(), SpriteImport::ImagePalette, QUuid());
    const auto mapped = SpriteImport::importSheet(project(), nullptr, path(),
                                                  SpriteImport::ProjectPalette, palette->id());
    const int before = mapped.bank->count();
    SpriteImport::importSheet(project(), mapped.bank, path(), SpriteImport::Append, QUuid());

    verifyBounds(start);
    if (!isRead(message)) {
        QCOMPARE(own.bank->count(), 1);
        QCOMPARE(before, 1);
        QCOMPARE(mapped.bank->count(), 1);
    }
    QVERIFY(isSavedOrRefused(*project()));
    useProject(project());
}

void tst_ImportedPictures::aCanvasIsFilledOrStays()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, message);
    QVERIFY(TestFiles::make(path(), file));
    const auto palette = project()->createPalette(CreateDefault, QStringLiteral("Day"));
    ImageEditor::View view;
    view.setPalette(palette);
    view.setImage(project()->scratchImage());
    const QImage before = view.canvas()->image();
    const qint64 start = Sweep::usedMs();

    QCOMPARE(view.importImage(path()), isRead(message));

    verifyBounds(start);
    if (!isRead(message))
        QCOMPARE(view.canvas()->image(), before);
    view.resize(300, 200);
    QVERIFY(!view.grab().isNull());
}

QTEST_MAIN(tst_ImportedPictures)
#include "tst_ImportedPictures.moc"
