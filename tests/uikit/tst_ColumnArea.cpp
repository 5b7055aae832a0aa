#include "uikit/ColumnArea.h"

#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

/// A column of ten buttons, 30 pixels wide and 300 high.
QWidget *column()
{
    auto *const column = new QWidget;
    auto *const layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int i = 0; i < 10; ++i) {
        auto *const button = new QToolButton;
        button->setFixedSize(30, 30);
        layout->addWidget(button);
    }
    return column;
}

} // namespace

class tst_ColumnArea : public QObject
{
    Q_OBJECT

private slots:
    void aHighAreaIsAsWideAsItsColumn();
    void aLowAreaHasRoomForItsBar();
    void aLowAreaReachesTheLastControl();
};

void tst_ColumnArea::aHighAreaIsAsWideAsItsColumn()
{
    ColumnArea area(column());
    area.resize(30, 300);
    area.show();

    QCOMPARE(area.sizeHint(), QSize(30, 300));
    QCOMPARE(area.width(), 30);
    QVERIFY(!area.verticalScrollBar()->isVisible());
    QCOMPARE(area.focusPolicy(), Qt::NoFocus);
}

void tst_ColumnArea::aLowAreaHasRoomForItsBar()
{
    ColumnArea area(column());
    area.resize(30, 120);
    area.show();
    QVERIFY(area.verticalScrollBar()->isVisible());
    QCOMPARE(area.viewport()->width(), 30);

    area.resize(area.width(), 300);

    QCOMPARE(area.width(), 30);
    QTRY_VERIFY(!area.verticalScrollBar()->isVisible());
}

void tst_ColumnArea::aLowAreaReachesTheLastControl()
{
    ColumnArea area(column());
    area.resize(30, 120);
    area.show();

    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());

    QCOMPARE(area.widget()->y(), 120 - 300);
    QVERIFY(area.minimumSizeHint().height() < 120);
}

QTEST_MAIN(tst_ColumnArea)

#include "tst_ColumnArea.moc"
