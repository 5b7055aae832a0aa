#include "editors/HoverMark.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include <functional>

namespace {

const QColor Line(160, 160, 255, 128);
const QColor Tint(160, 160, 255, 80);

using Drawing = std::function<void(QPainter *)>;

/// The drawing over noise, so that every level of every channel shines through.
QImage drawn(qreal pixelRatio, const Drawing &drawing)
{
    QRandomGenerator generator(7);
    QImage image(330, 180, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, generator.generate() | 0xFF000000U);
    }
    image.setDevicePixelRatio(pixelRatio);
    QPainter painter(&image);
    drawing(&painter);
    return image;
}

Drawing plain(const QRect &tile)
{
    return [tile](QPainter *painter) {
        painter->setBrush(Tint);
        painter->setPen(QPen(Line, 2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter->drawRects(&tile, 1);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(Qt::white, 2, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin));
        painter->drawRects(&tile, 1);
    };
}

} // namespace

/// The mark looks as if its tint, line and dots had been drawn one by one.
class tst_HoverMark : public QObject
{
    Q_OBJECT

private slots:
    void equalsAPlainDrawing_data();
    void equalsAPlainDrawing();
    void aTileOfAnotherSizeHasItsOwnFrame();
    void anotherPixelRatioHasItsOwnFrame();
};

void tst_HoverMark::equalsAPlainDrawing_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<qreal>("ratio");
    for (const int side : {7, 15, 31, 47}) {
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0, 3.0})
            QTest::addRow("%d pixels at %g", side, ratio) << side << ratio;
    }
}

void tst_HoverMark::equalsAPlainDrawing()
{
    QFETCH(int, side);
    QFETCH(qreal, ratio);
    HoverMark mark;
    const QRect tile(3, 5, side, side);
    const QRect next(2 + side, 5, side, side);

    const Drawing both = [&](QPainter *painter) {
        mark.paint(painter, tile);
        mark.paint(painter, next);
    };

    QCOMPARE(drawn(ratio, both), drawn(ratio, [&](QPainter *painter) {
                 plain(tile)(painter);
                 plain(next)(painter);
             }));
}

void tst_HoverMark::aTileOfAnotherSizeHasItsOwnFrame()
{
    HoverMark mark;
    const QRect tile(3, 5, 31, 31);
    const QRect smaller(3, 5, 23, 23);

    drawn(1, [&](QPainter *painter) { mark.paint(painter, tile); });

    QCOMPARE(drawn(1, [&](QPainter *painter) { mark.paint(painter, smaller); }),
             drawn(1, plain(smaller)));
}

void tst_HoverMark::anotherPixelRatioHasItsOwnFrame()
{
    HoverMark mark;
    const QRect tile(3, 5, 31, 31);

    drawn(1, [&](QPainter *painter) { mark.paint(painter, tile); });

    QCOMPARE(drawn(2, [&](QPainter *painter) { mark.paint(painter, tile); }),
             drawn(2, plain(tile)));
}

QTEST_MAIN(tst_HoverMark)
#include "tst_HoverMark.moc"
