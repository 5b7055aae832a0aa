#include "dialogs/DocumentCombo.h"
#include "dialogs/ImportZXFontDialog.h"
#include "dialogs/TileSetDialog.h"
#include "editors/TilePickerGrid.h"
#include "formats/FileBytes.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "tour/PaintDesk.h"
#include "uikit/ToolPalette.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QSpinBox>
#include <QToolButton>

namespace {

const QString Font = QStringLiteral("/usr/share/fonts/X11/misc/clR8x8.pcf.gz");
constexpr int FirstCharacter = 32;
constexpr int CharacterCount = 96;

/// Makes a character set of a real bitmap font; its bytes.
QByteArray makeCharacters(WindowTour &tour, const QString &script, const QString &file)
{
    QProcess python;
    python.start(QStringLiteral("python3"), {script, Font, file});
    const bool done = python.waitForFinished() && python.exitCode() == 0;
    const QByteArray bytes = FileBytes::read(file).value_or(QByteArray());
    tour.check(done && bytes.size() == CharacterCount * Tile::Side,
               QStringLiteral("a character set of a real font"));
    return bytes;
}

/// Makes a tile set by the menu and its dialog, over a palette that is there.
QPointer<TileSet> makeTiles(WindowTour &tour, const QString &name, const QString &palette)
{
    tour.choose(tour.views().menuBar->tileMenu(), QStringLiteral("New Tile Set"));
    auto *const dialog = tour.dialog<TileSetDialog>();
    if (!dialog)
        return nullptr;
    QTest::keyClicks(DialogDriver::field<QLineEdit>(*dialog, QStringLiteral("Name")), name);
    auto *const isNew =
        DialogDriver::button<QCheckBox>(*dialog, QStringLiteral("New empty palette"));
    QTest::mouseClick(isNew, Qt::LeftButton, {}, {8, isNew->height() / 2});
    auto *const palettes =
        DialogDriver::field<DocumentCombo>(*dialog, QStringLiteral("Existing palette"));
    palettes->setCurrentIndex(palettes->findText(palette));
    DialogDriver::pressOk(*dialog);
    tour.activate();
    const QPointer<TileSet> tiles = tour.views().tilePicker->tileSet();
    tour.check(tiles && tiles->name() == name && tiles->palette()->name() == palette,
               QStringLiteral("a tile set for it"));
    return tiles;
}

void importCharacters(WindowTour &tour, const QString &file)
{
    for (const QAction *const action : tour.views().menuBar->tileMenu()->actions()) {
        if (action->menu() && action->text() == QStringLiteral("Import"))
            tour.choose(action->menu(), QStringLiteral("Spectrum Chars"));
    }
    auto *const dialog = tour.dialog<ImportZXFontDialog>();
    if (!dialog)
        return;
    QTest::mouseClick(DialogDriver::button<QToolButton>(*dialog, QStringLiteral("...")),
                      Qt::LeftButton);
    tour.chooseFile(file);
    auto *const start = DialogDriver::field<QSpinBox>(*dialog, QStringLiteral("Start Tile"));
    start->selectAll();
    QTest::keyClicks(start, QString::number(FirstCharacter));
    tour.pictures(QStringLiteral("painting-font-1-dialog"), dialog);
    DialogDriver::pressOk(*dialog);
    tour.activate();
}

/// Whether the tile shows the character: set bits in one colour, clear ones in another.
bool shows(const Tile &tile, const QByteArray &rows)
{
    for (int y = 0; y < Tile::Side; ++y) {
        for (int x = 0; x < Tile::Side; ++x) {
            const bool isSet = (rows.at(y) << x & 0x80) != 0;
            if (tile.image().pixelIndex(x, y) != (isSet ? 15 : 0))
                return false;
        }
    }
    return true;
}

void compareCharacters(WindowTour &tour, const TileSet &tiles, const QByteArray &bytes)
{
    int right = 0;
    for (int i = 0; i < CharacterCount; ++i)
        right += shows(*tiles.tile(FirstCharacter + i), bytes.mid(i * Tile::Side, Tile::Side));
    tour.check(right == CharacterCount, QStringLiteral("each character is a tile"));
    const QByteArray blank(Tile::Side, '\0');
    tour.check(shows(*tiles.tile(FirstCharacter - 1), blank) &&
                   shows(*tiles.tile(FirstCharacter + CharacterCount), blank),
               QStringLiteral("and no tile more"));
}

} // namespace

void fontChapter(WindowTour &tour, const QString &script)
{
    tour.tour().beginChapter(QStringLiteral("A character set becomes tiles"));
    tour.setSubject(QStringLiteral("font"));
    const QString file = tour.folder().filePath(QStringLiteral("font.ch8"));
    const QByteArray bytes = makeCharacters(tour, script, file);
    const auto tiles = makeTiles(tour, QStringLiteral("letters"), QStringLiteral("title"));
    if (!tiles || bytes.isEmpty())
        return;

    importCharacters(tour, file);
    compareCharacters(tour, *tiles, bytes);
    TilePickerGrid *const picker = tour.views().tilePicker->grid();
    picker->setMagnification(2);
    tour.pictures(QStringLiteral("painting-font-2-tiles"));
    tour.views().tileWindow->setTileIndex(FirstCharacter + 'A' - ' ' + 1);
    PaintDesk desk(tour, tour.views().tileWindow->findChild<Canvas *>(),
                   tour.views().tileWindow->findChild<ToolPalette *>(), nullptr);
    tour.check(desk.looksRight(), QStringLiteral("a letter shows in the tile editor"));
    picker->setMagnification(TilePickerGrid::DefaultMagnification);
}
