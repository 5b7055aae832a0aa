#include "editors/SpriteWindow.h"

#include "canvas/Canvas.h"
#include "canvas/ScrollCanvas.h"
#include "colour/ColourPalette.h"
#include "editors/SpriteList.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "uikit/NumberRange.h"
#include "uikit/PlainText.h"
#include "uikit/ThemedIcon.h"
#include "uikit/ToolPalette.h"

#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QUndoStack>
#include <QVBoxLayout>

using Tool = Tessaril::Ui::ToolButton;

namespace {

constexpr int FirstMaximum = 64; // sprites, until a bank tells
constexpr int ContentMargin = 4; // pixels
constexpr int ToolColumns = 4;
constexpr int ToolSide = 37;      // pixels with their spacing
constexpr int CanvasSide = 192;   // pixels, the least
constexpr int FittingZoom = 11;   // screen pixels
constexpr int ListHeight = 110;   // pixels, the least
constexpr int ColoursWidth = 320; // pixels, for few rows: the list needs the rest of the height

const QList<Tool> Tools{Tool::Draw,      Tool::Line,     Tool::Rectangle, Tool::RectangleFill,
                        Tool::Circle,    Tool::Fill,     Tool::Pick,      Tool::Select,
                        Tool::Cut,       Tool::Copy,     Tool::Paste,     Tool::RotateCW,
                        Tool::RotateCCW, Tool::Flip,     Tool::Mirror,    Tool::MoveUp,
                        Tool::MoveDown,  Tool::MoveLeft, Tool::MoveRight, Tool::Grid,
                        Tool::ZoomIn,    Tool::ZoomOut};

} // namespace

SpriteWindow::SpriteWindow(QWidget *parent)
    : DockWidget(parent)
    , m_scrollCanvas(new ScrollCanvas)
    , m_canvas(m_scrollCanvas->canvas())
    , m_tools(new ToolPalette)
    , m_colours(new ColourPalette)
    , m_number(new NumberRange)
    , m_list(new SpriteEditor::SpriteList)
{
    setObjectName(QStringLiteral("SpriteEditor"));
    setWindowIcon(themedIcon(QStringLiteral(":/PlaceSprite")));
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    setPlaceholderText(tr("No sprites selected"));
    makeContent();
    connectWidgets();
    setSprites(nullptr);
}

void SpriteWindow::makeContent()
{
    m_tools->addButtons(Tools, this);
    m_tools->setState(m_canvas->mode());
    m_canvas->setZoomLevel(FittingZoom);
    m_number->setRange(1, FirstMaximum);
    auto *scroller = new QScrollArea;
    scroller->setAccessibleName(tr("Sprite area"));
    scroller->setWidgetResizable(true);
    scroller->setMinimumHeight(ListHeight);
    // A large bank is scrolled here and not together with the canvas.
    scroller->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    scroller->setWidget(m_list);

    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("spriteWidget"));
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(ContentMargin, ContentMargin, ContentMargin, ContentMargin);
    layout->addWidget(makeCanvasRow());
    layout->addWidget(m_colours, 0, Qt::AlignHCenter);
    layout->addWidget(m_number);
    layout->addWidget(scroller, 1);
    setContentWidget(content);
    // In front of the many tools, most of which have keys.
    QWidget::setTabOrder(m_canvas, m_colours);
}

QWidget *SpriteWindow::makeCanvasRow()
{
    m_scrollCanvas->setMinimumSize(CanvasSide, CanvasSide);
    const int width = ToolColumns * ToolSide;
    m_tools->setFixedSize(width, m_tools->layout()->heightForWidth(width));
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_scrollCanvas, 1);
    layout->addWidget(m_tools, 0, Qt::AlignTop);
    return row;
}

void SpriteWindow::connectWidgets()
{
    connect(m_tools, &ToolPalette::actionActivated, m_canvas, &Canvas::setMode);
    connect(m_colours, &ColourPalette::primaryIndexChanged, m_canvas, &Canvas::setInk);
    connect(m_colours, &ColourPalette::secondaryIndexChanged, m_canvas, &Canvas::setPaper);
    connect(m_canvas, &Canvas::foregroundPicked, m_colours, &ColourPalette::setPrimaryColour);
    connect(m_canvas, &Canvas::backgroundPicked, m_colours, &ColourPalette::setSecondaryColour);
    connect(m_canvas, &Canvas::imageChanged, this, &SpriteWindow::updateSpriteImage);
    connect(m_canvas, &Canvas::edited, this, &SpriteWindow::pushEdit);
    connect(m_number, &NumberRange::currentValueChanged, this, &SpriteWindow::changeSprite);

    using SpriteEditor::SpriteList;
    connect(m_list, &SpriteList::indexChanged, this,
            [this](int index) { m_number->setValue(index + 1); });
    connect(m_list, &SpriteList::addSprite, this, &SpriteWindow::addSprite);
    connect(m_list, &SpriteList::deleteRequested, this, &SpriteWindow::deleteSprite);
    connect(m_list, &SpriteList::clearRequested, this, &SpriteWindow::clearSprite);
    connect(m_list, &SpriteList::copySprite, this, &SpriteWindow::copySprite);
    connect(m_list, &SpriteList::moveSprite, this, &SpriteWindow::moveSprite);
}

void SpriteWindow::showTitle()
{
    setWindowTitle(m_sprites ? tr("Sprites: %1").arg(PlainText::shown(m_sprites->name()))
                             : tr("Sprite Editor"));
}

void SpriteWindow::setSprites(QPointer<SpriteBank> sprites)
{
    if (m_sprites)
        disconnect(m_sprites, nullptr, this, nullptr);
    m_sprites = sprites;
    m_list->setSprites(m_sprites);
    setSpritePalette(m_sprites ? m_sprites->palette().data() : nullptr);
    showTitle();
    if (!m_sprites) {
        showPlaceholder();
        return;
    }

    connectBank();
    const bool isFourBit = m_sprites->depth() == Tessaril::Sprite::FourBit;
    const auto type =
        isFourBit ? Tessaril::Ui::ImageType::Offset16 : Tessaril::Ui::ImageType::Full256;
    m_canvas->setImageType(type);
    m_canvas->setImageOffset(m_paletteOffset);
    m_colours->setImageType(type);
    m_colours->setFixedSize(ColoursWidth, m_colours->heightForWidth(ColoursWidth));
    if (isFourBit)
        m_colours->setOffset(m_paletteOffset);
    m_spriteIndex = 1;
    m_number->setValue(m_spriteIndex);
    refresh();
    showContent();
}

void SpriteWindow::connectBank()
{
    connect(m_sprites, &SpriteBank::restored, this, &SpriteWindow::refresh);
    connect(m_sprites, &SpriteBank::countChanged, this, &SpriteWindow::refresh);
    connect(m_sprites, &SpriteBank::imageChanged, this, &SpriteWindow::bankImageChanged);
    connect(m_sprites, &QObject::destroyed, this, [this] { setSprites(nullptr); });
}

void SpriteWindow::setSpritePalette(Palette *palette)
{
    const bool isOther = m_sprites && m_sprites->palette() != palette;
    if (isOther)
        m_sprites->setPalette(palette);
    m_canvas->setPalette(palette);
    m_colours->setPalette(palette);
    // A bank has no signal for its palette; its views look at the colours with every image.
    if (isOther)
        emit m_sprites->imageChanged(m_spriteIndex - 1);
    m_list->refresh();
}

void SpriteWindow::refresh()
{
    if (!m_sprites)
        return;

    m_number->setMaximum(m_sprites->count());
    showSprite();
    m_list->refresh();
}

void SpriteWindow::changeSprite(int index)
{
    m_spriteIndex = index;
    showSprite();
}

void SpriteWindow::showSprite()
{
    if (!m_sprites)
        return;
    m_list->setSelectedIndex(m_spriteIndex - 1);
    const QScopedValueRollback loading(m_isLoading, true);
    m_canvas->setImage(m_sprites->sprite(m_spriteIndex - 1)); // none of a bank without sprites
}

void SpriteWindow::bankImageChanged(int index)
{
    // What the canvas itself has written is there already, and a stroke goes on.
    if (!m_isLoading && index == m_spriteIndex - 1)
        showSprite();
}

void SpriteWindow::updateSpriteImage()
{
    if (m_isLoading || !m_sprites)
        return;
    const QScopedValueRollback loading(m_isLoading, true);
    m_sprites->setImage(m_spriteIndex - 1, m_canvas->image());
}

void SpriteWindow::pushEdit(const QString &text, const QImage &before, const QImage &after,
                            PixelEditCommand::Kind kind)
{
    QUndoStack *stack = m_sprites && m_stackFor ? m_stackFor(m_sprites->id()) : nullptr;
    if (!stack)
        return;

    const int index = m_spriteIndex - 1;
    const auto apply = [bank = m_sprites, index](const QImage &image) {
        if (bank)
            bank->setImage(index, image);
    };
    const QVariantList key{m_sprites->id(), index};
    stack->push(new PixelEditCommand(text, before, after, apply, key, kind));
}

void SpriteWindow::changeStructure(const QString &text, const std::function<void()> &change)
{
    if (!m_sprites)
        return;
    emit m_sprites->structureAboutToChange();
    change();
    emit m_sprites->structureChanged(text);
    refresh();
}

void SpriteWindow::addSprite()
{
    changeStructure(QStringLiteral("Add Sprite"), [this] { m_sprites->addSprite(); });
}

void SpriteWindow::deleteSprite(int index)
{
    changeStructure(QStringLiteral("Delete Sprite"), [=, this] { m_sprites->deleteSprite(index); });
}

void SpriteWindow::clearSprite(int index)
{
    changeStructure(QStringLiteral("Clear Sprite"), [=, this] { m_sprites->clearSprite(index); });
}

void SpriteWindow::copySprite(int source, int dest)
{
    changeStructure(QStringLiteral("Copy Sprite"), [=, this] {
        m_sprites->setImage(dest, m_sprites->sprite(source));
        emit m_sprites->imageChanged(source);
    });
}

void SpriteWindow::moveSprite(int source, int dest)
{
    changeStructure(QStringLiteral("Move Sprite"),
                    [=, this] { m_sprites->moveSprite(source, dest); });
}

void SpriteWindow::cut()
{
    m_canvas->setMode(Tool::Cut, false);
}

void SpriteWindow::copy()
{
    m_canvas->copy();
}

void SpriteWindow::paste()
{
    m_canvas->paste();
}

void SpriteWindow::selectAll()
{
    m_canvas->selectAll();
}

void SpriteWindow::selectNone()
{
    m_canvas->selectNone();
}
