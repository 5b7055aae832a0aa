#include "model/SpriteBank.h"

#include "formats/NxImage.h"
#include "formats/PictureFile.h"
#include "model/Palette.h"
#include "model/PictureEquality.h"
#include "model/SpriteAnim.h"
#include "model/SpriteReferences.h"

#include <cstring>

namespace {

constexpr int NibbleMask = 0x0F;
constexpr int SpriteBytes = SpriteBank::SpriteSide * SpriteBank::SpriteSide; // of the strip

QImage blankStrip(int sprites)
{
    QImage strip(SpriteBank::SpriteSide, sprites * SpriteBank::SpriteSide, QImage::Format_Indexed8);
    strip.fill(0);
    return strip;
}

} // namespace

bool SpriteBank::State::operator==(const State &other) const
{
    return animations == other.animations && PictureEquality::areEqual(image, other.image);
}

SpriteBank::SpriteBank(Tessaril::Sprite depth, QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
    , m_depth(depth)
    , m_offsets(1, '\0')
    , m_image(blankStrip(1))
{
}

void SpriteBank::setPalette(Palette *palette)
{
    if (m_palette)
        disconnect(m_palette, &Palette::colourChanged, this, &SpriteBank::updateColour);

    m_palette = palette;
    if (!m_palette)
        return;

    connect(m_palette, &Palette::colourChanged, this, &SpriteBank::updateColour);
    m_image.setColorTable(m_palette->colourTable());
}

QImage SpriteBank::sprite(int index) const
{
    if (!contains(index))
        return {};
    return m_image.copy(0, index * SpriteSide, SpriteSide, SpriteSide);
}

QImage SpriteBank::spriteImage(int index, int paletteOffset, bool rotate, bool flip,
                               bool mirror) const
{
    if (!contains(index))
        return {};

    const bool isFourBit = m_depth == Tessaril::Sprite::FourBit;
    const int mask = isFourBit ? NibbleMask : 0xFF;
    const int bank = isFourBit ? (paletteOffset & NibbleMask) << 4 : 0;
    // An index outside 0 to 255 is no pixel's value in an eight-bit bank.
    const int transparent = isFourBit ? m_transparency & NibbleMask : m_transparency;
    const QList<QRgb> colours = m_image.colorTable();
    QImage picture(SpriteSide, SpriteSide, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    for (int y = 0; y < SpriteSide; ++y) {
        const uchar *from = m_image.constScanLine(index * SpriteSide + y);
        auto *to = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < SpriteSide; ++x) {
            const int pixel = from[x] & mask;
            if (pixel != transparent && (bank | pixel) < colours.size())
                to[x] = colours.at(bank | pixel) | qRgb(0, 0, 0);
        }
    }
    return NxImage::transformed(picture, rotate, flip, mirror);
}

QPointer<SpriteAnim> SpriteBank::createAnimation()
{
    auto *animation = new SpriteAnim(this);
    const QPointer<AnimationFrame> first = animation->frame(0);
    first->setCell({0, 0}, {});
    first->notifyChanged();
    addAnimation(animation);
    return animation;
}

void SpriteBank::addAnimation(SpriteAnim *animation)
{
    animation->setParent(this);
    // Two animations of a damaged file may bear one id: the later one replaces the earlier.
    const QPointer<SpriteAnim> earlier = m_animations.value(animation->id());
    if (earlier && earlier != animation)
        delete earlier;
    m_animations.insert(animation->id(), animation);
    emit animationsChanged();
}

void SpriteBank::removeAnimation(const QUuid &id)
{
    if (!m_animations.contains(id))
        return;

    delete m_animations.take(id);
    emit animationsChanged();
}

void SpriteBank::importImage(const QString &filename)
{
    NxImage picture;
    picture.setImage(PictureFile::read(filename));
    if (picture.image().isNull() || !isStripValid()) {
        qInfo("Failed to load image");
        return;
    }
    const QImage sheet = picture.remap(m_palette);
    if (sheet.isNull()) {
        qInfo("Could not remap colours");
        return;
    }

    // All at once: growing sprite by sprite would copy the strip for each.
    const int rows = sheet.height() / SpriteSide;
    const int columns = sheet.width() / SpriteSide;
    int index = count();
    grow(rows * columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column, ++index) {
            const QPoint corner = QPoint(column, row) * SpriteSide;
            setImage(index, sheet.copy(QRect(corner, QSize(SpriteSide, SpriteSide))));
        }
    }
    emit countChanged();
}

void SpriteBank::moveSprite(int from, int to)
{
    if (from == to || !contains(from) || !contains(to))
        return;

    const QImage moved = sprite(from);
    const int step = from < to ? 1 : -1;
    for (int i = from; i != to; i += step) {
        setImage(i, sprite(i + step));
        emit spriteSwapped(i, i + step);
    }
    // Before the last picture, with which views draw their animations anew.
    renumberCells([from, to](int sprite) { return SpriteReferences::moved(sprite, from, to); });
    setImage(to, moved);
    emit spriteSwapped(to, from);
    emit spriteMoved(from, to);
}

void SpriteBank::clearSprite(int index)
{
    setImage(index, blankStrip(1));
}

SpriteBank::State SpriteBank::state() const
{
    State state{m_image, {}};
    for (auto it = m_animations.cbegin(); it != m_animations.cend(); ++it) {
        if (it.value())
            state.animations.insert(it.key(), it.value()->state());
    }
    return state;
}

void SpriteBank::restore(const State &state)
{
    m_image = state.image;
    if (m_palette)
        m_image.setColorTable(m_palette->colourTable()); // may have changed since
    // By value: a listener may add or remove animations.
    const auto animations = m_animations;
    for (auto it = animations.cbegin(); it != animations.cend(); ++it) {
        if (it.value())
            it.value()->restore(state.animations.value(it.key()));
    }
    emit countChanged();
    emit restored();
}

void SpriteBank::setImage(int index, QImage image)
{
    if (!contains(index) || image.format() != QImage::Format_Indexed8)
        return;

    const auto width = static_cast<size_t>(std::min<int>(image.width(), SpriteSide));
    for (int y = 0; y < std::min<int>(image.height(), SpriteSide); ++y)
        std::memcpy(m_image.scanLine(index * SpriteSide + y), image.constScanLine(y), width);
    emit imageChanged(index);
}

void SpriteBank::addSprite(bool emitSignal)
{
    grow(1);
    if (emitSignal)
        emit countChanged();
}

void SpriteBank::addSprite()
{
    addSprite(true);
}

void SpriteBank::deleteSprite(int index)
{
    if (index == 0 && count() == 1) {
        m_image.fill(0);
        return;
    }
    if (!contains(index))
        return;

    const QImage strip = stripWithout(index);
    renumberCells([index](int sprite) {
        // An animation needs a sprite in every cell.
        return sprite == index ? 0 : sprite - (sprite > index ? 1 : 0);
    });
    m_image = strip;
    emit spriteDeleted(index);
    emit countChanged();
}

void SpriteBank::updateColour(int index, QColor colour, bool priority)
{
    Q_UNUSED(index)
    Q_UNUSED(colour)
    Q_UNUSED(priority)
    if (m_palette)
        m_image.setColorTable(m_palette->colourTable());
}

bool SpriteBank::contains(int index) const
{
    return index >= 0 && index < count() && isStripValid();
}

bool SpriteBank::isStripValid() const
{
    return m_image.format() == QImage::Format_Indexed8 && m_image.width() == SpriteSide;
}

void SpriteBank::grow(int sprites)
{
    if (!isStripValid())
        return;

    QImage strip = blankStrip(count() + sprites);
    strip.setColorTable(m_image.colorTable());
    std::memcpy(strip.bits(), m_image.constBits(), static_cast<size_t>(count()) * SpriteBytes);
    m_image = strip;
}

QImage SpriteBank::stripWithout(int index) const
{
    QImage strip = blankStrip(count() - 1);
    strip.setColorTable(m_image.colorTable());
    const size_t before = static_cast<size_t>(index) * SpriteBytes;
    const size_t behind = static_cast<size_t>(count() - 1 - index) * SpriteBytes;
    std::memcpy(strip.bits(), m_image.constBits(), before);
    std::memcpy(strip.bits() + before, m_image.constBits() + before + SpriteBytes, behind);
    return strip;
}

void SpriteBank::renumberCells(const std::function<int(int sprite)> &renumbered)
{
    for (const auto &animation : std::as_const(m_animations)) {
        if (!animation)
            continue;
        for (const auto &frame : animation->frames()) {
            AnimationFrame::Cells cells = frame->cells();
            for (auto &row : cells) {
                for (AnimationFrame::Cell &cell : row)
                    cell.index = renumbered(cell.index);
            }
            frame->setCells(cells);
        }
    }
}
