#include "editors/SpriteList.h"

#include "canvas/CanvasClipboard.h"
#include "formats/NxImage.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "uikit/CellPoint.h"
#include "uikit/ThemedIcon.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

namespace SpriteEditor {

namespace {

constexpr int DefaultColumns = 4;

} // namespace

SpriteList::SpriteList(QWidget *parent)
    : QWidget(parent)
    , m_addIcon(themedIcon(QStringLiteral(":/AddDoc")))
    , m_contextMenu(tr("Sprite"))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAcceptDrops(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Sprites"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    makeContextMenu();
}

void SpriteList::makeContextMenu()
{
    m_contextMenu.addAction(tr("Delete"), this, [this] {
        if (const int index = spriteAt(m_pressPos); index >= 0)
            emit deleteRequested(index);
    });
    m_contextMenu.addAction(tr("Clear"), this, [this] {
        if (const int index = spriteAt(m_pressPos); index >= 0)
            emit clearRequested(index);
    });
    m_contextMenu.addAction(tr("Copy Image"), this, &SpriteList::copyImage);
    m_contextMenu.addAction(tr("Paste Image"), this, &SpriteList::pasteImage);
}

void SpriteList::setSprites(const QPointer<SpriteBank> &sprites)
{
    if (m_sprites)
        disconnect(m_sprites, nullptr, this, nullptr);
    m_sprites = sprites;
    m_selectedIndex = -1;
    m_hoverIndex = -1;
    m_dropIndex = -1;
    if (m_sprites) {
        connect(m_sprites, &SpriteBank::imageChanged, this, &SpriteList::spriteChanged);
        connect(m_sprites, &SpriteBank::countChanged, this, &SpriteList::refresh);
        connect(m_sprites, &SpriteBank::restored, this, &SpriteList::refresh);
        connect(m_sprites, &QObject::destroyed, this, &SpriteList::refresh);
    }
    refresh();
}

void SpriteList::refresh()
{
    if (!contains(m_selectedIndex))
        m_selectedIndex = -1;
    followPalette();
    m_sheet.invalidate();
    updateGeometry();
    update();
}

/// Listens to the palette that the bank has now.
void SpriteList::followPalette()
{
    const QPointer<Palette> palette = m_sprites ? m_sprites->palette() : QPointer<Palette>();
    if (palette == m_palette)
        return;
    if (m_palette)
        disconnect(m_palette, nullptr, this, nullptr);
    m_palette = palette;
    if (m_palette)
        connect(m_palette, &Palette::colourChanged, this, qOverload<>(&SpriteList::update));
}

void SpriteList::spriteChanged(int index)
{
    m_sheet.invalidate(index);
    updateCell(index);
}

void SpriteList::setMagnification(int magnification)
{
    m_magnification = std::max(magnification, 1);
    updateGeometry();
    update();
}

int SpriteList::cellSide() const
{
    return m_magnification * SpriteBank::SpriteSide;
}

int SpriteList::count() const
{
    return m_sprites ? m_sprites->count() : 0;
}

int SpriteList::columns() const
{
    return std::max(width() / cellSide(), 1);
}

QRect SpriteList::cellRect(int index) const
{
    const int margin = (width() - columns() * cellSide()) / 2;
    return {margin + index % columns() * cellSide(), index / columns() * cellSide(), cellSide(),
            cellSide()};
}

int SpriteList::indexAt(QPoint position) const
{
    if (!m_sprites)
        return -1;
    const QPoint inside = position - cellRect(0).topLeft();
    if (inside.x() < 0 || inside.y() < 0)
        return -1;
    const int column = inside.x() / cellSide();
    const int index = inside.y() / cellSide() * columns() + column;
    return column < columns() && index <= count() ? index : -1;
}

/// As indexAt(), without the cell that adds a sprite.
int SpriteList::spriteAt(QPoint position) const
{
    const int index = indexAt(position);
    return contains(index) ? index : -1;
}

int SpriteList::heightForWidth(int width) const
{
    if (!m_sprites || width < 1)
        return width;
    const int columnCount = std::max(width / cellSide(), 1);
    return (count() / columnCount + 1) * cellSide();
}

QSize SpriteList::sizeHint() const
{
    const int hint = DefaultColumns * cellSide();
    return {hint, heightForWidth(hint)};
}

QSize SpriteList::minimumSizeHint() const
{
    return {cellSide(), cellSide()};
}

void SpriteList::setSelectedIndex(int index)
{
    const int sprite = contains(index) ? index : -1;
    if (sprite == m_selectedIndex)
        return;
    updateCell(m_selectedIndex);
    m_selectedIndex = sprite;
    updateCell(m_selectedIndex);
    tellChange(this);
}

void SpriteList::setHoverIndex(int index)
{
    if (index == m_hoverIndex)
        return;
    updateCell(m_hoverIndex);
    m_hoverIndex = index;
    updateCell(m_hoverIndex);
}

void SpriteList::setDropIndex(int index)
{
    if (index == m_dropIndex)
        return;
    updateCell(m_dropIndex);
    m_dropIndex = index;
    updateCell(m_dropIndex);
}

void SpriteList::updateCell(int index)
{
    if (index >= 0)
        update(cellRect(index));
}

void SpriteList::pick(int index)
{
    setSelectedIndex(index);
    emit indexChanged(index);
}

void SpriteList::mousePressEvent(QMouseEvent *event)
{
    m_pressPos = cellPoint(event->position());
    m_buttons = event->buttons();
}

void SpriteList::mouseReleaseEvent(QMouseEvent *event)
{
    m_buttons = event->buttons();
    const int index = indexAt(cellPoint(event->position()));
    if (index < 0)
        return;

    if (event->button() == Qt::LeftButton) {
        if (contains(index))
            pick(index);
        else
            emit addSprite();
    } else if (event->button() == Qt::RightButton && contains(index)) {
        openContextMenu(event->globalPosition().toPoint());
    }
}

void SpriteList::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = cellPoint(event->position());
    setHoverIndex(indexAt(position));
    const bool isDrag =
        m_buttons.testFlag(Qt::LeftButton) && event->buttons().testFlag(Qt::LeftButton) &&
        (position - m_pressPos).manhattanLength() >= QApplication::startDragDistance();
    if (isDrag && spriteAt(m_pressPos) >= 0)
        startDrag(spriteAt(m_pressPos));
}

void SpriteList::leaveEvent(QEvent *)
{
    setHoverIndex(-1);
}

void SpriteList::keyPressEvent(QKeyEvent *event)
{
    const QHash<int, int> steps{{Qt::Key_Left, -1},
                                {Qt::Key_Right, 1},
                                {Qt::Key_Up, -columns()},
                                {Qt::Key_Down, columns()}};
    if (event->key() == Qt::Key_Menu && contains(m_selectedIndex)) {
        m_pressPos = cellRect(m_selectedIndex).center();
        openContextMenu(mapToGlobal(m_pressPos));
        return;
    }
    if (!steps.contains(event->key())) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int index = contains(m_selectedIndex) ? m_selectedIndex + steps.value(event->key()) : 0;
    if (contains(index))
        pick(index);
}

void SpriteList::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

void SpriteList::openContextMenu(QPoint globalPosition)
{
    m_contextMenu.popup(globalPosition);
}

void SpriteList::copyImage()
{
    const int index = spriteAt(m_pressPos);
    if (index < 0)
        return;

    CanvasClipboard::Clip clip;
    clip.image = m_sprites->sprite(index);
    const auto type = m_sprites->depth() == Tessaril::Sprite::FourBit
                          ? Tessaril::Ui::ImageType::Offset16
                          : Tessaril::Ui::ImageType::Full256;
    clip.type = static_cast<qint32>(type);
    if (m_sprites->palette())
        clip.paletteId = m_sprites->palette()->id();
    auto copied = std::make_unique<QMimeData>();
    CanvasClipboard::write(clip, copied.get());
    copied->setImageData(clip.image);
    QGuiApplication::clipboard()->setMimeData(copied.release());
}

/// The clipboard's picture in indices of the bank's palette, null if there is none.
QImage SpriteList::clipboardPicture() const
{
    const QMimeData *content = QGuiApplication::clipboard()->mimeData();
    CanvasClipboard::Clip clip;
    if (CanvasClipboard::read(content, &clip))
        return clip.image;
    if (!content || !content->hasImage())
        return {};

    NxImage picture;
    picture.setImage(content->imageData().value<QImage>());
    return picture.remap(m_sprites->palette());
}

void SpriteList::pasteImage()
{
    const int index = spriteAt(m_pressPos);
    if (index < 0)
        return;
    const QImage picture = clipboardPicture();
    if (picture.isNull())
        return;

    emit m_sprites->structureAboutToChange();
    m_sprites->setImage(index, picture);
    emit m_sprites->structureChanged(QStringLiteral("Paste Image"));
}

} // namespace SpriteEditor
