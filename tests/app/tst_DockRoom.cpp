#include "app/DockRoom.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QTest>

/// Docks whose content could be next to nothing, around a document that needs room.
class tst_DockRoom : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void squeezedDocksComeBack();
    void whatTheWindowIsTooSmallForComesLater();
    void widerDocksStay();
    void whatTheUserPulledCounts();
    void aPressBesideTheLinesChangesNothing();
    void whatIsKeptCounts();
    void aDockThatMovedHasItsRoomInItsNewArea();
    void closedAndFloatingDocksAreLeftAlone();

private:
    QDockWidget *addDock(const QString &name, Qt::DockWidgetArea area);
    void resizeWindow(QSize size);
    void pull(QPoint from, QPoint to);
    QSize sizes() const { return {m_left->width(), m_right->width()}; }

    static constexpr QSize Large{1000, 800};
    static constexpr QSize Small{400, 300};

    std::unique_ptr<QMainWindow> m_window;
    DockRoom *m_room = nullptr;
    QDockWidget *m_left = nullptr;
    QDockWidget *m_right = nullptr;
    QDockWidget *m_below = nullptr;
};

QDockWidget *tst_DockRoom::addDock(const QString &name, Qt::DockWidgetArea area)
{
    auto *const dock = new QDockWidget(name, m_window.get());
    auto *const content = new QWidget;
    content->setMinimumSize(20, 20);
    dock->setWidget(content);
    m_window->addDockWidget(area, dock);
    return dock;
}

void tst_DockRoom::init()
{
    m_window = std::make_unique<QMainWindow>();
    auto *const document = new QWidget;
    document->setMinimumSize(250, 200);
    m_window->setCentralWidget(document);
    m_left = addDock("left", Qt::LeftDockWidgetArea);
    m_right = addDock("right", Qt::RightDockWidgetArea);
    m_below = addDock("below", Qt::BottomDockWidgetArea);
    m_room = new DockRoom(m_window.get(), {m_left, m_right, m_below}, m_window.get());
    m_window->resize(Large);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_room->give({m_left, m_right}, {150, 300}, Qt::Horizontal);
    m_room->give({m_below}, {140}, Qt::Vertical);
    QCoreApplication::processEvents();
    QCOMPARE(sizes(), QSize(150, 300));
    QCOMPARE(m_below->height(), 140);
}

void tst_DockRoom::resizeWindow(QSize size)
{
    m_window->resize(size);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->size(), size);
}

void tst_DockRoom::pull(QPoint from, QPoint to)
{
    QVERIFY(m_window->isSeparator(from));
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, from);
    QTest::mouseMove(m_window.get(), to);
    QCoreApplication::processEvents();
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, to);
    QCoreApplication::processEvents();
}

void tst_DockRoom::squeezedDocksComeBack()
{
    resizeWindow(Small);
    QVERIFY(sizes().width() + sizes().height() <= Small.width() - 250);
    QVERIFY(m_below->height() <= Small.height() - 200);

    for (int width = Small.width(); width <= Large.width(); width += 30)
        resizeWindow({width, 500}); // as somebody who pulls at the window's edge
    resizeWindow(Large);

    QCOMPARE(sizes(), QSize(150, 300));
    QCOMPARE(m_below->height(), 140);
}

void tst_DockRoom::whatTheWindowIsTooSmallForComesLater()
{
    resizeWindow(Small);
    m_room->give({m_left, m_right}, {200, 240}, Qt::Horizontal);
    QCoreApplication::processEvents();
    QVERIFY(sizes().width() + sizes().height() <= Small.width() - 250);

    resizeWindow(Large);

    QCOMPARE(sizes(), QSize(200, 240));
}

void tst_DockRoom::widerDocksStay()
{
    m_window->resizeDocks({m_left}, {190}, Qt::Horizontal);
    QCoreApplication::processEvents();

    resizeWindow(Large + QSize(50, 50));

    QCOMPARE(sizes(), QSize(190, 300));
}

void tst_DockRoom::whatTheUserPulledCounts()
{
    const QPoint line = m_left->geometry().topRight() + QPoint(2, 100);
    pull(line, line - QPoint(60, 0));
    QCOMPARE(m_left->width(), 90);

    resizeWindow(Large + QSize(100, 0));
    QCOMPARE(sizes(), QSize(90, 300));
    resizeWindow(Small);
    QVERIFY(m_left->width() < 90);
    resizeWindow(Large);

    QCOMPARE(sizes(), QSize(90, 300));
}

void tst_DockRoom::aPressBesideTheLinesChangesNothing()
{
    resizeWindow(Small);
    const QPoint inside = m_window->centralWidget()->geometry().center();
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, inside);
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, inside);

    resizeWindow(Large);

    QCOMPARE(sizes(), QSize(150, 300));
}

void tst_DockRoom::whatIsKeptCounts()
{
    m_window->resizeDocks({m_left, m_right}, {110, 120}, Qt::Horizontal);
    QCoreApplication::processEvents();
    m_room->keep();

    resizeWindow(Large + QSize(50, 50));
    QCOMPARE(sizes(), QSize(110, 120));
    resizeWindow(Small);
    resizeWindow(Large);

    QCOMPARE(sizes(), QSize(110, 120));
}

void tst_DockRoom::aDockThatMovedHasItsRoomInItsNewArea()
{
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_right);
    QCoreApplication::processEvents();
    const int width = m_right->width();
    QCOMPARE(m_left->width(), width); // one above the other

    resizeWindow(Small);
    QVERIFY(m_left->width() < width);
    resizeWindow(Large);

    QCOMPARE(sizes(), QSize(width, width));
}

void tst_DockRoom::closedAndFloatingDocksAreLeftAlone()
{
    m_left->close();
    m_right->setFloating(true);
    m_right->resize(77, 88);
    QCoreApplication::processEvents();

    resizeWindow(Small);
    resizeWindow(Large);

    QVERIFY(!m_left->isVisible());
    QCOMPARE(m_right->size(), QSize(77, 88));
    m_left->show();
    QCoreApplication::processEvents();
    QCOMPARE(m_left->width(), 150);
}

QTEST_MAIN(tst_DockRoom)
#include "tst_DockRoom.moc"
