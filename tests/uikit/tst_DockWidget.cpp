#include "uikit/DockWidget.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>

class tst_DockWidget : public QObject
{
    Q_OBJECT

private slots:
    void hasTheFeaturesOfEveryDock();
    void startsOnThePlaceholder();
    void thePlaceholderIsCentredPlainText();
    void thePlaceholderIsPaintedInTheMiddle();
    void switchesBetweenPlaceholderAndContent();
    void theContentFillsTheScrollArea();
    void theWidthAskedForHasRoomForTheVerticalBar();
    void aNewContentReplacesTheOldOne();
};

void tst_DockWidget::hasTheFeaturesOfEveryDock()
{
    const DockWidget dock;

    QCOMPARE(int(dock.features()), 7);
    QCOMPARE(dock.contextMenuPolicy(), Qt::CustomContextMenu);
    QCOMPARE(dock.contentsMargins(), QMargins());
    QVERIFY(dock.findChild<QStackedWidget *>()->autoFillBackground());
    QVERIFY(dock.scrollArea()->widgetResizable());
}

void tst_DockWidget::startsOnThePlaceholder()
{
    const DockWidget dock;
    const auto *stack = dock.findChild<QStackedWidget *>();

    QVERIFY(!dock.isContentShown());
    QCOMPARE(stack->count(), 2);
    QCOMPARE(stack->currentIndex(), 0);
    QVERIFY(qobject_cast<QLabel *>(stack->widget(0)));
    QCOMPARE(stack->widget(1), dock.scrollArea());
}

void tst_DockWidget::thePlaceholderIsCentredPlainText()
{
    DockWidget dock;

    dock.setPlaceholderText(QStringLiteral("<b>No project</b>"));

    const auto *label = qobject_cast<QLabel *>(dock.findChild<QStackedWidget *>()->widget(0));
    QCOMPARE(label->text(), QStringLiteral("<b>No project</b>"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->alignment(), Qt::AlignCenter);
    QCOMPARE(label->foregroundRole(), QPalette::PlaceholderText);
}

void tst_DockWidget::thePlaceholderIsPaintedInTheMiddle()
{
    DockWidget dock;
    dock.setPlaceholderText(QStringLiteral("■"));
    dock.resize(200, 200);
    dock.show();
    auto *label = dock.findChild<QStackedWidget *>()->currentWidget();

    const QImage shot = label->grab().toImage();
    QRect ink;
    for (int y = 0; y < shot.height(); ++y) {
        for (int x = 0; x < shot.width(); ++x) {
            if (shot.pixel(x, y) != shot.pixel(0, 0))
                ink |= QRect(x, y, 1, 1);
        }
    }

    QVERIFY(!ink.isEmpty());
    QVERIFY(qAbs(ink.center().x() - shot.width() / 2) <= 2);
    QVERIFY(qAbs(ink.center().y() - shot.height() / 2) <= 8);
}

void tst_DockWidget::switchesBetweenPlaceholderAndContent()
{
    DockWidget dock;
    auto *content = new QWidget;
    dock.setContentWidget(content);
    dock.show();

    dock.showContent();
    QVERIFY(dock.isContentShown());
    QVERIFY(content->isVisible());

    dock.showPlaceholder();
    QVERIFY(!dock.isContentShown());
    QVERIFY(!content->isVisible());
}

void tst_DockWidget::theContentFillsTheScrollArea()
{
    DockWidget dock;
    auto *content = new QWidget;
    dock.setContentWidget(content);
    dock.showContent();
    dock.resize(300, 200);
    dock.show();

    QCOMPARE(dock.scrollArea()->widget(), content);
    QCOMPARE(content->size(), dock.scrollArea()->viewport()->size());
}

void tst_DockWidget::theWidthAskedForHasRoomForTheVerticalBar()
{
    DockWidget dock;
    auto *content = new QLabel;
    content->setPixmap(QPixmap(400, 1000));
    dock.setContentWidget(content);
    dock.showContent();

    dock.resize(dock.sizeHint().width(), 150);
    dock.show();

    QVERIFY(dock.scrollArea()->verticalScrollBar()->isVisible());
    QCOMPARE(dock.scrollArea()->viewport()->width(), content->width());
}

void tst_DockWidget::aNewContentReplacesTheOldOne()
{
    DockWidget dock;
    QPointer<QWidget> old = new QWidget;
    dock.setContentWidget(old);
    auto *content = new QWidget;

    dock.setContentWidget(content);

    QVERIFY(!old);
    QCOMPARE(dock.scrollArea()->widget(), content);
}

QTEST_MAIN(tst_DockWidget)
#include "tst_DockWidget.moc"
