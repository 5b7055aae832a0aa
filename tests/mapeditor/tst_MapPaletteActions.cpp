#include "mapeditor/View.h"

#include "ShownView.h"

#include <QApplication>

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;

/// What each action of the palette changes, and what it leaves alone.
class tst_MapPaletteActions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_shown.reset(); }

    void anActionDoesOnlyItsOwn_data();
    void anActionDoesOnlyItsOwn();

private:
    MapGrid &grid() const { return m_shown->grid(); }
    QVariantMap state() const;

    std::unique_ptr<ShownView> m_shown;
};

void tst_MapPaletteActions::init()
{
    m_shown = std::make_unique<ShownView>();
    QVERIFY(QTest::qWaitForWindowActive(&m_shown->view));
}

QVariantMap tst_MapPaletteActions::state() const
{
    return {{"zoom", grid().cellGeometry().cellSize},
            {"rotated", grid().isRotated()},
            {"flipped", grid().isFlipped()},
            {"mirrored", grid().isMirrored()},
            {"scroll", grid().cellGeometry().scroll},
            {"grid", grid().isGridVisible()},
            {"mode", static_cast<int>(grid().mode())},
            {"offset", m_shown->map->tileLayer()->cell({0, 0}).offset},
            {"steps", m_shown->stack.count()},
            {"dialog", QApplication::activeModalWidget() != nullptr}};
}

void tst_MapPaletteActions::anActionDoesOnlyItsOwn_data()
{
    QTest::addColumn<Tool>("action");
    QTest::addColumn<QStringList>("changed");
    QTest::newRow("select") << Tool::Select << QStringList("mode");
    QTest::newRow("grid") << Tool::Grid << QStringList("grid");
    QTest::newRow("zoom in") << Tool::ZoomIn << QStringList("zoom");
    QTest::newRow("zoom out") << Tool::ZoomOut << QStringList("zoom");
    QTest::newRow("rotate") << Tool::RotateCW << QStringList("rotated");
    QTest::newRow("flip") << Tool::Flip << QStringList("flipped");
    QTest::newRow("mirror") << Tool::Mirror << QStringList("mirrored");
    QTest::newRow("up") << Tool::MoveUp << QStringList("scroll");
    QTest::newRow("down") << Tool::MoveDown << QStringList("scroll");
    QTest::newRow("left") << Tool::MoveLeft << QStringList("scroll");
    QTest::newRow("right") << Tool::MoveRight << QStringList("scroll");
    QTest::newRow("offsets") << Tool::PaintPalette << QStringList("offset");
    QTest::newRow("stop") << Tool::AnimStop << QStringList();
    QTest::newRow("another's") << Tool::Line << QStringList();
}

void tst_MapPaletteActions::anActionDoesOnlyItsOwn()
{
    QFETCH(const Tool, action);
    QFETCH(const QStringList, changed);
    m_shown->map->tileLayer()->setCell({0, 0}, TestMaps::cell(1, 2));
    grid().setViewPort(true, {3, 2});
    grid().setOrientation(true, true, true);
    grid().setGridVisible(true);
    grid().setHorizontalScrollPosition(1);
    grid().setVerticalScrollPosition(1);
    const QVariantMap before = state();

    m_shown->view.toolPaletteClicked(action, false);

    QStringList differing;
    const QVariantMap after = state();
    for (auto it = after.cbegin(); it != after.cend(); ++it) {
        if (it.value() != before.value(it.key()))
            differing += it.key();
    }
    QCOMPARE(differing, changed);
}

QTEST_MAIN(tst_MapPaletteActions)

#include "tst_MapPaletteActions.moc"
