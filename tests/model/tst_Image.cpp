#include "model/Image.h"

#include "model/Palette.h"
#include "support/TestImages.h"

#include <QTest>

#include <memory>

using Tessaril::ImageMode;

class tst_Image : public QObject
{
    Q_OBJECT

private slots:
    void eachModeGivesItsSize_data();
    void eachModeGivesItsSize();
    void eachImageHasItsOwnId();
    void bindingAPaletteSetsTheColours();
    void unbindingKeepsTheColours();
    void aColourChangeDoesNotReachTheImage();
    void theBoundPaletteWinsOverThePicturesTable();
    void withoutAPaletteThePicturesTableStays();
    void refusesPicturesWithoutIndices();
    void outlivesItsPalette();
};

void tst_Image::eachModeGivesItsSize_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QSize>("size");
    QTest::newRow("Layer2_256x192") << 0 << QSize(256, 192);
    QTest::newRow("Layer2_320x256") << 1 << QSize(320, 256);
    QTest::newRow("Layer2_640x256") << 2 << QSize(640, 256);
    QTest::newRow("LoRes_128x96") << 3 << QSize(128, 96);
    QTest::newRow("no mode") << 4 << QSize(256, 192);
    QTest::newRow("negative") << -1 << QSize(256, 192);
}

void tst_Image::eachModeGivesItsSize()
{
    QFETCH(int, mode);
    QFETCH(QSize, size);

    const Image image(static_cast<ImageMode>(mode));

    QCOMPARE(image.image().size(), size);
    QCOMPARE(image.image().format(), QImage::Format_Indexed8);
    QVERIFY(image.image().colorTable().isEmpty());
    for (int y = 0; y < size.height(); ++y) {
        const QByteArray line(reinterpret_cast<const char *>(image.image().constScanLine(y)),
                              size.width());
        QCOMPARE(line, QByteArray(size.width(), '\0'));
    }
    QCOMPARE(static_cast<int>(image.mode()), mode);
    QVERIFY(image.name().isEmpty());
    QVERIFY(image.palette().isNull());
}

void tst_Image::eachImageHasItsOwnId()
{
    const Image first(ImageMode::LoRes_128x96);
    const Image second(ImageMode::LoRes_128x96);

    QVERIFY(!first.id().isNull());
    QVERIFY(first.id() != second.id());
}

void tst_Image::bindingAPaletteSetsTheColours()
{
    Palette palette;
    palette.setDefaultColours();
    palette.setTransparencyIndex(2);
    Image image(ImageMode::LoRes_128x96);

    image.setPalette(&palette);

    QCOMPARE(image.palette().data(), &palette);
    QCOMPARE(image.image().colorTable(), palette.colourTable());
}

void tst_Image::unbindingKeepsTheColours()
{
    Palette palette;
    palette.setDefaultColours();
    Image image(ImageMode::LoRes_128x96);
    image.setPalette(&palette);

    image.setPalette(nullptr);

    QVERIFY(image.palette().isNull());
    QCOMPARE(image.image().colorTable(), palette.colourTable());
}

void tst_Image::aColourChangeDoesNotReachTheImage()
{
    Palette palette;
    Image image(ImageMode::LoRes_128x96);
    image.setPalette(&palette);

    palette.setColour(4, QColor(255, 0, 0), false);

    QCOMPARE(image.image().color(4), qRgb(0, 0, 0));
}

void tst_Image::theBoundPaletteWinsOverThePicturesTable()
{
    Palette palette;
    palette.setDefaultColours();
    Image image(ImageMode::LoRes_128x96);
    image.setPalette(&palette);
    QImage picture = TestImages::indexed({"0123", "4567"});
    picture.setColorTable(QList<QRgb>(256, qRgb(9, 9, 9)));

    image.setImage(picture);

    QCOMPARE(TestImages::rows(image.image()), QStringList({"0123", "4567"}));
    QCOMPARE(image.image().colorTable(), palette.colourTable());
}

void tst_Image::withoutAPaletteThePicturesTableStays()
{
    Image image(ImageMode::LoRes_128x96);
    QImage picture = TestImages::indexed({"0123", "4567"});
    const QList<QRgb> table(256, qRgb(9, 9, 9));
    picture.setColorTable(table);

    image.setImage(picture);

    QCOMPARE(TestImages::rows(image.image()), QStringList({"0123", "4567"}));
    QCOMPARE(image.image().colorTable(), table);
}

void tst_Image::refusesPicturesWithoutIndices()
{
    Image image(ImageMode::LoRes_128x96);

    image.setImage(QImage());
    image.setImage(QImage(16, 16, QImage::Format_RGB32));

    QCOMPARE(image.image().size(), QSize(128, 96));
    QCOMPARE(image.image().format(), QImage::Format_Indexed8);
}

void tst_Image::outlivesItsPalette()
{
    auto palette = std::make_unique<Palette>();
    Image image(ImageMode::LoRes_128x96);
    image.setPalette(palette.get());
    palette.reset();
    QImage picture = TestImages::indexed({"01"});
    picture.setColorTable(QList<QRgb>(256, qRgb(9, 9, 9)));

    image.setImage(picture);

    QCOMPARE(image.image().color(0), qRgb(9, 9, 9));
}

QTEST_GUILESS_MAIN(tst_Image)
#include "tst_Image.moc"
