#include "model/SpriteAnim.h"

#include "formats/NxImage.h"
#include "model/SpriteBank.h"

#include <QPainter>

SpriteAnim::SpriteAnim(SpriteBank *bank)
    : Animation(true, QStringLiteral("New Sprite"), bank)
{
    addFrame();
}

SpriteBank *SpriteAnim::bank() const
{
    return qobject_cast<SpriteBank *>(parent());
}

QImage SpriteAnim::thumbnail(QSize size) const
{
    QImage image(this->size() * SpriteBank::SpriteSide, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const QPointer<AnimationFrame> first = frame(0);
    const SpriteBank *sprites = bank();
    if (image.isNull() || !first || !sprites)
        return image.scaled(size, Qt::KeepAspectRatio, Qt::FastTransformation);

    QPainter painter(&image);
    for (int y = 0; y < this->size().height(); ++y) {
        for (int x = 0; x < this->size().width(); ++x) {
            const AnimationFrame::Cell cell = first->cell({x, y});
            // In true colours: a painter reads past the end of a colour table that is too short.
            const QImage sprite =
                sprites->sprite(cell.index).convertToFormat(QImage::Format_ARGB32);
            if (sprite.isNull())
                continue;
            painter.drawImage(QPoint(x, y) * SpriteBank::SpriteSide,
                              NxImage::transformed(sprite, cell.rotate, cell.flip, cell.mirror));
        }
    }
    painter.end();
    return image.scaled(size, Qt::KeepAspectRatio, Qt::FastTransformation);
}
