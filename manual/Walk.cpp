#include "manual/Walk.h"

#include "colour/PaletteGrid.h"
#include "dialogs/ExportMapDialog.h"
#include "dialogs/ImageDialog.h"
#include "dialogs/PreferencesDialog.h"
#include "dialogs/ProjectDialog.h"
#include "editors/ExportDialog.h"
#include "formats/FileBytes.h"
#include "manual/Shortcuts.h"
#include "mapeditor/MapToolPalette.h"
#include "mapeditor/View.h"
#include "model/Map.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "support/DialogDriver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidgetItemIterator>

namespace {

constexpr QSize WindowSize(1280, 800);
constexpr int GrassTile = 48; // of the platform level

using Tool = Tessaril::Ui::ToolButton;

} // namespace

Walk::Walk(const QDir &examples, const QDir &folder)
    : m_examples(examples)
    , m_folder(folder)
    , m_tour(folder.filePath(QStringLiteral("walk")))
    , m_hands(m_tour)
{
    m_folder.mkpath(QStringLiteral("pictures"));
    m_folder.mkpath(QStringLiteral("exports"));
    window().resize(WindowSize);
}

int Walk::run()
{
    makeProject();
    importPicture();
    open(QStringLiteral("lantern-hollow"));
    showMap();
    showTiles();
    showBlocks();
    showSprites();
    open(QStringLiteral("title-picture"));
    showImage();
    showPalette();
    open(QStringLiteral("saltmere"));
    exportFiles();
    writeShortcuts();
    showPreferences();
    return m_tour.failures();
}

void Walk::open(const QString &example)
{
    m_hands.setSubject(example);
    m_hands.choose(views().menuBar->fileMenu(), QStringLiteral("Close"));
    m_hands.choose(views().menuBar->fileMenu(), QStringLiteral("Open"));
    m_hands.chooseFile(m_examples.filePath(example + QStringLiteral(".tessaril")));
    m_hands.check(m_hands.project() && m_hands.project()->name() == example,
                  QStringLiteral("opens"));
    QApplication::processEvents();
}

void Walk::openInTree(const QString &group, const QString &name)
{
    ProjectTree *const tree = views().projectWindow->tree();
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        QTreeWidgetItem *const item = *it;
        if (!item->parent() || item->parent()->text(0) != group || item->text(0) != name)
            continue;
        tree->scrollToItem(item);
        const QPoint at = tree->visualItemRect(item).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, at);
        QApplication::processEvents();
        return;
    }
    m_hands.check(false, QStringLiteral("%1 > %2 is in the tree").arg(group, name));
}

void Walk::fitMap()
{
    const auto *view = qobject_cast<MapEditor::View *>(views().tabs->currentWidget());
    if (!m_hands.check(view, QStringLiteral("shows a map")))
        return;
    view->toolPalette()->action(Tool::ExpandToFit)->trigger();
    QApplication::processEvents();
}

void Walk::picture(const QString &name, QWidget *widget)
{
    QApplication::processEvents();
    const QString file = m_folder.filePath(QStringLiteral("pictures/%1.png").arg(name));
    const QImage image = (widget ? widget : &window())->grab().toImage();
    m_hands.check(image.convertToFormat(QImage::Format_RGB32).save(file),
                  QStringLiteral("picture %1").arg(name));
}

void Walk::makeProject()
{
    m_hands.setSubject(QStringLiteral("project"));
    m_hands.choose(views().menuBar->fileMenu(), QStringLiteral("New"));
    auto *const dialog = m_hands.dialog<ProjectDialog>();
    if (!dialog)
        return;
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("my game"));
    picture(QStringLiteral("new-project"), dialog);
    DialogDriver::pressOk(*dialog);
    m_hands.check(m_hands.project(), QStringLiteral("is made"));
}

void Walk::importPicture()
{
    m_hands.setSubject(QStringLiteral("import"));
    m_hands.choose(views().menuBar->mapMenu(), QStringLiteral("Import"));
    m_hands.chooseFile(m_folder.filePath(QStringLiteral("island.png")));
    const auto map = m_hands.project() ? m_hands.project()->maps().value(0) : nullptr;
    m_hands.check(map && map->tileLayer()->size() == QSize(64, 48),
                  QStringLiteral("makes a map of 64 by 48 cells"));
    openInTree(QStringLiteral("Maps"), QStringLiteral("island"));
    fitMap();
    picture(QStringLiteral("imported"));
}

void Walk::showMap()
{
    for (const QAction *action : views().menuBar->tileMenu()->actions()) {
        if (action->menu() && action->text() == QStringLiteral("Tile List Magnification"))
            m_hands.choose(action->menu(), QStringLiteral("2x"));
    }
    fitMap();
    auto *const view = qobject_cast<MapEditor::View *>(views().tabs->currentWidget());
    if (!view)
        return;
    view->toolPalette()->action(Tool::ZoomIn)->trigger();
    views().tileWindow->raise();
    views().tileWindow->setTileIndex(GrassTile);
    picture(QStringLiteral("level"));
    picture(QStringLiteral("map-tools"), view->toolPalette());
    picture(QStringLiteral("map-bar"), views().mapToolBar);
}

void Walk::showTiles()
{
    picture(QStringLiteral("tile-editor"), views().tileWindow);
    picture(QStringLiteral("tiles"), views().tilePicker);
    m_hands.choose(views().menuBar->tileMenu(), QStringLiteral("Export"));
    if (auto *const dialog = m_hands.dialog<TileEditor::ExportDialog>()) {
        picture(QStringLiteral("export-tiles"), dialog);
        DialogDriver::pressCancel(*dialog);
    }
}

void Walk::showBlocks()
{
    openInTree(QStringLiteral("Hollow"), QStringLiteral("Hollow"));
    auto *const tab = views().tabs->currentWidget();
    if (auto *const list = tab->findChild<QListWidget *>())
        list->setCurrentRow(1);
    picture(QStringLiteral("blocks"), tab);
}

void Walk::showSprites()
{
    openInTree(QStringLiteral("Sprites"), QStringLiteral("Creatures"));
    auto *const tab = views().tabs->currentWidget();
    if (auto *const list = tab->findChild<QListWidget *>())
        list->setCurrentRow(1);
    views().spriteWindow->raise();
    picture(QStringLiteral("sprites"));
}

void Walk::showImage()
{
    openInTree(QStringLiteral("Images"), QStringLiteral("Title"));
    picture(QStringLiteral("layer2"));
}

void Walk::showPalette()
{
    views().paletteWindow->raise();
    m_hands.check(views().paletteWindow->isContentShown(),
                  QStringLiteral("an open image shows its palette"));
    auto *const grid = views().paletteWindow->findChild<PaletteGrid *>();
    QTest::mousePress(grid, Qt::LeftButton, {}, QPoint(8, 24));
    QTest::mouseMove(grid, QPoint(120, 24));
    QTest::mouseRelease(grid, Qt::LeftButton, {}, QPoint(120, 24));
    picture(QStringLiteral("palette"), views().paletteWindow);
}

/// Everything that the game of the manual loads.
void Walk::exportFiles()
{
    const auto target = [this](const char *name) {
        return m_folder.filePath(QStringLiteral("exports/%1").arg(QLatin1String(name)));
    };
    m_hands.setSubject(QStringLiteral("export"));
    exportMap();
    openInTree(QStringLiteral("Sprites"), QStringLiteral("Folk"));
    m_hands.choose(views().menuBar->spriteMenu(), QStringLiteral("Export Data"));
    m_hands.chooseFile(target("folk.spr"));
    exportPalette(QStringLiteral("Folk"), target("folk.pal"));
}

/// Map, tiles and palette at once, by the button in the corner of the map.
void Walk::exportMap()
{
    auto *const corner = DialogDriver::field<QToolButton>(*views().tabs->currentWidget(),
                                                          QStringLiteral("Map actions"));
    m_hands.chooseInPopup(QStringLiteral("Export Map Data"),
                          [corner] { QTest::mouseClick(corner, Qt::LeftButton); });
    auto *const dialog = m_hands.dialog<ExportMapDialog>();
    if (!dialog)
        return;
    for (auto *const box : dialog->findChildren<QCheckBox *>())
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    picture(QStringLiteral("export-map"), dialog);
    QTimer::singleShot(0, dialog, [this] {
        m_hands.chooseFile(m_folder.absoluteFilePath(QStringLiteral("exports")));
    });
    DialogDriver::pressOk(*dialog);
    for (const char *const name : {"tilemap.bin", "tiles.nxt", "palette.bin"}) {
        const QString file = QStringLiteral("exports/Saltmere_") + QLatin1String(name);
        m_hands.check(m_folder.exists(file), file);
    }
}

/// A palette is chosen by opening an image that uses it.
void Walk::exportPalette(const QString &palette, const QString &file)
{
    m_hands.choose(views().menuBar->imageMenu(), QStringLiteral("New Image"));
    auto *const dialog = m_hands.dialog<ImageDialog>();
    if (!dialog)
        return;
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), palette + QStringLiteral(" swatch"));
    for (auto *const combo : dialog->findChildren<QComboBox *>()) {
        if (combo->findText(palette) >= 0)
            combo->setCurrentText(palette);
    }
    DialogDriver::pressOk(*dialog);
    openInTree(QStringLiteral("Images"), palette + QStringLiteral(" swatch"));
    m_hands.choose(views().menuBar->paletteMenu(), QStringLiteral("Export"));
    m_hands.chooseFile(file);
    m_hands.check(QFileInfo(file).size() == 512, palette + QStringLiteral(" palette is exported"));
}

void Walk::showPreferences()
{
    m_hands.choose(views().menuBar->fileMenu(), QStringLiteral("Preferences"));
    if (auto *const dialog = m_hands.dialog<PreferencesDialog>()) {
        picture(QStringLiteral("preferences"), dialog);
        DialogDriver::pressCancel(*dialog);
    }
}

void Walk::writeShortcuts()
{
    openInTree(QStringLiteral("Saltmere"), QStringLiteral("Saltmere"));
    const QByteArray page = Shortcuts::page(window()).toUtf8();
    m_hands.check(FileBytes::write(m_folder.filePath(QStringLiteral("keys.md")), page),
                  QStringLiteral("the page of keys is written"));
}
