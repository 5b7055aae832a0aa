#include "canvas/ViewPicture.h"
#include "support/TestImages.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

class tst_ViewPicture : public QObject
{
    Q_OBJECT

private slots:
    void blowsUpThePartAskedFor();
    void keepsItsMemoryForThePictureOfTheSameSize();
    void indicesBeyondTheTableShowBlack();
    void overlaysLookAsPaintedOneAfterTheOther_data();
    void overlaysLookAsPaintedOneAfterTheOther();
    void aChangedPixelShowsAndNothingElse();
    void newColoursShow();
    void eachPartOfTheViewCounts_data();
    void eachPartOfTheViewCounts();
};

namespace {

ViewPicture::View viewOf(const QRect &pixels, QSize pixelSize)
{
    return {pixels,
            pixelSize,
            false,
            false,
            {QColor(64, 64, 64, 80), QColor(80, 80, 80, 80)},
            QColor(255, 255, 255, 48)};
}

QImage noise(QSize size)
{
    QImage image(size, QImage::Format_Indexed8);
    QRandomGenerator random(20261121);
    QList<QRgb> table(256);
    for (QRgb &colour : table)
        colour = random.generate() | 0xFF000000;
    image.setColorTable(table);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, random.bounded(256));
    }
    return image;
}

/// The view as a painter makes it: pixels, then squares, then lines across, then lines down.
QImage paintedLayerByLayer(const QImage &image, const ViewPicture::View &view)
{
    const QSize pixel = view.pixelSize;
    const QSize size(view.pixels.width() * pixel.width(), view.pixels.height() * pixel.height());
    QImage picture(size, QImage::Format_RGB32);
    QPainter painter(&picture);
    for (int y = 0; y < view.pixels.height(); ++y) {
        for (int x = 0; x < view.pixels.width(); ++x)
            painter.fillRect(QRect(QPoint(x * pixel.width(), y * pixel.height()), pixel),
                             QColor(image.pixel(view.pixels.topLeft() + QPoint(x, y))));
    }
    const QSize step(std::max(16, pixel.width()), std::max(16, pixel.height()));
    for (int j = 0; view.checkersVisible && j * step.height() < size.height(); ++j) {
        for (int i = 0; i * step.width() < size.width(); ++i)
            painter.fillRect(QRect(QPoint(i * step.width(), j * step.height()), step),
                             view.checkerColours[static_cast<size_t>((i ^ j) & 1)]);
    }
    if (view.gridLinesVisible) {
        for (int y = 0; y < size.height(); y += step.height())
            painter.fillRect(0, y, size.width(), 1, view.gridLineColour);
        for (int x = 0; x < size.width(); x += step.width())
            painter.fillRect(x, 0, 1, size.height(), view.gridLineColour);
    }
    return picture;
}

} // namespace

void tst_ViewPicture::blowsUpThePartAskedFor()
{
    QImage image = TestImages::indexed({"000", "012", "034"});
    for (int i = 0; i < 5; ++i)
        image.setColor(i, qRgba(i, 10 * i, 0, i)); // alpha does not count
    ViewPicture picture;

    const QImage shown = picture.of(image, viewOf(QRect(1, 1, 2, 2), QSize(2, 3)));

    QCOMPARE(shown.size(), QSize(4, 6));
    QCOMPARE(shown.format(), QImage::Format_RGB32);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 4; ++x) {
            const int index = 1 + x / 2 + 2 * (y / 3);
            QCOMPARE(shown.pixel(x, y), qRgb(index, 10 * index, 0));
        }
    }
}

void tst_ViewPicture::keepsItsMemoryForThePictureOfTheSameSize()
{
    ViewPicture picture;
    const ViewPicture::View view = viewOf(QRect(0, 0, 2, 2), QSize(4, 4));
    const uchar *const memory = picture.of(TestImages::indexed({"01", "10"}), view).constBits();

    QCOMPARE(picture.of(TestImages::indexed({"11", "10"}), view).constBits(), memory);
}

void tst_ViewPicture::indicesBeyondTheTableShowBlack()
{
    QImage image = TestImages::indexed({"9"});
    image.setColorTable({qRgb(1, 2, 3)});
    ViewPicture picture;

    QCOMPARE(picture.of(image, viewOf(QRect(0, 0, 1, 1), QSize(1, 1))).pixel(0, 0), qRgb(0, 0, 0));
}

void tst_ViewPicture::overlaysLookAsPaintedOneAfterTheOther_data()
{
    QTest::addColumn<QSize>("pixelSize");
    QTest::addColumn<bool>("checkers");
    QTest::addColumn<bool>("lines");
    for (const QSize size :
         {QSize(1, 1), QSize(2, 2), QSize(6, 12), QSize(16, 16), QSize(18, 36)}) {
        QTest::addRow("checkers at %d", size.width()) << size << true << false;
        QTest::addRow("lines at %d", size.width()) << size << false << true;
        QTest::addRow("both at %d", size.width()) << size << true << true;
    }
}

void tst_ViewPicture::overlaysLookAsPaintedOneAfterTheOther()
{
    QFETCH(QSize, pixelSize);
    QFETCH(bool, checkers);
    QFETCH(bool, lines);
    const QImage image = noise(QSize(40, 37));
    ViewPicture::View view = viewOf(QRect(3, 2, 35, 33), pixelSize);
    view.checkersVisible = checkers;
    view.gridLinesVisible = lines;
    ViewPicture picture;

    QCOMPARE(picture.of(image, view), paintedLayerByLayer(image, view));
}

void tst_ViewPicture::aChangedPixelShowsAndNothingElse()
{
    QImage image = noise(QSize(20, 20));
    ViewPicture::View view = viewOf(image.rect(), QSize(6, 6));
    view.checkersVisible = true;
    view.gridLinesVisible = true;
    ViewPicture picture;
    picture.of(image, view);

    for (const QPoint pixel : {QPoint(0, 0), QPoint(19, 19), QPoint(7, 3)}) {
        image.setPixel(pixel, 255 - image.pixelIndex(pixel));
        QCOMPARE(picture.of(image, view), paintedLayerByLayer(image, view));
    }
}

void tst_ViewPicture::newColoursShow()
{
    QImage image = noise(QSize(20, 20));
    const ViewPicture::View view = viewOf(image.rect(), QSize(2, 2));
    ViewPicture picture;
    picture.of(image, view);

    image.setColor(image.pixelIndex(4, 4), qRgb(1, 2, 3));

    QCOMPARE(picture.of(image, view), paintedLayerByLayer(image, view));
}

void tst_ViewPicture::eachPartOfTheViewCounts_data()
{
    QTest::addColumn<ViewPicture::View>("changed");
    ViewPicture::View view = viewOf(QRect(0, 0, 20, 20), QSize(2, 2));
    view.checkersVisible = true;
    view.gridLinesVisible = true;
    const auto add = [view](const char *name, auto change) {
        ViewPicture::View changed = view;
        change(changed);
        QTest::newRow(name) << changed;
    };
    add("scrolled", [](auto &changed) { changed.pixels.translate(1, 0); });
    add("pixel size", [](auto &changed) { changed.pixelSize = QSize(4, 4); });
    add("checkers", [](auto &changed) { changed.checkersVisible = false; });
    add("lines", [](auto &changed) { changed.gridLinesVisible = false; });
    add("square", [](auto &changed) { changed.checkerColours[1] = QColor(200, 0, 0, 80); });
    add("line", [](auto &changed) { changed.gridLineColour = QColor(0, 0, 0, 80); });
}

void tst_ViewPicture::eachPartOfTheViewCounts()
{
    QFETCH(ViewPicture::View, changed);
    const QImage image = noise(QSize(21, 20));
    ViewPicture::View view = viewOf(QRect(0, 0, 20, 20), QSize(2, 2));
    view.checkersVisible = true;
    view.gridLinesVisible = true;
    ViewPicture picture;
    picture.of(image, view);

    QCOMPARE(picture.of(image, changed), paintedLayerByLayer(image, changed));
}

QTEST_GUILESS_MAIN(tst_ViewPicture)
#include "tst_ViewPicture.moc"
