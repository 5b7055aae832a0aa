#include "colour/SwatchPainting.h"

#include "model/Palette.h"

#include <QPainter>
#include <QTest>

class tst_SwatchPainting : public QObject
{
    Q_OBJECT

private slots:
    void anOpaqueColourFillsItsRectangle();
    void aTransparentColourIsHalfChequered();
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
