#include "canvas/Canvas.h"
#include "canvas/ScrollCanvas.h"
#include "model/Palette.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

class tst_ScrollCanvas : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theBarsCountImagePixels();
    void aMovedBarScrollsTheCanvas();
    void aScrolledCanvasMovesTheBars();
    void barsOfAWholePictureAreDisabled();

private:
    QScrollBar *bar(Qt::Orientation orientation) const;

    std::unique_ptr<ScrollCanvas> m_view;
    Palette m_palette;
};

void tst_ScrollCanvas::init()
{
    m_view = std::make_unique<ScrollCanvas>();
    m_view->canvas()->setPalette(&m_palette);
    m_view->canvas()->setZoomLevel(10);
    QImage image(64, 32, QImage::Format_Indexed8);
    image.setColorCount(256);
    image.fill(0);
    m_view->canvas()->setImage(image);
    m_view->resize(220, 220);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

QScrollBar *tst_ScrollCanvas::bar(Qt::Orientation orientation) const
{
    const auto bars = m_view->findChildren<QScrollBar *>();
    const auto found = std::find_if(bars.begin(), bars.end(), [orientation](QScrollBar *bar) {
        return bar->orientation() == orientation;
    });
    return found == bars.end() ? nullptr : *found;
}

void tst_ScrollCanvas::theBarsCountImagePixels()
{
    const QSize visible = m_view->canvas()->visiblePixels().size();

    QCOMPARE(bar(Qt::Horizontal)->maximum(), 64 - visible.width());
    QCOMPARE(bar(Qt::Vertical)->maximum(), 32 - visible.height());
    QCOMPARE(bar(Qt::Horizontal)->pageStep(), visible.width());
    QCOMPARE(bar(Qt::Vertical)->pageStep(), visible.height());
}

void tst_ScrollCanvas::aMovedBarScrollsTheCanvas()
{
    bar(Qt::Horizontal)->setValue(7);
    bar(Qt::Vertical)->setValue(3);

    QCOMPARE(m_view->canvas()->visiblePixels().topLeft(), QPoint(7, 3));
}

void tst_ScrollCanvas::aScrolledCanvasMovesTheBars()
{
    m_view->canvas()->setHorizontalPosition(5);
    m_view->canvas()->setVerticalPosition(4);

    QCOMPARE(bar(Qt::Horizontal)->value(), 5);
    QCOMPARE(bar(Qt::Vertical)->value(), 4);
}

void tst_ScrollCanvas::barsOfAWholePictureAreDisabled()
{
    m_view->canvas()->setZoomLevel(1);

    QCOMPARE(bar(Qt::Horizontal)->maximum(), 0);
    QVERIFY(!bar(Qt::Horizontal)->isEnabled());
    QVERIFY(!bar(Qt::Vertical)->isEnabled());
}

QTEST_MAIN(tst_ScrollCanvas)
#include "tst_ScrollCanvas.moc"
