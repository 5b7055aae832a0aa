#pragma once

#include "canvas/CanvasTool.h"

#include <QImage>
#include <QRect>

/// Puts the picture of the canvas's clipboard down at each click, centred on the pixel under the
/// mouse, and shows it there beforehand.
class PasteCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mouseReleased(QMouseEvent *event) override;
    void paintOver(QPainter &painter) override;

private:
    /// The picture to paste; null if there is none.
    QImage picture() const;
    /// Where a picture goes, in image pixels.
    QRect target(QSize size) const;
};
