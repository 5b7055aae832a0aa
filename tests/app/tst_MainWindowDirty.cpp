#include "app/QuietWindow.h"
#include "editors/TilePickerGrid.h"
#include "model/SpriteBank.h"

#include <QTest>
#include <QUndoStack>

/// When the window compares the project with what was saved, which takes a digest of all of it.
class tst_MainWindowDirty : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void noDigestWhilePaintingAMap();
    void noDigestWhileDraggingASprite();
    void noDigestWhilePaintingATile();
    void noDigestWhenATileIsMoved();
    void noDigestWhileAColourIsChosen();
    void noDigestInUndoAndRedo();
    void aCloseAsksOnce();

private:
    /// Presses on a cell, moves over others and releases.
    void drag(QPoint from, QPoint to);
    QPoint pixelOf(QPoint cell) const
    {
        return m_grid->cellGeometry().fromCells({cell, QSize(1, 1)}).center();
    }

    std::unique_ptr<QuietWindow> m_window;
    QPointer<Map> m_map;
    MapEditor::MapGrid *m_grid = nullptr;
    int m_digests = 0;
};

/// A saved state, and a map of it on display.
void tst_MainWindowDirty::init()
{
    m_window = std::make_unique<QuietWindow>();
    QVERIFY(m_window->isReady());
    m_window->newProject();
    m_map = m_window->addMap();
    m_window->documents()->setActiveMap(m_map->id());
    m_window->documents()->setActiveTileSet(m_map->tileSet()->id());
    m_grid = m_window->currentMap()->grid();
    m_digests = 0;
    // The window asks for a digest in two places, each time right before or after one of these.
    ProjectController *const control = m_window->control();
    control->_isClean = [this, ask = control->_isClean] {
        ++m_digests;
        return ask();
    };
    control->_markClean = [this, mark = control->_markClean] {
        ++m_digests;
        mark();
    };
}

void tst_MainWindowDirty::drag(QPoint from, QPoint to)
{
    QTest::mousePress(m_grid, Qt::LeftButton, {}, pixelOf(from));
    for (int step = 1; step <= 4; ++step) {
        const QPoint position = pixelOf(from + (to - from) * step / 4);
        QMouseEvent move(QEvent::MouseMove, position, m_grid->mapToGlobal(position), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_grid, &move);
        QCoreApplication::processEvents();
    }
    QTest::mouseRelease(m_grid, Qt::LeftButton, {}, pixelOf(to));
    QCoreApplication::processEvents();
}

void tst_MainWindowDirty::noDigestWhilePaintingAMap()
{
    m_grid->setCurrentTileIndex(3);

    drag({0, 0}, {4, 4});

    QCOMPARE(m_map->tileLayer()->cell({4, 4}).index, 3);
    QCOMPARE(m_digests, 0);
}

void tst_MainWindowDirty::noDigestWhileDraggingASprite()
{
    const auto palette = m_window->project()->createPalette(CreateDefault, "colours");
    const auto bank =
        m_window->project()->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", palette->id());
    m_grid->setSpriteBanks({bank});
    m_grid->setCurrentSprite(bank->id(), 0);
    QTest::mouseClick(m_grid, Qt::LeftButton, {}, pixelOf({1, 1}));
    QCOMPARE(m_map->sprites().size(), 1);
    const int x = m_map->sprites().first().x;

    drag({1, 1}, {5, 5});

    QVERIFY(m_map->sprites().first().x > x);
    QCOMPARE(m_digests, 0);
}

void tst_MainWindowDirty::noDigestWhilePaintingATile()
{
    m_window->views().tileWindow->raise();
    QCoreApplication::processEvents();

    QuietWindow::paintDot(m_window->views().tileWindow, 5);
    QCoreApplication::processEvents();

    QCOMPARE(m_window->documents()->undoStack(m_map->tileSet()->id())->count(), 1);
    QCOMPARE(m_digests, 0);
}

void tst_MainWindowDirty::noDigestWhenATileIsMoved()
{
    m_map->tileSet()->moveTile(0, 5);
    QCoreApplication::processEvents();

    QVERIFY(m_window->undo()->isEnabled());
    QCOMPARE(m_digests, 0);
}

void tst_MainWindowDirty::noDigestWhileAColourIsChosen()
{
    m_map->tileSet()->palette()->setColour(3, Qt::red, false);
    QCoreApplication::processEvents();

    QVERIFY(m_window->undo()->isEnabled());
    QCOMPARE(m_digests, 0);
}

void tst_MainWindowDirty::noDigestInUndoAndRedo()
{
    m_grid->setCurrentTileIndex(3);
    drag({0, 0}, {4, 4});

    m_window->undo()->trigger();
    QCOMPARE(m_map->tileLayer()->cell({4, 4}).index, 0);
    QuietWindow::item(m_window->menus()->editMenu(), "Redo")->trigger();
    QCOMPARE(m_map->tileLayer()->cell({4, 4}).index, 3);

    QCOMPARE(m_digests, 0);
}

/// So that the tests above count at all.
void tst_MainWindowDirty::aCloseAsksOnce()
{
    m_grid->setCurrentTileIndex(3);
    drag({0, 0}, {4, 4});

    QVERIFY(m_window->control()->canClose());

    QCOMPARE(m_digests, 1);
}

QTEST_MAIN(tst_MainWindowDirty)
#include "tst_MainWindowDirty.moc"
