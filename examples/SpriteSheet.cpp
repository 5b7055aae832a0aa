#include "examples/SpriteSheet.h"

#include "examples/Brush.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"

namespace {

constexpr int Side = SpriteBank::SpriteSide;
constexpr int BankSize = 16;   // palette entries
constexpr int Transparent = 3; // the low half of the Next's own transparent index

QImage pictureOf(const QStringList &rows, const QList<QRgb> &colours)
{
    QImage image(Side, Side, QImage::Format_Indexed8);
    image.setColorTable(colours);
    image.fill(Transparent);
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            bool isValue = false;
            const int value = QString(rows.at(y).at(x)).toInt(&isValue, BankSize);
            if (isValue)
                image.setPixel(x, y, static_cast<uint>(value));
        }
    }
    return image;
}

} // namespace

void SpriteSheet::add(const QString &name, int delay, const QList<QStringList> &frames,
                      const QList<int> &order)
{
    Figure figure{name, delay, {}};
    for (const int frame : order)
        figure.sprites += static_cast<int>(m_sprites.size()) + frame;
    m_sprites += frames;
    m_figures += figure;
}

SpriteBank *SpriteSheet::makeBank(Project *project, const QString &name,
                                  const QList<QList<int>> &colours) const
{
    const auto palette = project->createPalette(CreateBlank, name);
    for (int bank = 0; bank < colours.size(); ++bank) {
        for (int index = 0; index < colours.at(bank).size(); ++index)
            palette->setColour(bank * BankSize + index,
                               QColor(Brush::colour(colours.at(bank).at(index))));
    }
    const auto bank = project->createSpriteBank(Tessaril::Sprite::FourBit, name, palette->id());
    bank->grow(static_cast<int>(m_sprites.size()) - bank->count());
    for (int index = 0; index < m_sprites.size(); ++index)
        bank->setImage(index, pictureOf(m_sprites.at(index), palette->colourTable()));
    for (const Figure &figure : m_figures) {
        const auto animation = bank->createAnimation();
        animation->setName(figure.name);
        animation->setDelay(figure.delay);
        for (int frame = 0; frame < figure.sprites.size(); ++frame) {
            if (frame > 0)
                animation->addFrame();
            animation->frame(frame)->setCell({0, 0}, {figure.sprites.at(frame)});
        }
    }
    return bank;
}
