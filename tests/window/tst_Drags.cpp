// Drags between the widgets of the sprite and tile editors, by the mouse of a real display.

#include "editors/FrameEditorWidget.h"
#include "editors/SpriteList.h"
#include "editors/SpriteWindow.h"
#include "editors/TilePickerGrid.h"
#include "support/RecordedProject.h"
#include "support/TestSprites.h"

#include <QHBoxLayout>
#include <QProcess>
#include <QTest>

#include <memory>

using AnimationEditor::FrameEditorWidget;
using SpriteEditor::SpriteList;

class tst_Drags : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void spritesMoveAndCopyByTheModifiers_data();
    void spritesMoveAndCopyByTheModifiers();
    void aSpriteLandsInTheFrameAndStaysInTheBank();
    void aTileLandsInTheFrameWithItsOffset();
    void tilesAreNotTakenForSprites();
    void aDragLetGoElsewhereChangesNothing();

private:
    SpriteList *sprites() const { return m_dock->findChild<SpriteList *>(); }
    QList<int> values() const { return TestSprites::values(*m_project->sprites); }
    QUndoStack *stack() const { return m_project->stackOf(m_project->sprites->id()); }
    static QPoint place(const QWidget *widget, const QRect &cell)
    {
        return widget->mapToGlobal(cell.center());
    }
    QPoint sprite(int index) const { return place(sprites(), sprites()->cellRect(index)); }
    QPoint tile(int index) const { return place(m_tiles, m_tiles->cellRect(index)); }
    QPoint frameCell(int column) const
    {
        const int side = m_frame->height();
        return place(m_frame, {column * side, 0, side, side});
    }
    void show(Animation *animation);
    /// Presses, moves in steps as a hand does, and releases, with a key held down if it has a name.
    bool drag(QPoint from, QPoint to, const QString &key = {});

    std::unique_ptr<RecordedProject> m_project; // whose sprites hold 20, 21, 22 and 23
    std::unique_ptr<QWidget> m_desk;
    SpriteWindow *m_dock = nullptr;
    TilePickerGrid *m_tiles = nullptr;
    FrameEditorWidget *m_frame = nullptr;
};

void tst_Drags::init()
{
    m_project = std::make_unique<RecordedProject>();
    m_project->stacks.setActive(m_project->sprites->id());
    m_desk = std::make_unique<QWidget>();
    m_dock = new SpriteWindow;
    m_dock->setStackFor([this](const QUuid &id) { return m_project->stackOf(id); });
    m_dock->setSprites(m_project->sprites);
    m_tiles = new TilePickerGrid;
    m_tiles->setTileSet(m_project->tileSet);
    m_tiles->setMinimumWidth(200);
    m_frame = new FrameEditorWidget;
    m_frame->zoomOut();
    auto *row = new QHBoxLayout(m_desk.get());
    row->addWidget(m_dock);
    row->addWidget(m_tiles);
    row->addWidget(m_frame);
    m_desk->resize(1000, 750);
    // A window manager that is still starting misses windows.
    const auto shows = [this] {
        m_desk->hide();
        m_desk->show();
        return QTest::qWaitForWindowExposed(m_desk.get(), 1000);
    };
    QVERIFY(QTest::qWaitFor(shows, 20'000));
}

void tst_Drags::cleanup()
{
    m_desk.reset();
    m_project.reset();
}

void tst_Drags::show(Animation *animation)
{
    m_frame->setAnimation(animation);
    m_desk->layout()->activate();
    QCoreApplication::processEvents(); // the lists make room
}

bool tst_Drags::drag(QPoint from, QPoint to, const QString &key)
{
    QStringList steps;
    const auto step = [&steps](const QStringList &words) {
        steps += words + QStringList{"sleep", "0.05"};
    };
    const auto moveTo = [&step](QPoint point) {
        step({"mousemove", QString::number(point.x()), QString::number(point.y())});
    };
    moveTo(from);
    step({"mousedown", "1"});
    for (int part = 1; part <= 4; ++part)
        moveTo(from + (to - from) * part / 4);
    moveTo(to + QPoint(1, 1));
    if (!key.isEmpty())
        step({"keydown", key});
    moveTo(to);
    step({"mouseup", "1"});
    if (!key.isEmpty())
        step({"keyup", key});

    QProcess hand;
    hand.start("xdotool", steps);
    return QTest::qWaitFor([&hand] { return hand.state() == QProcess::NotRunning; }, 20'000) &&
           hand.exitCode() == 0;
}

void tst_Drags::spritesMoveAndCopyByTheModifiers_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QList<int>>("after");
    QTest::addColumn<QStringList>("steps");

    QTest::newRow("plain") << QString() << QList<int>({21, 22, 20, 23})
                           << QStringList("Move Sprite");
    QTest::newRow("Shift") << QString("shift") << QList<int>({20, 21, 20, 23})
                           << QStringList("Copy Sprite");
    QTest::newRow("Ctrl") << QString("ctrl") << QList<int>({20, 21, 22, 23}) << QStringList();
}

void tst_Drags::spritesMoveAndCopyByTheModifiers()
{
    QFETCH(QString, key);
    QFETCH(QList<int>, after);
    QFETCH(QStringList, steps);

    QVERIFY(drag(sprite(0), sprite(2), key));

    QTRY_COMPARE(values(), after);
    QTRY_COMPARE(sprites()->dropIndex(), -1);
    QStringList texts;
    for (int i = 0; i < stack()->count(); ++i)
        texts.append(stack()->text(i));
    QCOMPARE(texts, steps);
}

void tst_Drags::aSpriteLandsInTheFrameAndStaysInTheBank()
{
    show(m_project->animation);

    QVERIFY(drag(sprite(3), frameCell(1)));

    const AnimationFrame::Cell expected{.index = 3, .offset = 2, .mirror = true};
    QTRY_COMPARE(m_project->animation->frame(0)->cell({1, 0}), expected);
    QCOMPARE(m_frame->selectedCell(), QPoint(1, 0));
    QCOMPARE(values(), QList<int>({20, 21, 22, 23}));
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->undoText(), QString("Edit Frames"));
}

void tst_Drags::aTileLandsInTheFrameWithItsOffset()
{
    show(m_project->block);
    const TileSet::State before = m_project->tileSet->state();

    QVERIFY(drag(tile(6), frameCell(1)));

    const AnimationFrame::Cell expected{
        .index = 6, .offset = 6, .flip = false, .mirror = true, .rotate = true};
    QTRY_COMPARE(m_project->block->frame(0)->cell({1, 0}), expected);
    QCOMPARE(m_project->tileSet->state(), before);
}

void tst_Drags::tilesAreNotTakenForSprites()
{
    show(m_project->animation);
    const Animation::State before = m_project->animation->state();

    QVERIFY(drag(tile(6), frameCell(1)));
    QVERIFY(drag(tile(6), sprite(1)));

    QCOMPARE(m_project->animation->state(), before);
    QCOMPARE(values(), QList<int>({20, 21, 22, 23}));
    QCOMPARE(stack()->count(), 0);
}

void tst_Drags::aDragLetGoElsewhereChangesNothing()
{
    QVERIFY(drag(sprite(0), m_desk->mapToGlobal(QPoint(4, 4))));
    QVERIFY(drag(sprite(1), sprite(4))); // which adds a sprite, by a click only

    QCOMPARE(values(), QList<int>({20, 21, 22, 23}));
    QCOMPARE(stack()->count(), 0);
    QCOMPARE(m_dock->spriteIndex(), 1);
    QVERIFY(drag(sprite(3), sprite(3) + QPoint(1, 1))); // a click
    QTRY_COMPARE(m_dock->spriteIndex(), 4);
}

QTEST_MAIN(tst_Drags)
#include "tst_Drags.moc"
