#include "colour/ColourSelector.h"
#include "colour/PaletteGrid.h"
#include "editors/FrameEditorWidget.h"
#include "editors/SpriteList.h"
#include "editors/TilePickerGrid.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/TestSprites.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <cmath>
#include <functional>

namespace {

constexpr int Columns = 8; // that each screen shows

void send(QWidget *widget, QEvent::Type type, QPointF position, Qt::MouseButton button)
{
    const bool isDown = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, position, widget->mapToGlobal(position), button,
                      isDown ? button : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void click(QWidget *widget, QPointF position)
{
    send(widget, QEvent::MouseButtonPress, position, Qt::LeftButton);
    send(widget, QEvent::MouseButtonRelease, position, Qt::LeftButton);
}

/// What a click at each point of the screen hits, where a row of cells begins at @p left.
struct Row
{
    QWidget *widget;
    int left;
    int cell;                            // pixels
    std::function<int(QPointF)> hitCell; // clicks or moves there
};

/// The first wrong hit in words; none if each point of the screen hits a cell that it shows.
QString wrongHit(const Row &row)
{
    constexpr double Hair = 1e-6;
    const double ratio = row.widget->devicePixelRatioF();
    const double y = std::floor(row.cell / 2.0 * ratio) / ratio;
    const auto cellAt = [&row](double x) { return int(std::floor((x - row.left) / row.cell)); };
    const int end = int((row.left + Columns * row.cell) * ratio);
    for (int x = int(std::ceil(row.left * ratio)); x < end; ++x) {
        const int first = cellAt(x / ratio + Hair);
        const int last = std::min(cellAt((x + 1) / ratio - Hair), Columns - 1);
        const int hit = row.hitCell(QPointF(x / ratio, y));
        if (hit != first && hit != last)
            return QStringLiteral("point %1 hits %2, not %3").arg(x).arg(hit).arg(first);
    }
    return {};
}

} // namespace

/// Where cells stand closely side by side, the mouse hits the one that it points at, and nothing
/// shows between those that touch: at the scale that the environment sets.
class tst_Hits : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void tilePicker_data() { magnifications(); }
    void tilePicker();
    void spriteList();
    void paletteGrid();
    void colourSelector();
    void frameEditor_data() { magnifications(); }
    void frameEditor();
    void framesHaveNoSeams_data() { magnifications(); }
    void framesHaveNoSeams();
    void spritesHaveNoSeams();

private:
    static void magnifications();

    Palette m_palette;
    SpriteBank m_bank{Tessaril::Sprite::EightBit};
};

void tst_Hits::initTestCase()
{
    m_palette.setDefaultColours();
    m_bank.setPalette(&m_palette);
    TestSprites::fill(m_bank, Columns);
}

void tst_Hits::magnifications()
{
    QTest::addColumn<int>("scale");
    for (const int scale : {1, 2, 8})
        QTest::addRow("%d", scale) << scale;
}

void tst_Hits::tilePicker()
{
    QFETCH(int, scale);
    TileSet tiles(nullptr, 2 * Columns);
    tiles.setPalette(&m_palette);
    TilePickerGrid grid;
    grid.setTileSet(&tiles);
    grid.setMagnification(scale);
    grid.resize(Columns * scale * 8, 200);
    grid.show();

    const auto hit = [&grid](QPointF position) {
        send(&grid, QEvent::MouseMove, position, Qt::NoButton);
        return grid.toolTip().section('\n', 0, 0).section(' ', 1).toInt();
    };
    QCOMPARE(wrongHit({&grid, 0, scale * 8, hit}), QString());
}

void tst_Hits::spriteList()
{
    SpriteEditor::SpriteList list;
    list.setSprites(&m_bank);
    const int cell = list.cellRect(0).width();
    list.resize(Columns * cell + 5, 200);
    list.show();

    int hit = -1;
    connect(&list, &SpriteEditor::SpriteList::indexChanged, this,
            [&hit](int index) { hit = index; });
    const auto pick = [&](QPointF position) {
        click(&list, position);
        return hit;
    };
    QCOMPARE(wrongHit({&list, list.cellRect(0).left(), cell, pick}), QString());
    QCOMPARE(hit, Columns - 1);
}

void tst_Hits::paletteGrid()
{
    PaletteGrid grid;
    grid.setPalette(&m_palette);
    grid.show();

    int hit = -1;
    connect(&grid, &PaletteGrid::selectionChanged, this, [&hit](int first) { hit = first; });
    const auto pick = [&](QPointF position) {
        click(&grid, position);
        return hit;
    };
    QCOMPARE(wrongHit({&grid, 0, PaletteGrid::CellSide, pick}), QString());
    QCOMPARE(hit, Columns - 1);
}

void tst_Hits::colourSelector()
{
    ColourSelector selector(Columns);
    selector.setPalette(&m_palette);
    selector.resize(selector.sizeHint());
    selector.show();

    const auto pick = [&](QPointF position) {
        click(&selector, position);
        return selector.foreIndex();
    };
    QCOMPARE(wrongHit({&selector, 0, selector.width() / Columns, pick}), QString());
    QCOMPARE(selector.foreIndex(), Columns - 1);
}

void tst_Hits::frameEditor()
{
    QFETCH(int, scale);
    SpriteAnim *const animation = m_bank.createAnimation();
    animation->setWidth(Columns);
    AnimationEditor::FrameEditorWidget editor;
    editor.setRenderCell([](const AnimationFrame::Cell &) { return TestSprites::filled(1); });
    editor.setAnimation(animation);
    while (editor.scale() > scale)
        editor.zoomOut();
    editor.show();

    QPoint hit(-1, -1);
    connect(&editor, &AnimationEditor::FrameEditorWidget::selectedCellChanged, this,
            [&hit](QPoint cell) { hit = cell; });
    const auto pick = [&](QPointF position) {
        click(&editor, position);
        return hit.x();
    };
    QCOMPARE(wrongHit({&editor, 0, editor.width() / Columns, pick}), QString());
    QCOMPARE(hit, QPoint(Columns - 1, 0));
}

void tst_Hits::framesHaveNoSeams()
{
    QFETCH(int, scale);
    SpriteAnim *const animation = m_bank.createAnimation();
    animation->setWidth(Columns);
    AnimationEditor::FrameEditorWidget editor;
    editor.setRenderCell([this](const AnimationFrame::Cell &) {
        QImage flat = TestSprites::filled(1);
        flat.setColorTable(m_palette.colourTable());
        return flat;
    });
    editor.setAnimation(animation);
    while (editor.scale() > scale)
        editor.zoomOut();
    editor.show();

    const QImage shown = editor.grab().toImage();

    const QRgb flat = m_palette.colour(1).rgb();
    for (int x = 0; x < shown.width(); ++x)
        QCOMPARE(shown.pixel(x, shown.height() / 2), flat);
    for (int y = 0; y < shown.height(); ++y)
        QCOMPARE(shown.pixel(shown.width() / 2, y), flat);
}

void tst_Hits::spritesHaveNoSeams()
{
    SpriteBank flatBank(Tessaril::Sprite::EightBit);
    flatBank.setPalette(&m_palette);
    TestSprites::fill(flatBank, 2 * Columns);
    for (int i = 0; i < flatBank.count(); ++i)
        flatBank.setImage(i, TestSprites::filled(1));
    SpriteEditor::SpriteList list;
    list.setSprites(&flatBank);
    const int cell = list.cellRect(0).width();
    list.resize(Columns * cell, 4 * cell);
    list.show();

    const QImage shown = list.grab().toImage();

    const QRgb flat = m_palette.colour(1).rgb();
    const double ratio = list.devicePixelRatioF();
    for (int x = 0; x < int(Columns * cell * ratio); ++x)
        QCOMPARE(shown.pixel(x, cell / 2), flat);
    for (int y = 0; y < int(2 * cell * ratio); ++y)
        QCOMPARE(shown.pixel(cell / 2, y), flat);
}

QTEST_MAIN(tst_Hits)
#include "tst_Hits.moc"
