#include "editors/FrameEditorFixture.h"

#include "editors/SpriteDrag.h"
#include "support/DragEvents.h"
#include "support/MarkEdges.h"

#include <QHelpEvent>
#include <QMimeData>
#include <QTest>
#include <QToolTip>

class tst_FrameEditorView : public QObject, private FrameEditorFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void paintsDarkGreyWithoutAnimation();
    void paintsCellsThroughTheOwner();
    void hoveringRendersNothingAnew();
    void marksTheSelectedCell();
    void marksAreWholeOnDenseScreens_data();
    void marksAreWholeOnDenseScreens();
    void toolTipsTellTheCell();
    void anEditedFrameIsDrawnAnew();
    void marksStandOverTheCellsOfEveryZoom();
    void withoutARendererCellsAreBlack();

private:
    static QString toolTipAt(FrameEditorWidget &editor, QPoint position, bool *isAccepted);
};

void tst_FrameEditorView::paintsDarkGreyWithoutAnimation()
{
    FrameEditorWidget editor;
    editor.resize(64, 64);

    QCOMPARE(editor.grab().toImage().pixelColor(30, 30), QColor(Qt::darkGray));
}

void tst_FrameEditorView::paintsCellsThroughTheOwner()
{
    m_walk->frame(1)->setCell({1, 0}, {.index = 7});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &cell) {
        QImage image = plainPicture(cell.index == 7 ? Qt::red : Qt::green);
        image.setPixelColor(15, 15, Qt::transparent);
        return image;
    });

    QCOMPARE(editor.grab().toImage().pixelColor(middle(1, 0)), QColor(Qt::green));
    editor.setCurrentFrame(1);
    const QImage shown = editor.grab().toImage();
    QCOMPARE(shown.pixelColor(middle(0, 0)), QColor(Qt::green));
    QCOMPARE(shown.pixelColor(128, 0), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(247, 119), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(248, 120), QColor(Qt::black));
}

void tst_FrameEditorView::hoveringRendersNothingAnew()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    int rendered = 0;
    editor.setRenderCell([&rendered](const Cell &) {
        ++rendered;
        return plainPicture(Qt::red);
    });
    editor.grab();
    QCOMPARE(rendered, 2);

    DragEvents::enter(&editor, middle(1, 0), SpriteDrag::mimeData(1).get());
    DragEvents::move(&editor, middle(1, 0), SpriteDrag::mimeData(1).get());
    editor.grab();
    QCOMPARE(rendered, 2);
    m_walk->frame(0)->notifyChanged();
    editor.grab();
    QCOMPARE(rendered, 4);
}

void tst_FrameEditorView::marksTheSelectedCell()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &) { return plainPicture(Qt::white); });

    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));

    const QImage shown = editor.grab().toImage();
    QSet<QRgb> border;
    for (int y = 0; y < SpriteCell; ++y)
        border.insert(shown.pixel(SpriteCell, y));
    QCOMPARE(border, QSet<QRgb>({qRgb(0, 0, 0), qRgb(127, 127, 127)}));
    border.clear();
    for (int y = 0; y < SpriteCell; ++y)
        border.insert(shown.pixel(2 * SpriteCell - 1, y));
    for (int x = SpriteCell; x < 2 * SpriteCell; ++x)
        border.insert(shown.pixel(x, SpriteCell - 1));
    QCOMPARE(border, QSet<QRgb>({qRgb(0, 0, 0), qRgb(127, 127, 127)}));
    QCOMPARE(shown.pixelColor(SpriteCell - 1, 60), QColor(Qt::white));
    QCOMPARE(shown.pixelColor(2 * SpriteCell - 2, 60), QColor(Qt::white));
    QCOMPARE(shown.pixelColor(middle(1, 0)), QColor(Qt::white));
}

QString tst_FrameEditorView::toolTipAt(FrameEditorWidget &editor, QPoint position, bool *isAccepted)
{
    QHelpEvent event(QEvent::ToolTip, position, editor.mapToGlobal(position));
    QCoreApplication::sendEvent(&editor, &event);
    *isAccepted = event.isAccepted();
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

void tst_FrameEditorView::marksAreWholeOnDenseScreens_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_FrameEditorView::marksAreWholeOnDenseScreens()
{
    QFETCH(double, ratio);
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &) { return plainPicture(Qt::green); });
    editor.resize(editor.sizeHint());
    const QImage plain = MarkEdges::shown(editor, ratio);

    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(0, 0));

    const QMargins lines =
        MarkEdges::between(plain, MarkEdges::shown(editor, ratio), {0, 0, SpriteCell, SpriteCell});
    QVERIFY2(MarkEdges::areWhole(lines, ratio), MarkEdges::text(lines));
}

void tst_FrameEditorView::toolTipsTellTheCell()
{
    m_walk->frame(0)->setCell({1, 0}, {.index = 12, .offset = 3, .flip = true, .rotate = true});
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    bool isAccepted = false;

    QCOMPARE(toolTipAt(editor, middle(1, 0), &isAccepted),
             QString("Index:\t12\nOffset:\t3\nFlip\tYes\nMirror:\tNo\nRotate:\tYes"));
    QVERIFY(isAccepted);
    toolTipAt(editor, middle(2, 0), &isAccepted);
    QVERIFY(!isAccepted);
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_FrameEditorView::anEditedFrameIsDrawnAnew()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_lamp);
    editor.setRenderCell(
        [](const Cell &cell) { return plainPicture(cell.index == 7 ? Qt::red : Qt::green); });
    QCOMPARE(editor.grab().toImage().pixelColor(32, 32), QColor(Qt::green));

    m_lamp->frame(0)->setCell({0, 0}, {.index = 7});
    m_lamp->frame(0)->notifyChanged();
    QCOMPARE(editor.grab().toImage().pixelColor(32, 32), QColor(Qt::red));

    m_lamp->frame(0)->setCell({0, 0}, {});
    m_lamp->notifyContentChanged();
    QCOMPARE(editor.grab().toImage().pixelColor(32, 32), QColor(Qt::green));
}

void tst_FrameEditorView::marksStandOverTheCellsOfEveryZoom()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);
    editor.setRenderCell([](const Cell &) { return plainPicture(Qt::white); });
    QTest::mouseClick(&editor, Qt::LeftButton, {}, middle(1, 0));

    for (int i = 0; i < 8; ++i)
        editor.zoomOut();

    const QImage shown = editor.grab().toImage();
    QCOMPARE(shown.size(), QSize(32, 16));
    QVERIFY(shown.pixelColor(16, 0) != QColor(Qt::white));
    QCOMPARE(shown.pixelColor(15, 0), QColor(Qt::white));
    QCOMPARE(shown.pixelColor(24, 8), QColor(Qt::white));
}

void tst_FrameEditorView::withoutARendererCellsAreBlack()
{
    FrameEditorWidget editor;
    editor.setAnimation(m_walk);

    QCOMPARE(editor.grab().toImage().pixelColor(middle(0, 0)), QColor(Qt::black));
}

QTEST_MAIN(tst_FrameEditorView)
#include "tst_FrameEditorView.moc"
