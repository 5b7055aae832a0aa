#include "editors/SpriteDrag.h"
#include "editors/SpriteListFixture.h"
#include "support/DragEvents.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QSignalSpy>

class tst_SpriteListDrags : public QObject, private SpriteListFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void isSetUpForDragsAndHovering();
    void dragsStartBeyondTheDragDistance();
    void emptyPlacesStartNoDrag();
    void dropsMoveOrCopyByTheModifiers_data();
    void dropsMoveOrCopyByTheModifiers();
    void dragsMarkTheTarget();
    void foreignDropsAreRefused();
};

void tst_SpriteListDrags::isSetUpForDragsAndHovering()
{
    QVERIFY(m_list->testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(m_list->acceptDrops());
    QVERIFY(m_list->hasMouseTracking());
    QCOMPARE(m_list->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QVERIFY(m_list->sizePolicy().verticalPolicy() != QSizePolicy::Expanding);
}

void tst_SpriteListDrags::dragsStartBeyondTheDragDistance()
{
    const QPoint start = middle(1);

    press(1);
    moveTo(start + QPoint(QApplication::startDragDistance() - 1, 0), Qt::LeftButton);
    QVERIFY(!m_list->findChild<QDrag *>());
    moveTo(start + QPoint(QApplication::startDragDistance(), 0), Qt::LeftButton);

    const auto *drag = m_list->findChild<QDrag *>();
    QVERIFY(drag);
    QCOMPARE(SpriteDrag::index(drag->mimeData()), std::optional<int>(1));
    QCOMPARE(drag->pixmap().size(), QSize(Cell, Cell));
    QCOMPARE(drag->pixmap().toImage().pixelColor(Cell / 2, Cell / 2), QColor(Qt::green));
}

void tst_SpriteListDrags::emptyPlacesStartNoDrag()
{
    press(3);
    moveTo(middle(0), Qt::LeftButton);
    QVERIFY(!m_list->findChild<QDrag *>());

    press(1, Qt::RightButton);
    moveTo(middle(0), Qt::RightButton);
    QVERIFY(!m_list->findChild<QDrag *>());
}

void tst_SpriteListDrags::dropsMoveOrCopyByTheModifiers_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("expected");

    using Modifiers = Qt::KeyboardModifiers;
    QTest::newRow("plain") << Modifiers(Qt::NoModifier) << 2 << "move 0 2";
    QTest::newRow("Shift") << Modifiers(Qt::ShiftModifier) << 2 << "copy 0 2";
    QTest::newRow("Ctrl") << Modifiers(Qt::ControlModifier) << 2 << "";
    QTest::newRow("Shift and Ctrl") << (Qt::ShiftModifier | Qt::ControlModifier) << 2 << "";
    QTest::newRow("on itself") << Modifiers(Qt::NoModifier) << 0 << "";
    QTest::newRow("on the add cell") << Modifiers(Qt::NoModifier) << 3 << "";
}

void tst_SpriteListDrags::dropsMoveOrCopyByTheModifiers()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(int, target);
    QFETCH(QString, expected);
    QStringList sent;
    connect(m_list.get(), &SpriteList::moveSprite, this,
            [&](int s, int d) { sent += QString("move %1 %2").arg(s).arg(d); });
    connect(m_list.get(), &SpriteList::copySprite, this,
            [&](int s, int d) { sent += QString("copy %1 %2").arg(s).arg(d); });

    press(0);
    DragEvents::drop(m_list.get(), middle(target), SpriteDrag::mimeData(0).get(), modifiers);

    QCOMPARE(sent.join(','), expected);
    QCOMPARE(m_list->dropIndex(), -1);
}

void tst_SpriteListDrags::dragsMarkTheTarget()
{
    const auto sprite = SpriteDrag::mimeData(0);

    QVERIFY(DragEvents::enter(m_list.get(), middle(1), sprite.get()));
    DragEvents::move(m_list.get(), middle(1), sprite.get());
    QCOMPARE(m_list->dropIndex(), 1);
    QCOMPARE(pixel({Margin + Cell + Cell - 1, Cell / 2}), qRgb(0, 255, 0));
    QVERIFY(pixel({Margin + Cell + Cell - 2, Cell / 2}) != qRgb(0, 255, 0));
    DragEvents::move(m_list.get(), middle(3), sprite.get());
    QCOMPARE(m_list->dropIndex(), -1);
    DragEvents::move(m_list.get(), middle(2), sprite.get());
    DragEvents::leave(m_list.get());
    QCOMPARE(m_list->dropIndex(), -1);
}

void tst_SpriteListDrags::foreignDropsAreRefused()
{
    QSignalSpy moved(m_list.get(), &SpriteList::moveSprite);
    QMimeData text;
    text.setText("0");

    press(0);
    QVERIFY(!DragEvents::enter(m_list.get(), middle(1), &text));
    QVERIFY(!DragEvents::drop(m_list.get(), middle(1), SpriteDrag::mimeData(2).get()));

    QCOMPARE(moved.count(), 0);
}

QTEST_MAIN(tst_SpriteListDrags)
#include "tst_SpriteListDrags.moc"
