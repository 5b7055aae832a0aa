#include "uikit/FillingFlowLayout.h"

#include <QHBoxLayout>
#include <QTest>
#include <QWidget>

#include <memory>

namespace {

/// A field that wants 60 pixels and can be narrowed to 40.
class Field : public QWidget
{
public:
    QSize sizeHint() const override { return {60, 20}; }
    QSize minimumSizeHint() const override { return {40, 20}; }
};

} // namespace

class tst_FillingFlowLayout : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void whatARowLeavesGoesToItsExpandingItems();
    void aRowWithoutAnExpandingItemBeginsAtTheLeft();
    void whatDoesNotFitGoesToTheNextRow();
    void anItemTooWideIsNarrowedToItsLeast();
    void itLikesOneRowAndNeedsTheLargestItem();
    void itemsOfARowAreEquallyHigh();
    void fieldsOfAGroupStayTogether();

private:
    QWidget *add(QSizePolicy::Policy policy);

    std::unique_ptr<QWidget> m_window;
    FillingFlowLayout *m_layout = nullptr;
};

void tst_FillingFlowLayout::init()
{
    m_window = std::make_unique<QWidget>();
    m_layout = new FillingFlowLayout(m_window.get());
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(4);
}

QWidget *tst_FillingFlowLayout::add(QSizePolicy::Policy policy)
{
    auto *field = new Field;
    field->setSizePolicy(policy, QSizePolicy::Preferred);
    m_layout->addWidget(field);
    return field;
}

void tst_FillingFlowLayout::whatARowLeavesGoesToItsExpandingItems()
{
    const QWidget *first = add(QSizePolicy::Expanding);
    const QWidget *second = add(QSizePolicy::Preferred);
    const QWidget *third = add(QSizePolicy::Expanding);

    m_layout->setGeometry({0, 0, 219, 20}); // 31 pixels beyond the hints and the gaps

    QCOMPARE(first->geometry(), QRect(0, 0, 75, 20));
    QCOMPARE(second->geometry(), QRect(79, 0, 60, 20));
    QCOMPARE(third->geometry(), QRect(143, 0, 76, 20));
}

void tst_FillingFlowLayout::aRowWithoutAnExpandingItemBeginsAtTheLeft()
{
    const QWidget *only = add(QSizePolicy::Preferred);

    m_layout->setGeometry({0, 0, 200, 20});

    QCOMPARE(only->geometry(), QRect(0, 0, 60, 20));
}

void tst_FillingFlowLayout::whatDoesNotFitGoesToTheNextRow()
{
    const QWidget *first = add(QSizePolicy::Expanding);
    const QWidget *second = add(QSizePolicy::Expanding);

    m_layout->setGeometry({0, 0, 123, 44}); // one pixel less than both want

    QCOMPARE(first->geometry(), QRect(0, 0, 123, 20));
    QCOMPARE(second->geometry(), QRect(0, 24, 123, 20));
    QCOMPARE(m_layout->heightForWidth(123), 44);
    QCOMPARE(m_layout->heightForWidth(124), 20);
}

void tst_FillingFlowLayout::anItemTooWideIsNarrowedToItsLeast()
{
    const QWidget *only = add(QSizePolicy::Expanding);

    m_layout->setGeometry({0, 0, 50, 20});
    QCOMPARE(only->width(), 50);

    m_layout->setGeometry({0, 0, 30, 20});
    QCOMPARE(only->width(), 40);
}

void tst_FillingFlowLayout::itLikesOneRowAndNeedsTheLargestItem()
{
    m_layout->setContentsMargins(1, 2, 3, 4);
    add(QSizePolicy::Expanding);
    add(QSizePolicy::Expanding)->hide();
    add(QSizePolicy::Expanding);

    QCOMPARE(m_layout->sizeHint(), QSize(60 + 4 + 60 + 4, 26));
    QCOMPARE(m_layout->minimumSize(), QSize(44, 26));
}

void tst_FillingFlowLayout::itemsOfARowAreEquallyHigh()
{
    const QWidget *low = add(QSizePolicy::Preferred);
    add(QSizePolicy::Preferred)->setFixedHeight(30);

    m_layout->setGeometry({0, 0, 200, 30});

    QCOMPARE(low->height(), 30);
}

void tst_FillingFlowLayout::fieldsOfAGroupStayTogether()
{
    add(QSizePolicy::Expanding);
    QHBoxLayout *const group = m_layout->addGroup();
    auto *const first = new Field;
    auto *const second = new Field;
    group->setSpacing(4);
    group->addWidget(first);
    group->addWidget(second);

    m_layout->setGeometry({0, 0, 187, 44}); // one pixel less than all want
    group->activate();

    QCOMPARE(first->mapTo(m_window.get(), QPoint()), QPoint(0, 24));
    QCOMPARE(second->mapTo(m_window.get(), QPoint()), QPoint(64, 24));
}

QTEST_MAIN(tst_FillingFlowLayout)

#include "tst_FillingFlowLayout.moc"
