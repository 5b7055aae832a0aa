#include "editors/SpriteListFixture.h"
#include "support/MarkEdges.h"
#include "uikit/ThemedIcon.h"

#include <QPainter>
#include <QSignalSpy>

namespace {

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }

    int count() const { return m_count; }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint;
        return false;
    }

private:
    int m_count = 0;
};

} // namespace

class tst_SpriteListView : public QObject, private SpriteListFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void withoutBankItIsBlack();
    void aBankWithoutSpritesShowsTheAddCellAlone();
    void theAddCellShowsItsIcon();
    void paintsSpritesScaledOverTheBase();
    void repaintsWhatChanges();
    void followsTheColoursOfThePalette();
    void marksSelectedAndHoveredSprites();
    void marksTheAddCellUnderTheMouse();
    void marksReachTheFarCorner();
    void marksAreWholeOnDenseScreens_data();
    void marksAreWholeOnDenseScreens();
    void hoveringTintsTheSprite();
};

void tst_SpriteListView::withoutBankItIsBlack()
{
    m_list->setSprites(nullptr);

    QCOMPARE(pixel({20, 20}), qRgb(0, 0, 0));
}

void tst_SpriteListView::aBankWithoutSpritesShowsTheAddCellAlone()
{
    m_bank->setStrip(QImage());
    m_list->refresh();
    QSignalSpy added(m_list.get(), &SpriteList::addSprite);

    QCOMPARE(m_list->heightForWidth(Width), Cell);
    const QImage shown = m_list->grab().toImage();
    QVERIFY(shown.copy(m_list->cellRect(0)) != shown.copy(m_list->cellRect(1)));
    QTest::mouseClick(m_list.get(), Qt::LeftButton, {}, middle(0));
    QCOMPARE(added.count(), 1);
}

void tst_SpriteListView::theAddCellShowsItsIcon()
{
    QPixmap expected(Cell, Cell);
    expected.fill(m_list->palette().color(QPalette::Base));
    QPainter painter(&expected);
    painter.drawPixmap(QRect(0, 0, Cell, Cell), themedIcon(":/AddDoc").pixmap(Cell, Cell));
    painter.end();

    const QImage shown = m_list->grab(m_list->cellRect(3)).toImage();

    QCOMPARE(shown.convertToFormat(QImage::Format_RGB32),
             expected.toImage().convertToFormat(QImage::Format_RGB32));
}

void tst_SpriteListView::paintsSpritesScaledOverTheBase()
{
    QImage sprite = TestSprites::filled(2);
    sprite.scanLine(15)[15] = SpriteBank::DefaultTransparency;
    m_bank->setImage(1, sprite);

    const QImage shown = m_list->grab().toImage();

    QCOMPARE(shown.pixelColor(middle(0)), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(Margin + Cell, 0), QColor(Qt::green));
    QCOMPARE(shown.pixelColor(Margin + 2 * Cell - 3, Cell - 1), QColor(Qt::green));
    const QColor base = m_list->palette().color(QPalette::Base);
    QCOMPARE(shown.pixelColor(Margin + 2 * Cell - 2, Cell - 2), base);
    QCOMPARE(shown.pixelColor(2, 2), base);
    QCOMPARE(shown.pixelColor(middle(2)), QColor(Qt::blue));
}

void tst_SpriteListView::repaintsWhatChanges()
{
    m_list->grab();

    m_bank->setImage(0, TestSprites::filled(3));
    QCOMPARE(pixel(middle(0)), qRgb(0, 0, 255));
    m_bank->addSprite();
    m_bank->setImage(3, TestSprites::filled(2));
    QCOMPARE(pixel(middle(3)), qRgb(0, 255, 0));
    const SpriteBank::State state = m_bank->state();
    m_bank->deleteSprite(0);
    QCOMPARE(pixel(middle(0)), qRgb(0, 255, 0));
    m_bank->restore(state);
    QCOMPARE(pixel(middle(0)), qRgb(0, 0, 255));
}

void tst_SpriteListView::followsTheColoursOfThePalette()
{
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
    m_list->grab();
    PaintCounter painted(m_list.get());

    m_palette->setColour(1, Qt::white, false);

    QTRY_VERIFY(painted.count() > 0);
    QCOMPARE(pixel(middle(0)), qRgb(255, 255, 255));
}

void tst_SpriteListView::marksSelectedAndHoveredSprites()
{
    m_list->setSelectedIndex(2);
    moveTo(middle(0), Qt::NoButton);
    m_list->setAttribute(Qt::WA_UnderMouse);

    QImage shown = m_list->grab().toImage();
    QCOMPARE(m_list->hoverIndex(), 0);
    QVERIFY(shown.pixelColor(middle(0)) != QColor(Qt::red));
    QSet<QRgb> border;
    for (int x = 0; x < Cell; ++x)
        border.insert(shown.pixel(m_list->cellRect(2).topLeft() + QPoint(x, 0)));
    QCOMPARE(border, QSet<QRgb>({qRgb(0, 0, 0), qRgb(255, 255, 255)}));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_list.get(), &leave);
    QCOMPARE(m_list->hoverIndex(), -1);
    QCOMPARE(pixel(middle(0)), qRgb(255, 0, 0));
}

void tst_SpriteListView::marksTheAddCellUnderTheMouse()
{
    const QPoint corner = m_list->cellRect(3).topLeft() + QPoint(1, 1);
    const QRgb before = pixel(corner);
    moveTo(middle(3), Qt::NoButton);
    QCOMPARE(m_list->hoverIndex(), 3);
    QCOMPARE(pixel(corner), before);

    m_list->setAttribute(Qt::WA_UnderMouse);

    QVERIFY(pixel(corner) != before);
}

void tst_SpriteListView::marksReachTheFarCorner()
{
    m_list->setSelectedIndex(0);
    const QRect cell = m_list->cellRect(0);

    const QImage shown = m_list->grab().toImage();

    QSet<QRgb> border;
    for (int i = 0; i < Cell; ++i) {
        border.insert(shown.pixel(cell.right(), cell.top() + i));
        border.insert(shown.pixel(cell.left() + i, cell.bottom()));
    }
    QCOMPARE(border, QSet<QRgb>({qRgb(0, 0, 0), qRgb(255, 255, 255)}));
    QCOMPARE(shown.pixelColor(cell.right() - 1, cell.center().y()), QColor(Qt::red));
}

void tst_SpriteListView::marksAreWholeOnDenseScreens_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_SpriteListView::marksAreWholeOnDenseScreens()
{
    QFETCH(double, ratio);
    const QImage plain = MarkEdges::shown(*m_list, ratio);

    m_list->setSelectedIndex(0);

    const QMargins lines =
        MarkEdges::between(plain, MarkEdges::shown(*m_list, ratio), m_list->cellRect(0));
    QVERIFY2(MarkEdges::areWhole(lines, ratio), MarkEdges::text(lines));
}

void tst_SpriteListView::hoveringTintsTheSprite()
{
    moveTo(middle(0), Qt::NoButton);
    QVERIFY(!m_list->underMouse());
    QCOMPARE(pixel(middle(0)), qRgb(255, 0, 0));
    m_list->setAttribute(Qt::WA_UnderMouse);

    const QColor inside = pixel(middle(0)); // 80 of 255 parts (160, 160, 255) over red
    QVERIFY(qAbs(inside.red() - 225) <= 1);
    QVERIFY(qAbs(inside.green() - 50) <= 1);
    QVERIFY(qAbs(inside.blue() - 80) <= 1);
    const QColor line = pixel(m_list->cellRect(0).topLeft() + QPoint(Cell / 2, 0));
    QVERIFY(line.blue() > inside.blue() + 20); // 128 parts
}

QTEST_MAIN(tst_SpriteListView)
#include "tst_SpriteListView.moc"
