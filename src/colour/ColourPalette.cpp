#include "colour/ColourPalette.h"

#include "model/Palette.h"

#include <QApplication>

namespace {

constexpr int UlaPlusCount = 64;
constexpr int HintWidth = 256; // pixels
constexpr int MinWidth = 128;
const QColor Background(88, 88, 88);

bool isEntry(int index)
{
    return index >= 0 && index < Palette::Size;
}

} // namespace

ColourPalette::ColourPalette(QWidget *parent)
    : SwatchStrip(Background, parent)
    , m_count(Palette::Size)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setGrid(SwatchGrid::fitting(HintWidth, m_count));
}

void ColourPalette::setImageType(Tessaril::Ui::ImageType type)
{
    using Tessaril::Ui::ImageType;
    switch (type) {
    case ImageType::Ula:
    case ImageType::Offset16:
        m_count = BankSize;
        break;
    case ImageType::UlaPlus:
        m_count = UlaPlusCount;
        break;
    case ImageType::Full256:
    case ImageType::Undefined:
        m_count = Palette::Size;
        break;
    }
    setGrid(SwatchGrid::fitting(width(), m_count));
    updateGeometry();
}

int ColourPalette::heightForWidth(int width) const
{
    return SwatchGrid::fitting(width, m_count).size().height();
}

QSize ColourPalette::sizeHint() const
{
    return {HintWidth, heightForWidth(HintWidth)};
}

QSize ColourPalette::minimumSizeHint() const
{
    return {MinWidth, heightForWidth(std::max(width(), MinWidth))};
}

void ColourPalette::setPrimaryColour(int index)
{
    if (isEntry(index) && index != primaryIndex())
        pickFirst(index);
}

void ColourPalette::setSecondaryColour(int index)
{
    if (isEntry(index) && index != secondaryIndex())
        pickSecond(index);
}

void ColourPalette::setOffset(int offset)
{
    if (offset < 0 || offset > MaxOffset)
        return;
    setBank(offset);
    pickFirst(offset * BankSize + primaryIndex() % BankSize);
    pickSecond(offset * BankSize + secondaryIndex() % BankSize);
}

void ColourPalette::pickFirst(int index)
{
    setFirst(index);
    emit primaryIndexChanged(index);
}

void ColourPalette::pickSecond(int index)
{
    setSecond(index);
    emit secondaryIndexChanged(index);
}

void ColourPalette::pickTransparent(int index)
{
    if (!swatches())
        return;
    swatches()->setTransparencyIndex(index);
    // A palette tells nobody of it, and is on show in other places as well.
    for (QWidget *const widget : QApplication::allWidgets())
        widget->update();
}

int ColourPalette::base() const
{
    return m_count == BankSize ? offset() * BankSize : 0;
}

void ColourPalette::resizeEvent(QResizeEvent *)
{
    setGrid(SwatchGrid::fitting(width(), m_count));
}
