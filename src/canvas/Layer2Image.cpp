#include "canvas/Layer2Image.h"

#include "model/Palette.h"

namespace {

constexpr int LowNibble = 0x0F;
constexpr int HighNibble = 0xF0;

} // namespace

Layer2Image::Layer2Image(QObject *parent)
    : QObject(parent)
{
}

void Layer2Image::setPalette(const QPointer<Palette> &palette)
{
    m_palette = palette;
    if (m_palette && !m_image.isNull())
        m_image.setColorTable(m_palette->colourTable());
}

void Layer2Image::setInk(int index)
{
    if (isUsable(index))
        m_ink = index;
}

void Layer2Image::setPaper(int index)
{
    if (isUsable(index))
        m_paper = index;
}

void Layer2Image::remap(int offset)
{
    const int bank = ((offset - 1) << 4) & HighNibble;
    for (int y = 0; y < m_image.height(); ++y) {
        uchar *const row = m_image.scanLine(y);
        for (int x = 0; x < m_image.width(); ++x)
            row[x] = static_cast<uchar>((row[x] & LowNibble) | bank);
    }
    m_ink = (m_ink & LowNibble) | bank;
    m_paper = (m_paper & LowNibble) | bank;
}
