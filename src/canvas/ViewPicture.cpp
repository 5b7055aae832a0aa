#include "canvas/ViewPicture.h"

#include <QPainter>

#include <algorithm>
#include <cstring>

namespace {

/// The colours as they look below @p overlay.
template <typename Colours>
Colours blended(Colours colours, const QColor &overlay)
{
    QImage row(reinterpret_cast<uchar *>(colours.data()), static_cast<int>(colours.size()), 1,
               QImage::Format_RGB32);
    QPainter(&row).fillRect(row.rect(), overlay);
    return colours;
}

} // namespace

const QImage &ViewPicture::of(const QImage &image, const View &view)
{
    if (m_imageKey == image.cacheKey() && m_view == view)
        return m_picture;

    const QSize pixels = view.pixels.size();
    const bool allChanged = m_view != view || m_table != image.colorTable();
    m_imageKey = image.cacheKey();
    m_view = view;
    const QSize size(pixels.width() * view.pixelSize.width(),
                     pixels.height() * view.pixelSize.height());
    if (m_picture.size() != size)
        m_picture = QImage(size, QImage::Format_RGB32);
    if (m_picture.isNull())
        return m_picture;
    if (allChanged)
        makeColours(image.colorTable());

    const auto width = static_cast<size_t>(pixels.width());
    m_pixels.resize(width * static_cast<size_t>(pixels.height()));
    uchar *shown = m_pixels.data();
    for (int y = 0; y < pixels.height(); ++y, shown += width) {
        const uchar *const row = image.constScanLine(view.pixels.top() + y) + view.pixels.left();
        if (!allChanged && std::memcmp(shown, row, width) == 0)
            continue;
        std::memcpy(shown, row, width);
        paintRow(row, y);
    }
    return m_picture;
}

void ViewPicture::makeColours(const QList<QRgb> &table)
{
    m_table = table;
    Colours plain;
    plain.fill(qRgb(0, 0, 0));
    const qsizetype count = std::min(table.size(), static_cast<qsizetype>(plain.size()));
    for (qsizetype i = 0; i < count; ++i)
        plain[static_cast<size_t>(i)] = table[i] | 0xFF000000;

    for (size_t square = 0; square < m_colours.size(); ++square) {
        auto &[free, lined, crossed] = m_colours[square];
        free = m_view.checkersVisible ? blended(plain, m_view.checkerColours[square]) : plain;
        lined = blended(free, m_view.gridLineColour);
        crossed = blended(lined, m_view.gridLineColour);
    }
}

/// Draws a row of indices; @p y counts rows of image pixels.
void ViewPicture::paintRow(const uchar *pixels, int y)
{
    const int height = m_view.pixelSize.height();
    const int squareHeight = step().height();
    const auto bytes = static_cast<size_t>(m_picture.bytesPerLine());
    const uchar *lineAbove = nullptr;
    for (int screenY = y * height; screenY < (y + 1) * height; ++screenY) {
        uchar *const line = m_picture.scanLine(screenY);
        // A square begins with its grid line.
        const int inSquare = screenY % squareHeight;
        const bool isLikeAbove = inSquare > 1 || (inSquare == 1 && !m_view.gridLinesVisible);
        if (lineAbove && isLikeAbove)
            std::memcpy(line, lineAbove, bytes);
        else
            paintLine(pixels, screenY, reinterpret_cast<QRgb *>(line));
        lineAbove = line;
    }
}

void ViewPicture::paintLine(const uchar *pixels, int screenY, QRgb *to) const
{
    const QSize square = step();
    const int pixelWidth = m_view.pixelSize.width();
    const int width = m_picture.width();
    const size_t lines = m_view.gridLinesVisible && screenY % square.height() == 0 ? 1 : 0;
    int kind = screenY / square.height() & 1;
    for (int left = 0; left < width; left += square.width(), kind ^= 1) {
        const auto &levels = m_colours[static_cast<size_t>(kind)];
        const Colours &colours = levels[lines];
        const int end = std::min(left + square.width(), width);
        const uchar *pixel = pixels + left / pixelWidth;
        int pixelEnd = left - left % pixelWidth + pixelWidth;
        for (int x = left; x < end; pixelEnd += pixelWidth) {
            const QRgb colour = colours[*pixel++];
            for (const int stop = std::min(pixelEnd, end); x < stop; ++x)
                to[x] = colour;
        }
        if (m_view.gridLinesVisible)
            to[left] = levels[lines + 1][pixels[left / pixelWidth]];
    }
}

QSize ViewPicture::step() const
{
    return m_view.pixelSize.expandedTo({GuideStep, GuideStep});
}
