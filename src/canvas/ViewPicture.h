#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>

#include <array>
#include <vector>

/// What a canvas shows of its image, ready to be drawn: pixels blown up by whole numbers without
/// smoothing, with the overlays on top. Only the rows that changed are made anew.
class ViewPicture
{
public:
    static constexpr int GuideStep = 16; // least side of an overlay's square, in screen pixels

    /// What decides on the picture beside the image.
    struct View
    {
        QRect pixels;    // of the image, all inside
        QSize pixelSize; // screen pixels of one image pixel
        bool checkersVisible = false;
        bool gridLinesVisible = false;
        std::array<QColor, 2> checkerColours; // of the squares, with their alpha
        QColor gridLineColour;                // with its alpha

        bool operator==(const View &other) const = default;
    };

    /// The picture, Format_RGB32, of an indexed image; valid until the next call. Indices beyond
    /// the colour table show black, and the table's alpha does not count.
    const QImage &of(const QImage &image, const View &view);

private:
    using Colours = std::array<QRgb, 256>;

    void makeColours(const QList<QRgb> &table);
    void paintRow(const uchar *pixels, int y);
    void paintLine(const uchar *pixels, int screenY, QRgb *to) const;
    QSize step() const;

    QImage m_picture;
    View m_view;
    qint64 m_imageKey = 0;
    QList<QRgb> m_table;
    std::vector<uchar> m_pixels; // the indices on show, row by row
    // By kind of square, and by the number of grid lines that cross the pixel.
    std::array<std::array<Colours, 3>, 2> m_colours;
};
