#include "model/ArchivePicture.h"

#include <QBuffer>
#include <QTest>

class tst_ArchivePicture : public QObject
{
    Q_OBJECT

private slots:
    void everyIndexSurvivesWhateverTheColourTable_data();
    void everyIndexSurvivesWhateverTheColourTable();
    void picturesAreWrittenWithAPalette_data();
    void picturesAreWrittenWithAPalette();
    void coloursSurvive();
    void aSecondRoundGivesTheSameBytes();
    void aNullPictureGivesNoBytes();
    void aShortTableIsFilledWithBlack();
    void anEightBitGreyPngCountsAsItsIndices();
    void otherKindsAreUndecodable_data();
    void otherKindsAreUndecodable();
    void onlyPngIsDecoded_data();
    void onlyPngIsDecoded();
    void everyTruncationIsUndecodable();
    void aGiantHeaderIsRefusedBeforeAllocation();
};

namespace {

/// A picture in which every index occurs, with the given table.
QImage allIndices(const QList<QRgb> &table)
{
    QImage image(16, 16, QImage::Format_Indexed8);
    image.setColorTable(table);
    for (int i = 0; i < 256; ++i)
        image.scanLine(i / 16)[i % 16] = static_cast<uchar>(i);
    return image;
}

QList<QRgb> ramp()
{
    QList<QRgb> colours;
    for (int i = 0; i < 256; ++i)
        colours += qRgb(i, i, i);
    return colours;
}

QByteArray bytesOf(const QImage &image, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, format) ? buffer.data() : QByteArray();
}

QByteArray indicesOf(const QImage &image)
{
    QByteArray indices;
    for (int y = 0; y < image.height(); ++y)
        indices.append(reinterpret_cast<const char *>(image.constScanLine(y)), image.width());
    return indices;
}

void addTables()
{
    QTest::addColumn<QList<QRgb>>("table");
    QTest::newRow("none") << QList<QRgb>();
    QTest::newRow("one black") << QList<QRgb>{qRgb(0, 0, 0)};
    QTest::newRow("start of the grey ramp") << ramp().mid(0, 16);
    QTest::newRow("the grey ramp") << ramp();
    QTest::newRow("two colours") << QList<QRgb>{qRgb(255, 0, 0), qRgb(0, 0, 255)};
    QTest::newRow("all black") << QList<QRgb>(256, qRgb(0, 0, 0));
    QTest::newRow("all transparent") << QList<QRgb>(256, qRgba(0, 0, 0, 0));
    QTest::newRow("256 colours") << [] {
        QList<QRgb> colours;
        for (int i = 0; i < 256; ++i)
            colours += qRgb(i, 255 - i, i / 2);
        return colours;
    }();
}

constexpr int ColourTypeAt = 25; // of a PNG's header
constexpr char PaletteType = 3;

} // namespace

void tst_ArchivePicture::everyIndexSurvivesWhateverTheColourTable_data()
{
    addTables();
}

void tst_ArchivePicture::everyIndexSurvivesWhateverTheColourTable()
{
    QFETCH(QList<QRgb>, table);
    const QImage image = allIndices(table);

    const auto read = ArchivePicture::decodedIndices(ArchivePicture::encoded(image));

    QVERIFY(read);
    QCOMPARE(read->format(), QImage::Format_Indexed8);
    QCOMPARE(indicesOf(*read), indicesOf(image));
    QCOMPARE(read->colorCount(), 256);
}

void tst_ArchivePicture::picturesAreWrittenWithAPalette_data()
{
    addTables();
}

void tst_ArchivePicture::picturesAreWrittenWithAPalette()
{
    QFETCH(QList<QRgb>, table);

    const QByteArray png = ArchivePicture::encoded(allIndices(table));

    QCOMPARE(png.at(ColourTypeAt), PaletteType);
}

void tst_ArchivePicture::coloursSurvive()
{
    QList<QRgb> table = ramp();
    table[0] = qRgb(255, 0, 255);
    table[7] = qRgba(1, 2, 3, 0);

    const auto read = ArchivePicture::decodedIndices(ArchivePicture::encoded(allIndices(table)));

    QVERIFY(read);
    QCOMPARE(read->colorTable(), table);
}

void tst_ArchivePicture::aSecondRoundGivesTheSameBytes()
{
    const QByteArray first = ArchivePicture::encoded(allIndices(ramp()));

    QCOMPARE(ArchivePicture::encoded(*ArchivePicture::decodedIndices(first)), first);
}

void tst_ArchivePicture::aNullPictureGivesNoBytes()
{
    QCOMPARE(ArchivePicture::encoded(QImage()), QByteArray());
    QVERIFY(!ArchivePicture::decodedIndices(QByteArray()));
}

void tst_ArchivePicture::aShortTableIsFilledWithBlack()
{
    const QList<QRgb> filled = ArchivePicture::filledUp({qRgb(1, 2, 3)});

    QCOMPARE(filled.size(), 256);
    QCOMPARE(filled.first(), qRgb(1, 2, 3));
    QCOMPARE(filled.at(1), qRgb(0, 0, 0));
    QCOMPARE(filled.last(), qRgb(0, 0, 0));
    QCOMPARE(ArchivePicture::filledUp(QList<QRgb>(300, qRgb(9, 9, 9))).size(), 256);
}

void tst_ArchivePicture::anEightBitGreyPngCountsAsItsIndices()
{
    QImage grey(3, 2, QImage::Format_Grayscale8);
    for (int i = 0; i < 6; ++i)
        grey.scanLine(i / 3)[i % 3] = static_cast<uchar>(40 * i);
    const QByteArray png = bytesOf(grey, "PNG");
    QCOMPARE(png.at(ColourTypeAt), char(0));

    const auto read = ArchivePicture::decodedIndices(png);

    QVERIFY(read);
    QCOMPARE(read->format(), QImage::Format_Indexed8);
    QCOMPARE(indicesOf(*read), QByteArray("\0\x28\x50\x78\xa0\xc8", 6));
    QCOMPARE(ArchivePicture::decoded(png).format(), QImage::Format_Grayscale8);
}

void tst_ArchivePicture::otherKindsAreUndecodable_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("one bit") << QImage::Format_Mono;
    QTest::newRow("colours") << QImage::Format_RGB32;
    QTest::newRow("colours with alpha") << QImage::Format_ARGB32;
    QTest::newRow("16 bits grey") << QImage::Format_Grayscale16;
    QTest::newRow("16 bits a channel") << QImage::Format_RGBA64;
}

void tst_ArchivePicture::otherKindsAreUndecodable()
{
    QFETCH(QImage::Format, format);
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QByteArray png = bytesOf(image.convertToFormat(format), "PNG");
    QVERIFY(!ArchivePicture::decoded(png).isNull());

    QVERIFY(!ArchivePicture::decodedIndices(png));
}

void tst_ArchivePicture::onlyPngIsDecoded_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("BMP") << bytesOf(allIndices(ramp()), "BMP");
    QTest::newRow("PPM") << bytesOf(allIndices(ramp()), "PPM");
    QTest::newRow("XPM") << bytesOf(allIndices(ramp()), "XPM");
    QTest::newRow("SVG") << QByteArray(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8\" height=\"8\"/>");
    QTest::newRow("text") << QByteArray("hello");
}

void tst_ArchivePicture::onlyPngIsDecoded()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!bytes.isEmpty());

    QVERIFY(ArchivePicture::decoded(bytes).isNull());
    QVERIFY(!ArchivePicture::decodedIndices(bytes));
}

void tst_ArchivePicture::everyTruncationIsUndecodable()
{
    const QByteArray whole = ArchivePicture::encoded(allIndices(ramp()));
    const qsizetype end = whole.indexOf("IEND") - 4;
    for (qsizetype size = 0; size < end; ++size) {
        const bool decoded = ArchivePicture::decodedIndices(whole.left(size)).has_value();
        QVERIFY2(!decoded, qPrintable(QString::number(size)));
    }
}

void tst_ArchivePicture::aGiantHeaderIsRefusedBeforeAllocation()
{
    QImage image = allIndices(ramp());
    QByteArray png = ArchivePicture::encoded(image);
    png.replace(16, 8, QByteArray("\0\x01\0\0\0\x01\0\0", 8)); // 65,536 by 65,536 pixels

    QVERIFY(ArchivePicture::decoded(png).isNull());
}

QTEST_GUILESS_MAIN(tst_ArchivePicture)
#include "tst_ArchivePicture.moc"
