#include "uikit/FlowLayout.h"

#include <QTest>
#include <QWidget>

#include <memory>

class tst_FlowLayout : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void centresARow_data();
    void centresARow();
    void wrapsAnItemThatDoesNotFit();
    void fillsARowToTheLastPixel();
    void centresEachRowByItself();
    void aTallItemMovesTheNextRow();
    void marginsMoveTheItemsInside();
    void aNegativeSpacingCountsAsNone();
    void skipsHiddenWidgets();
    void anItemTooWideStandsAloneAtTheLeft();
    void heightGrowsWithEachRow();
    void anEmptyLayoutIsAsHighAsItsMargins();
    void askingForTheHeightMovesNothing();
    void theMinimumIsTheLargestItem();
    void takingAnItemHandsItOver();
    void itsItemsEndWithIt();
    void aChangeLaysOutAgain();
    void aNestedLayoutIsLaidOutInItsPlace();

private:
    QWidget *addItem(int width, int height);
    QList<QRect> geometries() const;

    QWidget *m_window = nullptr;
    FlowLayout *m_layout = nullptr;
    QList<QWidget *> m_items;
};

void tst_FlowLayout::init()
{
    m_window = new QWidget;
    m_layout = new FlowLayout(m_window);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(1);
}

void tst_FlowLayout::cleanup()
{
    delete m_window;
    m_items.clear();
}

QWidget *tst_FlowLayout::addItem(int width, int height)
{
    auto *item = new QWidget(m_window);
    item->setFixedSize(width, height);
    m_layout->addWidget(item);
    m_items.append(item);
    return item;
}

QList<QRect> tst_FlowLayout::geometries() const
{
    QList<QRect> all;
    for (const QWidget *item : m_items)
        all.append(item->geometry());
    return all;
}

void tst_FlowLayout::centresARow_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("left");
    QTest::newRow("no free space") << 20 << 0;
    QTest::newRow("free space of exactly 1") << 21 << 0;
    QTest::newRow("free space of 2") << 22 << 1;
    QTest::newRow("odd free space") << 25 << 2;
    QTest::newRow("wide") << 120 << 50;
}

void tst_FlowLayout::centresARow()
{
    QFETCH(int, width);
    QFETCH(int, left);
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, width, 50));

    QCOMPARE(geometries(), QList<QRect>{QRect(left, 0, 20, 10)});
}

void tst_FlowLayout::wrapsAnItemThatDoesNotFit()
{
    addItem(20, 10);
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, 40, 50));

    QCOMPARE(geometries(), (QList<QRect>{QRect(10, 0, 20, 10), QRect(10, 11, 20, 10)}));
}

void tst_FlowLayout::fillsARowToTheLastPixel()
{
    addItem(20, 10);
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, 41, 50));

    QCOMPARE(geometries(), (QList<QRect>{QRect(0, 0, 20, 10), QRect(21, 0, 20, 10)}));
}

void tst_FlowLayout::centresEachRowByItself()
{
    for (int i = 0; i < 3; ++i)
        addItem(20, 10);

    m_layout->setGeometry(QRect(100, 200, 51, 50));

    QCOMPARE(geometries(), (QList<QRect>{QRect(105, 200, 20, 10), QRect(126, 200, 20, 10),
                                         QRect(115, 211, 20, 10)}));
}

void tst_FlowLayout::aTallItemMovesTheNextRow()
{
    addItem(20, 10);
    addItem(20, 30);
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, 41, 50));

    QCOMPARE(m_items.at(2)->geometry(), QRect(10, 31, 20, 10));
}

void tst_FlowLayout::marginsMoveTheItemsInside()
{
    m_layout->setContentsMargins(1, 2, 3, 4);
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, 30, 50));

    QCOMPARE(geometries(), QList<QRect>{QRect(1 + 3, 2, 20, 10)});
    QCOMPARE(m_layout->heightForWidth(30), 2 + 10 + 4);
}

void tst_FlowLayout::aNegativeSpacingCountsAsNone()
{
    m_layout->setSpacing(-5);
    addItem(20, 10);
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, 40, 50));

    QCOMPARE(m_layout->spacing(), -5);
    QCOMPARE(geometries(), (QList<QRect>{QRect(0, 0, 20, 10), QRect(20, 0, 20, 10)}));
}

void tst_FlowLayout::skipsHiddenWidgets()
{
    addItem(20, 10);
    addItem(20, 10)->hide();
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, 41, 50));

    QCOMPARE(m_items.at(2)->geometry(), QRect(21, 0, 20, 10));
}

void tst_FlowLayout::anItemTooWideStandsAloneAtTheLeft()
{
    addItem(100, 10);
    addItem(20, 10);

    m_layout->setGeometry(QRect(0, 0, 40, 50));

    QCOMPARE(geometries(), (QList<QRect>{QRect(0, 0, 100, 10), QRect(10, 11, 20, 10)}));
}

void tst_FlowLayout::heightGrowsWithEachRow()
{
    for (int i = 0; i < 6; ++i)
        addItem(20, 10);

    QVERIFY(m_layout->hasHeightForWidth());
    QCOMPARE(m_layout->heightForWidth(125), 10);
    QCOMPARE(m_layout->heightForWidth(124), 21);
    QCOMPARE(m_layout->heightForWidth(41), 32);
    QCOMPARE(m_layout->heightForWidth(20), 65);
}

void tst_FlowLayout::anEmptyLayoutIsAsHighAsItsMargins()
{
    m_layout->setContentsMargins(1, 2, 3, 4);

    QCOMPARE(m_layout->heightForWidth(100), 2 + 4);
}

void tst_FlowLayout::askingForTheHeightMovesNothing()
{
    QWidget *const item = addItem(20, 10);
    m_layout->setGeometry(QRect(5, 5, 20, 10));

    m_layout->heightForWidth(300);

    QCOMPARE(item->geometry(), QRect(5, 5, 20, 10));
}

void tst_FlowLayout::theMinimumIsTheLargestItem()
{
    m_layout->setContentsMargins(1, 2, 3, 4);
    addItem(20, 30);
    addItem(40, 10);

    QCOMPARE(m_layout->minimumSize(), QSize(40 + 4, 30 + 6));
    QCOMPARE(m_layout->sizeHint(), QSize(40 + 4, 30 + 6));
}

void tst_FlowLayout::takingAnItemHandsItOver()
{
    addItem(20, 10);
    QWidget *const second = addItem(20, 10);

    QVERIFY(!m_layout->takeAt(2));
    QVERIFY(!m_layout->takeAt(-1));
    const std::unique_ptr<QLayoutItem> taken(m_layout->takeAt(1));

    QCOMPARE(taken->widget(), second);
    QCOMPARE(m_layout->count(), 1);
    QCOMPARE(m_layout->itemAt(0)->widget(), m_items.first());
    QVERIFY(!m_layout->itemAt(1));
}

void tst_FlowLayout::itsItemsEndWithIt()
{
    struct Item : QSpacerItem
    {
        explicit Item(int &ends)
            : QSpacerItem(10, 10)
            , m_ends(ends)
        {
        }
        ~Item() override { ++m_ends; }
        int &m_ends;
    };
    int ends = 0;
    auto layout = std::make_unique<FlowLayout>();
    layout->addItem(new Item(ends));
    layout->addItem(new Item(ends));
    const std::unique_ptr<QLayoutItem> taken(layout->takeAt(0));

    layout.reset();

    QCOMPARE(ends, 1);
}

void tst_FlowLayout::aChangeLaysOutAgain()
{
    addItem(20, 10);
    addItem(20, 10);
    m_window->resize(61, 50);
    m_window->show();
    QCOMPARE(m_items.at(1)->x(), 10 + 21);

    m_layout->setSpacing(5);
    QTRY_COMPARE(m_items.at(1)->x(), 8 + 25);

    const std::unique_ptr<QLayoutItem> taken(m_layout->takeAt(0));
    QTRY_COMPARE(m_items.at(1)->x(), 20);
}

void tst_FlowLayout::aNestedLayoutIsLaidOutInItsPlace()
{
    addItem(30, 10);
    auto *inner = new FlowLayout;
    inner->setContentsMargins(0, 0, 0, 0);
    m_layout->addItem(inner);
    auto *item = new QWidget(m_window);
    item->setFixedSize(10, 10);
    inner->addWidget(item);

    m_layout->setGeometry(QRect(0, 0, 41, 50));

    QCOMPARE(item->geometry(), QRect(31, 0, 10, 10));
}

QTEST_MAIN(tst_FlowLayout)
#include "tst_FlowLayout.moc"
