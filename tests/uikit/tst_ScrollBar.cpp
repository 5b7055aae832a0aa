#include "uikit/ScrollBar.h"

#include <QLayout>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using Tessaril::Position;

class tst_ScrollBar : public QObject
{
    Q_OBJECT

private slots:
    void theButtonsStandAroundTheBar_data();
    void theButtonsStandAroundTheBar();
    void theBarTakesTheRoomAndTheButtonsTheMiddle_data();
    void theBarTakesTheRoomAndTheButtonsTheMiddle();
    void eachButtonNamesItsEnd();
    void forwardsTheValue();
    void theButtonsAreNamedByOrientation();

private:
    static QList<QToolButton *> buttons(const ScrollBar &bar);
};

QList<QToolButton *> tst_ScrollBar::buttons(const ScrollBar &bar)
{
    return bar.findChildren<QToolButton *>();
}

void tst_ScrollBar::theButtonsStandAroundTheBar_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::newRow("upright") << Qt::Vertical;
    QTest::newRow("level") << Qt::Horizontal;
}

void tst_ScrollBar::theButtonsStandAroundTheBar()
{
    QFETCH(Qt::Orientation, orientation);
    const bool upright = orientation == Qt::Vertical;
    ScrollBar bar(orientation);
    bar.resize(upright ? QSize(24, 300) : QSize(300, 24));
    bar.show();
    const auto along = [upright](const QWidget *widget) {
        return upright ? widget->y() : widget->x();
    };

    const auto all = buttons(bar);
    QCOMPARE(bar.objectName(), QStringLiteral("ScrollBar"));
    QCOMPARE(all.size(), 4);
    const QStringList signs{all[0]->text(), all[1]->text(), all[2]->text(), all[3]->text()};
    QCOMPARE(signs, (QStringList{"+", "-", "-", "+"}));
    for (const QToolButton *button : all)
        QCOMPARE(button->size(), QSize(15, 15));
    QCOMPARE(along(all[0]), 2);
    QVERIFY(along(all[0]) < along(all[1]));
    QVERIFY(along(all[1]) < along(bar.bar()));
    QVERIFY(along(bar.bar()) < along(all[2]));
    QVERIFY(along(all[2]) < along(all[3]));
    QCOMPARE(along(all[3]), 300 - 2 - 15);
    QCOMPARE(bar.bar()->orientation(), orientation);
}

void tst_ScrollBar::theBarTakesTheRoomAndTheButtonsTheMiddle_data()
{
    theButtonsStandAroundTheBar_data();
}

void tst_ScrollBar::theBarTakesTheRoomAndTheButtonsTheMiddle()
{
    QFETCH(Qt::Orientation, orientation);
    const bool upright = orientation == Qt::Vertical;
    ScrollBar bar(orientation);
    bar.resize(upright ? QSize(41, 300) : QSize(300, 41));
    bar.show();

    const int gap = bar.layout()->spacing();
    const QSize size = bar.bar()->size();
    QCOMPARE(upright ? size.height() : size.width(), 300 - 2 * 2 - 4 * (15 + gap));
    for (const QToolButton *button : buttons(bar))
        QCOMPARE(upright ? button->x() : button->y(), (41 - 15) / 2);
}

void tst_ScrollBar::eachButtonNamesItsEnd()
{
    ScrollBar bar(Qt::Vertical);
    QSignalSpy added(&bar, &ScrollBar::add);
    QSignalSpy removed(&bar, &ScrollBar::remove);

    for (QToolButton *button : buttons(bar))
        QTest::mouseClick(button, Qt::LeftButton);

    QCOMPARE(added.count(), 2);
    QCOMPARE(added.at(0).first().value<Position>(), Position::Begin);
    QCOMPARE(added.at(1).first().value<Position>(), Position::End);
    QCOMPARE(removed.count(), 2);
    QCOMPARE(removed.at(0).first().value<Position>(), Position::Begin);
    QCOMPARE(removed.at(1).first().value<Position>(), Position::End);
}

void tst_ScrollBar::forwardsTheValue()
{
    ScrollBar bar(Qt::Horizontal);
    bar.setRange(0, 100);
    QSignalSpy changed(&bar, &ScrollBar::valueChanged);

    bar.setValue(30);
    bar.setValue(30);
    bar.bar()->setValue(200);

    QCOMPARE(bar.value(), 100);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0).first().toInt(), 30);
    QCOMPARE(changed.at(1).first().toInt(), 100);
}

void tst_ScrollBar::theButtonsAreNamedByOrientation()
{
    const ScrollBar rows(Qt::Vertical);
    const ScrollBar columns(Qt::Horizontal);

    QCOMPARE(buttons(rows).first()->accessibleName(), QStringLiteral("Add a row at the top"));
    QCOMPARE(buttons(columns).last()->accessibleName(),
             QStringLiteral("Add a column at the right"));
}

QTEST_MAIN(tst_ScrollBar)
#include "tst_ScrollBar.moc"
