#pragma once

#include <QImage>
#include <QSize>

class QPainter;
class QRect;

/// The mark of the tile under the mouse: a tint below, a frame with white dots above.
///
/// Stroking dots takes longer than all else that a hover draws, so the frame is kept as a picture.
class HoverMark
{
public:
    /// Draws the mark over @p tile, in widget pixels. The frame reaches a pixel beyond it.
    void paint(QPainter *painter, const QRect &tile);

private:
    void makeFrame(QSize tile, qreal pixelRatio);

    QImage m_frame;
    QSize m_tile; // that the frame is for
};
