#include "uikit/CurrentItem.h"

#include <QListWidget>
#include <QMouseEvent>
#include <QTest>

class tst_CurrentItem : public QObject
{
    Q_OBJECT

private slots:
    void onlyALeftPressOnTheCurrentItemCounts_data();
    void onlyALeftPressOnTheCurrentItemCounts();
    void withoutACurrentItemNothingCounts();

private:
    static QMouseEvent event(const QListWidget &list, int row, QEvent::Type type,
                             Qt::MouseButton button)
    {
        const QRect rect = list.visualItemRect(list.item(row));
        const QPointF position = row < list.count() ? rect.center() : QPoint(5, list.height() - 5);
        return QMouseEvent(type, position, position, button, button, Qt::NoModifier);
    }
};

void tst_CurrentItem::onlyALeftPressOnTheCurrentItemCounts_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("counts");

    const auto row = [](const char *name, int at, QEvent::Type type, Qt::MouseButton button,
                        bool counts) { QTest::newRow(name) << at << type << button << counts; };
    row("current", 1, QEvent::MouseButtonPress, Qt::LeftButton, true);
    row("another", 0, QEvent::MouseButtonPress, Qt::LeftButton, false);
    row("below all", 2, QEvent::MouseButtonPress, Qt::LeftButton, false);
    row("right", 1, QEvent::MouseButtonPress, Qt::RightButton, false);
    row("release", 1, QEvent::MouseButtonRelease, Qt::LeftButton, false);
}

void tst_CurrentItem::onlyALeftPressOnTheCurrentItemCounts()
{
    QFETCH(int, row);
    QFETCH(QEvent::Type, type);
    QFETCH(Qt::MouseButton, button);
    QListWidget list;
    list.addItems({QStringLiteral("one"), QStringLiteral("two")});
    list.setCurrentRow(1);

    QTEST(isPressOnCurrentItem(list, event(list, row, type, button)), "counts");
}

void tst_CurrentItem::withoutACurrentItemNothingCounts()
{
    QListWidget list;
    list.addItems({QStringLiteral("one")});

    QVERIFY(!isPressOnCurrentItem(list, event(list, 0, QEvent::MouseButtonPress, Qt::LeftButton)));
    QVERIFY(!isPressOnCurrentItem(list, event(list, 1, QEvent::MouseButtonPress, Qt::LeftButton)));
}

QTEST_MAIN(tst_CurrentItem)
#include "tst_CurrentItem.moc"
