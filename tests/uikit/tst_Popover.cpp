#include "uikit/Popover.h"

#include "support/PaintCounter.h"

#include <QScreen>
#include <QTest>

using Tessaril::Ui::DialogPosition;

class tst_Popover : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void pointsToTheRightOfATopCentrePanel();
    void pointsToTheLeftOfALeftOfPanel();
    void theOtherSidesHaveNoPointer_data();
    void theOtherSidesHaveNoPointer();
    void theCornersAreRound();
    void nothingOfTheWindowLiesBesideItsShape_data();
    void nothingOfTheWindowLiesBesideItsShape();
    void thePointerIsAsWideAsToldAlongItsSide();
    void anotherSideIsRepainted();
    void followsThePalette();
    void placesItsTipAtTheAnchor_data();
    void placesItsTipAtTheAnchor();
    void standsBesideWhereTheScreenHasRoom_data();
    void standsBesideWhereTheScreenHasRoom();

private:
    QImage shot();
    bool isInside(const QImage &image, int x, int y) const;

    Popover m_popover;
};

namespace {

constexpr int Width = 120;
constexpr int Height = 100;
constexpr int Middle = Height / 2;
const QColor Fill(10, 200, 30);
const QColor Pen(200, 20, 40);
const QColor Outside(1, 2, 3);

} // namespace

void tst_Popover::init()
{
    QPalette palette;
    palette.setColor(QPalette::Window, Fill);
    palette.setColor(QPalette::Mid, Pen);
    m_popover.setPalette(palette);
    m_popover.resize(Width, Height);
}

QImage tst_Popover::shot()
{
    QImage image(m_popover.size(), QImage::Format_RGB32);
    image.fill(Outside);
    m_popover.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

bool tst_Popover::isInside(const QImage &image, int x, int y) const
{
    return image.pixelColor(x, y) == Fill;
}

void tst_Popover::pointsToTheRightOfATopCentrePanel()
{
    m_popover.setSide(DialogPosition::TopCentre);

    const QImage image = shot();

    QVERIFY(isInside(image, Width / 2, Middle));
    QVERIFY(isInside(image, Width - 5, Middle));
    QVERIFY(image.pixelColor(Width - 1, Middle) != Outside);
    QCOMPARE(image.pixelColor(Width - 5, 20), Outside);
    QCOMPARE(image.pixelColor(Width - 5, Height - 20), Outside);
    // The body ends 10 pixels before the edge, on its outline.
    QCOMPARE(image.pixelColor(Width - 11, 20), Pen);
    QVERIFY(isInside(image, Width - 12, 20));
    QCOMPARE(image.pixelColor(0, Middle), Pen);
}

void tst_Popover::pointsToTheLeftOfALeftOfPanel()
{
    m_popover.setSide(DialogPosition::LeftOf);

    const QImage image = shot();

    QVERIFY(isInside(image, 4, Middle));
    QVERIFY(image.pixelColor(0, Middle) != Outside);
    QCOMPARE(image.pixelColor(4, 20), Outside);
    QCOMPARE(image.pixelColor(10, 20), Pen);
    QVERIFY(isInside(image, 11, 20));
    QCOMPARE(image.pixelColor(Width - 1, Middle), Pen);
}

void tst_Popover::theOtherSidesHaveNoPointer_data()
{
    QTest::addColumn<DialogPosition>("side");
    QTest::newRow("right of") << DialogPosition::RightOf;
    QTest::newRow("above") << DialogPosition::Above;
    QTest::newRow("below") << DialogPosition::Below;
}

void tst_Popover::theOtherSidesHaveNoPointer()
{
    QFETCH(DialogPosition, side);
    m_popover.setSide(side);

    const QImage image = shot();

    for (const int y : {20, Middle, Height - 20}) {
        QCOMPARE(image.pixelColor(0, y), Pen);
        QVERIFY(isInside(image, 1, y));
        QVERIFY(isInside(image, Width - 2, y));
        QCOMPARE(image.pixelColor(Width - 1, y), Pen);
    }
}

void tst_Popover::theCornersAreRound()
{
    m_popover.setSide(DialogPosition::Above);

    const QImage image = shot();

    QCOMPARE(image.pixelColor(0, 0), Outside);
    QCOMPARE(image.pixelColor(1, 1), Outside);
    QVERIFY(isInside(image, 5, 5));
    QCOMPARE(image.pixelColor(12, 0), Pen);
    QCOMPARE(image.pixelColor(Width - 1, Height - 1), Outside);
    // Antialiasing blends the outline into its surroundings.
    int blended = 0;
    for (int x = 0; x < 10; ++x) {
        const QColor pixel = image.pixelColor(x, 2);
        blended += pixel != Outside && pixel != Pen && pixel != Fill;
    }
    QVERIFY(blended > 0);
}

void tst_Popover::nothingOfTheWindowLiesBesideItsShape_data()
{
    QTest::addColumn<DialogPosition>("side");
    QTest::newRow("points right") << DialogPosition::TopCentre;
    QTest::newRow("points left") << DialogPosition::LeftOf;
    QTest::newRow("no pointer") << DialogPosition::Above;
}

void tst_Popover::nothingOfTheWindowLiesBesideItsShape()
{
    QFETCH(DialogPosition, side);
    for (const QSize size : {QSize(Width, Height), QSize(Height, Width)}) {
        m_popover.resize(size);
        m_popover.setSide(side);
        QImage painted(size, QImage::Format_ARGB32_Premultiplied);
        painted.fill(Qt::transparent);
        m_popover.render(&painted, QPoint(), QRegion(), QWidget::IgnoreMask);

        const QRegion mask = m_popover.mask();
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const bool isPainted = qAlpha(painted.pixel(x, y)) > 0;
                const QByteArray place = QByteArray::number(x) + ',' + QByteArray::number(y);
                QVERIFY2(mask.contains(QPoint(x, y)) == isPainted, place.data());
            }
        }
    }
}

void tst_Popover::thePointerIsAsWideAsToldAlongItsSide()
{
    const QPainterPath shape = Popover::shapeFor({Width, Height}, DialogPosition::LeftOf);

    // 40 pixels at its base, 15 deep; the body's edge cuts it 10 pixels from the tip.
    const double half = 20.0 * 10 / 15;
    QVERIFY(shape.contains(QPointF(9.9, Middle + half - 1)));
    QVERIFY(!shape.contains(QPointF(9.9, Middle + half + 1)));
    QVERIFY(shape.contains(QPointF(9.9, Middle - half + 1)));
    QVERIFY(!shape.contains(QPointF(9.9, Middle - half - 1)));
    QCOMPARE(shape.boundingRect(), QRectF(0.5, 0.5, Width - 1, Height - 1));
}

void tst_Popover::anotherSideIsRepainted()
{
    m_popover.setSide(DialogPosition::Above);
    m_popover.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_popover));
    const PaintCounter paints(m_popover);

    m_popover.setSide(DialogPosition::LeftOf);

    QTRY_COMPARE(paints.count(), 1);
    m_popover.hide();
}

void tst_Popover::followsThePalette()
{
    QPalette palette = m_popover.palette();
    palette.setColor(QPalette::Window, Qt::blue);
    m_popover.setPalette(palette);

    QCOMPARE(shot().pixelColor(Width / 2, Middle), QColor(Qt::blue));
}

void tst_Popover::placesItsTipAtTheAnchor_data()
{
    QTest::addColumn<DialogPosition>("side");
    QTest::addColumn<QPoint>("topLeft");
    QTest::newRow("points right") << DialogPosition::TopCentre << QPoint(500 - Width, 450);
    QTest::newRow("points left") << DialogPosition::LeftOf << QPoint(500, 450);
    QTest::newRow("right of") << DialogPosition::RightOf << QPoint(500, 450);
    QTest::newRow("above") << DialogPosition::Above << QPoint(500 - Width / 2, 400);
    QTest::newRow("below") << DialogPosition::Below << QPoint(500 - Width / 2, 500);
}

void tst_Popover::placesItsTipAtTheAnchor()
{
    QFETCH(DialogPosition, side);
    QFETCH(QPoint, topLeft);

    m_popover.placeAt({500, 500}, side);

    QCOMPARE(m_popover.pos(), topLeft);
    QCOMPARE(m_popover.side(), side);
}

void tst_Popover::standsBesideWhereTheScreenHasRoom_data()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint middle = screen.center();
    const int lastX = screen.right() - Width;
    const int lastY = screen.bottom() - Height;
    QTest::addColumn<QPoint>("left");
    QTest::addColumn<QPoint>("right");
    QTest::addColumn<DialogPosition>("side");
    QTest::addColumn<QPoint>("topLeft");
    QTest::newRow("room at the right") << middle << middle + QPoint(24, 0) << DialogPosition::LeftOf
                                       << middle + QPoint(24, -Height / 2);
    QTest::newRow("just room") << QPoint(lastX - 9, 300) << QPoint(lastX, 300)
                               << DialogPosition::LeftOf << QPoint(lastX, 300 - Height / 2);
    QTest::newRow("no room at the right")
        << QPoint(lastX - 9, 300) << QPoint(lastX + 1, 300) << DialogPosition::TopCentre
        << QPoint(lastX - 9 - Width, 300 - Height / 2);
    QTest::newRow("at the upper edge") << QPoint(300, screen.top()) << QPoint(310, screen.top())
                                       << DialogPosition::LeftOf << QPoint(310, screen.top());
    QTest::newRow("at the lower edge")
        << QPoint(300, screen.bottom()) << QPoint(310, screen.bottom()) << DialogPosition::LeftOf
        << QPoint(310, lastY);
    QTest::newRow("off every screen")
        << QPoint(-9000, -9000) << QPoint(-8990, -9000) << DialogPosition::LeftOf
        << QPoint(-8990, -9000 - Height / 2);
}

void tst_Popover::standsBesideWhereTheScreenHasRoom()
{
    QFETCH(QPoint, left);
    QFETCH(QPoint, right);
    QFETCH(DialogPosition, side);
    QFETCH(QPoint, topLeft);

    m_popover.placeBeside(left, right);

    QCOMPARE(m_popover.side(), side);
    QCOMPARE(m_popover.pos(), topLeft);
}

QTEST_MAIN(tst_Popover)
#include "tst_Popover.moc"
