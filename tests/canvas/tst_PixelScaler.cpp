#include "canvas/PixelScaler.h"
#include "support/TestImages.h"

#include <QTest>

class tst_PixelScaler : public QObject
{
    Q_OBJECT

private slots:
    void blowsUpThePartAskedFor();
    void keepsTheMemoryOfATargetOfTheRightSize();
    void indicesBeyondTheTableShowBlack();
};

void tst_PixelScaler::blowsUpThePartAskedFor()
{
    QImage image = TestImages::indexed({"000", "012", "034"});
    for (int i = 0; i < 5; ++i)
        image.setColor(i, qRgba(i, 10 * i, 0, i)); // alpha does not count
    QImage target;

    PixelScaler::scale(image, QRect(1, 1, 2, 2), QSize(2, 3), &target);

    QCOMPARE(target.size(), QSize(4, 6));
    QCOMPARE(target.format(), QImage::Format_RGB32);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 4; ++x) {
            const int index = 1 + x / 2 + 2 * (y / 3);
            QCOMPARE(target.pixel(x, y), qRgb(index, 10 * index, 0));
        }
    }
}

void tst_PixelScaler::keepsTheMemoryOfATargetOfTheRightSize()
{
    const QImage image = TestImages::indexed({"01", "10"});
    QImage target;
    PixelScaler::scale(image, image.rect(), QSize(4, 4), &target);
    const uchar *const memory = target.constBits();

    PixelScaler::scale(image, image.rect(), QSize(4, 4), &target);

    QCOMPARE(target.constBits(), memory);
}

void tst_PixelScaler::indicesBeyondTheTableShowBlack()
{
    QImage image = TestImages::indexed({"9"});
    image.setColorTable({qRgb(1, 2, 3)});
    QImage target;

    PixelScaler::scale(image, image.rect(), QSize(1, 1), &target);

    QCOMPARE(target.pixel(0, 0), qRgb(0, 0, 0));
}

QTEST_GUILESS_MAIN(tst_PixelScaler)
#include "tst_PixelScaler.moc"
