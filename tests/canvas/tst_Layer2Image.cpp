#include "canvas/Layer2Image.h"
#include "model/Palette.h"
#include "support/TestImages.h"

#include <QTest>

class tst_Layer2Image : public QObject
{
    Q_OBJECT

private slots:
    void bindingAPaletteReplacesTheColours();
    void bindingNoneKeepsTheColours();
    void remapMovesPixelsInkAndPaperIntoTheBank();
    void acceptsIndicesUpToTheColourCount();
};

void tst_Layer2Image::bindingAPaletteReplacesTheColours()
{
    Palette palette;
    palette.setDefaultColours();
    Layer2Image surface;
    surface.setImage(TestImages::indexed({"01", "23"}));

    surface.setPalette(&palette);

    QCOMPARE(surface.image().colorTable(), palette.colourTable());
    QCOMPARE(TestImages::rows(surface.image()), QStringList({"01", "23"}));
}

void tst_Layer2Image::bindingNoneKeepsTheColours()
{
    Layer2Image surface;
    QImage image = TestImages::indexed({"01"});
    image.setColor(1, qRgb(255, 0, 0));
    surface.setImage(image);

    surface.setPalette(nullptr);

    QCOMPARE(TestImages::rows(surface.image()), QStringList("01"));
    QCOMPARE(surface.image().colorTable(), image.colorTable());
}

void tst_Layer2Image::remapMovesPixelsInkAndPaperIntoTheBank()
{
    Layer2Image surface;
    QImage image = TestImages::indexed({"0f"});
    image.setPixel(1, 0, 0x7F);
    surface.setImage(image);
    surface.setInk(0x25);
    surface.setPaper(0x01);

    surface.remap(3);

    QCOMPARE(surface.image().pixelIndex(0, 0), 0x20);
    QCOMPARE(surface.image().pixelIndex(1, 0), 0x2F);
    QCOMPARE(surface.ink(), 0x25);
    QCOMPARE(surface.paper(), 0x21);
}

void tst_Layer2Image::acceptsIndicesUpToTheColourCount()
{
    Layer2Image surface;
    QImage image = TestImages::indexed({"0"});
    image.setColorCount(16);
    surface.setImage(image);
    surface.setInk(16);
    QCOMPARE(surface.ink(), 16);

    surface.setInk(17);
    surface.setInk(-1);

    QCOMPARE(surface.ink(), 16);
}

QTEST_GUILESS_MAIN(tst_Layer2Image)
#include "tst_Layer2Image.moc"
