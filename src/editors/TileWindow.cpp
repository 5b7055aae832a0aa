#include "editors/TileWindow.h"

#include "canvas/Canvas.h"
#include "colour/ColourSelector.h"
#include "colour/PaletteEditor.h"
#include "editors/TileSheet.h"
#include "formats/NextFormats.h"
#include "model/Palette.h"
#include "model/PictureEquality.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "uikit/Expandable.h"
#include "uikit/NumberRange.h"
#include "uikit/PlainText.h"
#include "uikit/ToolPalette.h"
#include "uikit/UndoKeys.h"

#include <QFormLayout>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QUndoStack>

namespace {

constexpr int CanvasSide = 256; // pixels
constexpr int MaxOffset = 16;   // counting from 1
constexpr int ColourColumns = 8;
constexpr int SectionMargin = 1; // pixels
constexpr int MinToolColumns = 2;
constexpr int ToolWidth = 37; // pixels, with the gap

/// The offset of a tile as the bank of 16 colours that it means, also if a file held nonsense.
int bankOf(const Tile &tile)
{
    return tile.offset() & (MaxOffset - 1);
}

/// A picture of the canvas as a tile keeps it, without the bank.
QImage withoutBank(const QImage &picture)
{
    Layer2Image surface;
    surface.setImage(picture);
    surface.remap(1);
    return surface.image();
}

/// The colours of @p picture may be of before a change of the palette.
void write(TileSet *tileSet, int index, QImage picture)
{
    if (const QPointer<Palette> palette = tileSet->palette())
        picture.setColorTable(palette->colourTable());
    tileSet->tile(index)->setImage(picture);
    tileSet->notifyImageChanged(index + 1);
}

} // namespace

TileWindow::TileWindow(QWidget *parent)
    : DockWidget(parent)
    , m_canvas(new Canvas)
    , m_tools(new ToolPalette)
    , m_colours(new ColourSelector(ColourColumns))
    , m_tileRange(new NumberRange)
    , m_offset(new QSpinBox)
    , m_sheet(new TileSheet)
    , m_paletteEditor(new PaletteEditor)
{
    setObjectName(QStringLiteral("TileEditor"));
    setPlaceholderText(tr("No tile set selected"));
    setContentWidget(makeContent());
    connectContent();
    showTitle();
    setTile(tileNumber());
}

QWidget *TileWindow::makeContent()
{
    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("tileWidget"));
    auto *layout = new QVBoxLayout(content);

    m_canvas->setFixedSize(CanvasSide, CanvasSide);
    m_canvas->setZoomLevel(CanvasSide / Tile::Side);
    m_canvas->setImageType(Tessaril::Ui::ImageType::Offset16);
    addTools();
    // The tools reach down beside the colours, where they need the room.
    auto *picture = new QVBoxLayout;
    picture->addWidget(m_canvas);
    picture->addWidget(m_colours, 0, Qt::AlignLeft);
    picture->addStretch();
    auto *drawing = new QHBoxLayout;
    drawing->addLayout(picture);
    drawing->addWidget(m_tools, 1);
    layout->addLayout(drawing);
    addFields(layout);
    addSections(layout);
    layout->addStretch();
    return content;
}

void TileWindow::addTools()
{
    using enum Tessaril::Ui::ToolButton;
    m_tools->addButtons({Draw,      Line,   Rectangle, RectangleFill, Circle,   Fill,
                         Pick,      Select, Cut,       Copy,          Paste,    RotateCW,
                         RotateCCW, Flip,   Mirror,    MoveUp,        MoveDown, MoveLeft,
                         MoveRight, Grid,   ZoomIn,    ZoomOut},
                        this);
    m_tools->setState(Draw);
    m_tools->setMinimumWidth(MinToolColumns * ToolWidth);
}

void TileWindow::addFields(QVBoxLayout *layout)
{
    m_tileRange->setRange(1, TileSet::DefaultCount);
    m_tileRange->setAccessibleName(tr("Tile"));
    m_offset->setRange(1, MaxOffset);
    UndoKeys::leaveToMenu(m_offset);
    m_offset->setSingleStep(1);
    m_offset->setAccessibleName(tr("Palette Offset"));
    auto *fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    fields->addRow(tr("Tile"), m_tileRange);
    fields->addRow(tr("Palette Offset"), m_offset);
    layout->addLayout(fields);
}

void TileWindow::addSections(QVBoxLayout *layout)
{
    const auto add = [layout](const QString &title, QWidget *content) {
        auto *section = new Expandable(title);
        section->setContentsMargins(SectionMargin, SectionMargin, SectionMargin, SectionMargin);
        section->setContent(content);
        section->collapse();
        layout->addWidget(section);
        return section;
    };
    add(tr("Attributes"), m_sheet)->header()->setArrowType(Qt::DownArrow);
    add(tr("Palette Editor"), m_paletteEditor);
}

void TileWindow::connectContent()
{
    connect(m_tools, &ToolPalette::actionActivated, m_canvas, &Canvas::setMode);
    connect(m_canvas, &Canvas::imageChanged, this, &TileWindow::imageChanged);
    connect(m_canvas, &Canvas::edited, this, &TileWindow::pushEdit);
    connect(m_canvas, &Canvas::foregroundPicked, this, &TileWindow::foreColourChanged);
    connect(m_canvas, &Canvas::backgroundPicked, this, &TileWindow::backColourChanged);
    connect(m_colours, &ColourSelector::foreColourChanged, this, &TileWindow::foreColourChanged);
    connect(m_colours, &ColourSelector::backColourChanged, this, &TileWindow::backColourChanged);
    connect(m_tileRange, &NumberRange::currentValueChanged, this, &TileWindow::setTile);
    connect(m_offset, &QSpinBox::valueChanged, this, &TileWindow::paletteOffsetChanged);
}

void TileWindow::setTileSet(const QPointer<TileSet> &tileSet)
{
    if (m_tileSet)
        m_tileSet->disconnect(this);
    m_tileSet = tileSet;
    if (m_tileSet) {
        connect(m_tileSet, &TileSet::nameChanged, this, &TileWindow::showTitle);
        connect(m_tileSet, &TileSet::tileInserted, this, &TileWindow::tileCountChanged);
        connect(m_tileSet, &TileSet::tileDeleted, this, &TileWindow::tileCountChanged);
        connect(m_tileSet, &TileSet::structureChanged, this, [this] { setTile(tileNumber()); });
        connect(m_tileSet, &TileSet::restored, this, [this] { tileCountChanged(0); });
        connect(m_tileSet, &TileSet::tileChanged, this, &TileWindow::refreshTile);
        connect(m_tileSet, &QObject::destroyed, this, [this] { setTileSet(nullptr); });
    }
    showTitle();
    tileCountChanged(0);
    if (m_tileSet)
        showContent();
    else
        showPlaceholder();
    if (std::exchange(m_isActive, !m_tileSet.isNull()) != m_isActive)
        emit activeStateChanged(m_isActive);
}

void TileWindow::setPalette(const QPointer<Palette> &palette)
{
    m_canvas->setPalette(palette);
    m_colours->setPalette(palette);
    m_paletteEditor->setPalette(palette);
}

int TileWindow::tileNumber() const
{
    return m_tileRange->value();
}

void TileWindow::showTitle()
{
    setWindowTitle(m_tileSet ? tr("Tile Editor: %1").arg(PlainText::shown(m_tileSet->name()))
                             : tr("Tile Editor"));
}

/// Null if the set does not have the number.
Tile *TileWindow::shownTile() const
{
    const int index = tileNumber() - 1;
    return m_tileSet && index >= 0 && index < m_tileSet->count() ? m_tileSet->tile(index) : nullptr;
}

void TileWindow::setTileIndex(int index)
{
    if (m_tileRange->value() == index)
        setTile(index);
    else
        m_tileRange->setValue(index);
}

void TileWindow::tileCountChanged(int)
{
    m_tileRange->setMaximum(m_tileSet ? m_tileSet->count() : TileSet::DefaultCount);
    setTile(tileNumber());
}

void TileWindow::setTile(int)
{
    Tile *const tile = shownTile();
    m_shownPicture = tile ? tile->image() : QImage();
    m_recordedPicture = m_shownPicture;
    {
        // Showing a tile is no edit of it.
        const QSignalBlocker blocker(m_canvas);
        m_canvas->setImage(m_shownPicture);
    }
    showOffset(tile ? bankOf(*tile) : 0);
    m_sheet->setTile(m_tileSet, tile);
    m_canvas->setEnabled(tile);
    m_tools->setEnabled(tile);
    m_offset->setEnabled(tile);
}

void TileWindow::showOffset(int bank)
{
    {
        const QSignalBlocker blocker(m_offset);
        m_offset->setValue(bank + 1);
    }
    m_canvas->setImageOffset(bank);
    m_canvas->remap(bank + 1);
    m_colours->setOffset(bank);
    m_colours->setForeIndex(m_canvas->ink());
    m_colours->setBackIndex(m_canvas->paper());
    m_paletteEditor->setSelectedIndex(m_canvas->ink());
}

/// After a change of some tile, which may be the one on display.
void TileWindow::refreshTile()
{
    const Tile *const tile = shownTile();
    if (!tile || m_isWriting)
        return;
    const bool isOther =
        bankOf(*tile) + 1 != m_offset->value() ||
        NextFormats::pixelBytes(tile->image()) != NextFormats::pixelBytes(m_shownPicture);
    if (isOther)
        setTile(tileNumber());
}

void TileWindow::imageChanged()
{
    Tile *const tile = shownTile();
    if (!tile)
        return;
    // What was pasted may be from another bank.
    m_canvas->remap(m_offset->value());
    const QScopedValueRollback writing(m_isWriting, true);
    write(m_tileSet, tileNumber() - 1, withoutBank(m_canvas->image()));
    m_shownPicture = tile->image();
}

void TileWindow::paletteOffsetChanged(int offset)
{
    Tile *const tile = shownTile();
    if (!tile)
        return;
    tile->setOffset(offset - 1);
    showOffset(offset - 1);
    imageChanged();
}

void TileWindow::foreColourChanged(int index)
{
    m_canvas->setInk(index);
    m_colours->setForeIndex(index);
    m_paletteEditor->setSelectedIndex(index);
}

void TileWindow::backColourChanged(int index)
{
    m_canvas->setPaper(index);
    m_colours->setBackIndex(index);
}

/// The step holds the tile's own pictures: those of the canvas are in the bank of this moment.
void TileWindow::pushEdit(const QString &text, const QImage &, const QImage &,
                          PixelEditCommand::Kind kind)
{
    if (!shownTile())
        return;
    const QImage before = std::exchange(m_recordedPicture, m_shownPicture);
    QUndoStack *const stack = m_stackFor ? m_stackFor(m_tileSet->id()) : nullptr;
    if (!stack || PictureEquality::haveEqualIndices(before, m_shownPicture))
        return;
    const int index = tileNumber() - 1;
    // The change of the set reaches the canvas if the tile is on display at that time.
    const auto apply = [tileSet = m_tileSet, index](const QImage &picture) {
        if (tileSet && index < tileSet->count())
            write(tileSet, index, picture);
    };
    const QVariant key = QVariantList{m_tileSet->id(), index};
    stack->push(new PixelEditCommand(text, before, m_shownPicture, apply, key, kind));
}

void TileWindow::cut()
{
    m_canvas->setMode(Tessaril::Ui::ToolButton::Cut, false);
}

void TileWindow::copy()
{
    m_canvas->copy();
}

void TileWindow::paste()
{
    m_canvas->paste();
}

void TileWindow::selectAll()
{
    m_canvas->selectAll();
}

void TileWindow::selectNone()
{
    m_canvas->selectNone();
}
