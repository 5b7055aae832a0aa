#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>

class Palette;

/// The surface that tools draw on: indexed pixels, the palette that shows them, and the two pixel
/// values in use.
class Layer2Image : public QObject
{
    Q_OBJECT

public:
    explicit Layer2Image(QObject *parent = nullptr);

    const QImage &image() const { return m_image; }
    /// For drawing; detaches from copies handed out before.
    QImage &pixels() { return m_image; }
    void setImage(const QImage &image) { m_image = image; }

    QPointer<Palette> palette() const { return m_palette; }
    /// Stores the pointer; a valid palette replaces the image's colour table.
    void setPalette(const QPointer<Palette> &palette);

    int ink() const { return m_ink; }
    int paper() const { return m_paper; }
    /// Stores @p index unless it is negative or above the image's colour count.
    void setInk(int index);
    void setPaper(int index);

    /// Moves every pixel, and ink and paper, into the bank of 16 colours @p offset, which counts
    /// from 1.
    void remap(int offset);

private:
    bool isUsable(int index) const { return index >= 0 && index <= m_image.colorCount(); }

    QImage m_image;
    QPointer<Palette> m_palette;
    int m_ink = 0;
    int m_paper = 0;
};
