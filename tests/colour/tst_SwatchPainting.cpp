#include "colour/SwatchPainting.h"

#include "model/Palette.h"

#include <QPainter>
#include <QTest>

namespace {

const QRect Cell(8, 8, 24, 24);
const QColor Grey(127, 127, 127);

QImage greyImage()
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Grey);
    return image;
}

/// What is lighter than the ground for a sign of 1, darker for -1.
QRect bounds(const QImage &image, int sign)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (sign * (image.pixelColor(x, y).lightness() - Grey.lightness()) > 0)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

} // namespace

class tst_SwatchPainting : public QObject
{
    Q_OBJECT

private slots:
    void anOpaqueColourFillsItsRectangle();
    void aTransparentColourIsHalfChequered();
    void aMarkIsWhiteUpLeftOnBlackDownRight();
    void theToolTipTellsIndexLevelsAndFlags();
};

void tst_SwatchPainting::anOpaqueColourFillsItsRectangle()
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);

    SwatchPainting::paintColour(&painter, {2, 2, 10, 10}, QColor(9, 8, 7));

    QCOMPARE(image.pixelColor(2, 2), QColor(9, 8, 7));
    QCOMPARE(image.pixelColor(11, 11), QColor(9, 8, 7));
    QCOMPARE(image.pixelColor(12, 11), QColor(Qt::black));
}

void tst_SwatchPainting::aTransparentColourIsHalfChequered()
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);

    SwatchPainting::paintColour(&painter, {0, 0, 12, 12}, QColor(255, 0, 0, 0));

    QCOMPARE(image.pixelColor(0, 0), QColor(136, 136, 136));
    QCOMPARE(image.pixelColor(3, 0), QColor(204, 204, 204));
    QCOMPARE(image.pixelColor(0, 11), QColor(204, 204, 204));
    QCOMPARE(image.pixelColor(5, 11), QColor(136, 136, 136));
    QCOMPARE(image.pixelColor(6, 0), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(11, 11), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(12, 5), QColor(Qt::black));
}

void tst_SwatchPainting::aMarkIsWhiteUpLeftOnBlackDownRight()
{
    QImage plain = greyImage();
    QPainter plainPainter(&plain);
    plainPainter.setPen(Qt::white);
    plainPainter.drawText(Cell, Qt::AlignCenter, QStringLiteral("2"));
    plainPainter.end();
    const QRect middle = bounds(plain, 1);
    QVERIFY(!middle.isEmpty());

    QImage image = greyImage();
    QPainter painter(&image);
    SwatchPainting::paintMark(&painter, Cell, QStringLiteral("2"));
    painter.end();

    QCOMPARE(bounds(image, 1), middle.translated(-1, -1));
    QCOMPARE(bounds(image, -1).bottomRight(), middle.bottomRight() + QPoint(1, 1));
}

void tst_SwatchPainting::theToolTipTellsIndexLevelsAndFlags()
{
    Palette palette;
    palette.setColour(35, QColor(110, 146, 255), false);
    QCOMPARE(SwatchPainting::toolTip(palette, 35),
             QStringLiteral("Index: 35\nRed 3, Green 4, Blue 7"));

    palette.setColour(35, QColor(110, 146, 255), true);
    palette.setTransparencyIndex(35);
    QCOMPARE(SwatchPainting::toolTip(palette, 35),
             QStringLiteral("Index: 35\nRed 3, Green 4, Blue 7\nPriority\nTransparent"));
}

QTEST_MAIN(tst_SwatchPainting)
#include "tst_SwatchPainting.moc"
