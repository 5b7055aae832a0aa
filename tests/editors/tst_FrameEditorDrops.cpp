#include "editors/FrameEditorFixture.h"

#include "editors/SpriteDrag.h"
#include "editors/TileDrag.h"
#include "support/DragEvents.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

class tst_FrameEditorDrops : public QObject, private FrameEditorFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void aSpriteDropKeepsThePreviousOffset();
    void aTileDropChangesTheOffset();
    void dropsOfTheOtherKindAreRefused();
    void dropsGoToTheCurrentFrameAndSelect();
    void damagedDropsChangeNothing();
    void dropsOutsideChangeNothing();
    void dragsMarkTheCellBelow();
    void dropsSelectAfterTheFrameHasChanged();
    void droppedBytesAreReadAsTheyStand();
    void droppingOnAFrameWithoutCellsChangesNothing();
};

void tst_FrameEditorDrops::aSpriteDropKeepsThePreviousOffset()
{
    m_walk->frame(0)->setCell({1, 0}, {.index = 1, .offset = 5, .flip = true});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);

    QVERIFY(DragEvents::drop(&editor, middle(1, 0), SpriteDrag::mimeData(9).get()));

    const Cell expected{.index = 9, .offset = 5, .flip = true};
    QCOMPARE(cell(1, 0), expected);
}

void tst_FrameEditorDrops::aTileDropChangesTheOffset()
{
    m_lamp->frame(0)->setCell({0, 0}, {.index = 1, .offset = 5, .mirror = true});
    FrameEditorWidget editor;
    editor.setAnimation(m_lamp);

    QVERIFY(DragEvents::drop(&editor, middle(0, 0, TileCell), TileDrag::mimeData({300, 12}).get()));

    const Cell expected{.index = 300, .offset = 12, .mirror = true};
    QCOMPARE(m_lamp->frame(0)->cell({0, 0}), expected);
}

void tst_FrameEditorDrops::dropsOfTheOtherKindAreRefused()
{
    FrameEditorWidget editor;
    const auto sprite = SpriteDrag::mimeData(9);
    const auto tile = TileDrag::mimeData({9, 1});

    QVERIFY(!DragEvents::enter(&editor, {5, 5}, sprite.get()));
    editor.setAnimation(m_walk);
    QVERIFY(DragEvents::enter(&editor, {5, 5}, sprite.get()));
    QVERIFY(!DragEvents::enter(&editor, {5, 5}, tile.get()));
    editor.setAnimation(m_lamp);
    QVERIFY(!DragEvents::enter(&editor, {5, 5}, sprite.get()));
    QVERIFY(DragEvents::enter(&editor, {5, 5}, tile.get()));
}

void tst_FrameEditorDrops::dropsGoToTheCurrentFrameAndSelect()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setCurrentFrame(2);
    QSignalSpy changed(m_walk, &Animation::frameChanged);
    QSignalSpy selected(&editor, &FrameEditorWidget::selectedCellChanged);

    DragEvents::drop(&editor, middle(1, 0), SpriteDrag::mimeData(9).get());

    QCOMPARE(cell(1, 0, 2).index, 9);
    QCOMPARE(cell(1, 0, 0).index, 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 2);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toPoint(), QPoint(1, 0));
    QCOMPARE(editor.hoverCell().x(), -1);
}

void tst_FrameEditorDrops::damagedDropsChangeNothing()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QSignalSpy changed(m_walk, &Animation::frameChanged);
    QMimeData data;
    data.setData(SpriteDrag::mimeType(), "\x01\x02");

    QVERIFY(!DragEvents::drop(&editor, middle(1, 0), &data));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(editor.selectedCell().x(), -1);
}

void tst_FrameEditorDrops::dropsOutsideChangeNothing()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QSignalSpy changed(m_walk, &Animation::frameChanged);

    QVERIFY(!DragEvents::drop(&editor, middle(2, 0), SpriteDrag::mimeData(9).get()));
    QVERIFY(!DragEvents::drop(&editor, {-3, 5}, SpriteDrag::mimeData(9).get()));

    QCOMPARE(changed.count(), 0);
}

void tst_FrameEditorDrops::dragsMarkTheCellBelow()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &) { return plainPicture(Qt::black); });
    const auto data = SpriteDrag::mimeData(1);

    DragEvents::enter(&editor, middle(1, 0), data.get());
    QVERIFY(DragEvents::move(&editor, middle(1, 0), data.get()));
    QCOMPARE(editor.hoverCell(), QPoint(1, 0));
    const QColor marked = editor.grab().toImage().pixelColor(middle(1, 0));
    const QColor highlight = editor.palette().color(QPalette::Highlight);
    QVERIFY(qAbs(marked.blue() - highlight.blue() / 2) <= 2);
    QVERIFY(marked != QColor(Qt::black));

    QVERIFY(!DragEvents::move(&editor, middle(2, 0), data.get()));
    QCOMPARE(editor.hoverCell().x(), -1);
    DragEvents::move(&editor, middle(0, 0), data.get());
    DragEvents::leave(&editor);
    QCOMPARE(editor.hoverCell().x(), -1);
    QCOMPARE(editor.grab().toImage().pixelColor(middle(0, 0)), QColor(Qt::black));
}

void tst_FrameEditorDrops::dropsSelectAfterTheFrameHasChanged()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    QStringList told;
    connect(m_walk, &Animation::frameChanged, this,
            [&](int frame) { told += QString("frame %1 of %2").arg(frame).arg(cell(1, 0).index); });
    connect(&editor, &FrameEditorWidget::selectedCellChanged, this,
            [&](QPoint cell) { told += QString("cell %1").arg(cell.x()); });

    DragEvents::drop(&editor, middle(1, 0), SpriteDrag::mimeData(9).get());

    QCOMPARE(told, QStringList({"frame 0 of 9", "cell 1"}));
}

void tst_FrameEditorDrops::droppedBytesAreReadAsTheyStand()
{
    FrameEditorWidget sprites;
    sprites.setAnimation(m_walk);
    QMimeData sprite;
    sprite.setData("tessaril/sprite-drag-anim", QByteArray::fromHex("0000002a"));
    QVERIFY(DragEvents::drop(&sprites, middle(0, 0), &sprite));
    QCOMPARE(cell(0, 0).index, 42);

    FrameEditorWidget tiles;
    tiles.setAnimation(m_lamp);
    QMimeData tile;
    tile.setData("tessaril/tile-drag-anim", QByteArray::fromHex("000001020000000d"));
    QVERIFY(DragEvents::drop(&tiles, middle(0, 0, TileCell), &tile));
    QCOMPARE(m_lamp->frame(0)->cell({0, 0}).index, 258);
    QCOMPARE(m_lamp->frame(0)->cell({0, 0}).offset, 13);
}

void tst_FrameEditorDrops::droppingOnAFrameWithoutCellsChangesNothing()
{
    m_walk->clearFrames();
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);

    QVERIFY(!DragEvents::drop(&editor, middle(0, 0), SpriteDrag::mimeData(9).get()));

    QCOMPARE(m_walk->frameCount(), 0);
    QCOMPARE(editor.selectedCell().x(), -1);
}

QTEST_MAIN(tst_FrameEditorDrops)
#include "tst_FrameEditorDrops.moc"
