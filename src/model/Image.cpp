#include "model/Image.h"

#include "model/Palette.h"

Image::Image(Tessaril::ImageMode mode, QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
    , m_image(sizeOf(mode), QImage::Format_Indexed8)
    , m_mode(mode)
{
    m_image.fill(0);
}

QSize Image::sizeOf(Tessaril::ImageMode mode)
{
    switch (mode) {
    case Tessaril::ImageMode::Layer2_320x256:
        return {320, 256};
    case Tessaril::ImageMode::Layer2_640x256:
        return {640, 256};
    case Tessaril::ImageMode::LoRes_128x96:
        return {128, 96};
    case Tessaril::ImageMode::Layer2_256x192:
        break;
    }
    return {256, 192};
}

void Image::setPalette(const QPointer<Palette> &palette)
{
    m_palette = palette;
    if (m_palette)
        m_image.setColorTable(m_palette->colourTable());
}

void Image::setImage(const QImage &image)
{
    if (image.format() != QImage::Format_Indexed8)
        return;

    m_image = image;
    if (m_palette)
        m_image.setColorTable(m_palette->colourTable());
}
