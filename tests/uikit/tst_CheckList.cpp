#include "uikit/CheckList.h"

#include "support/PaintCounter.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

class tst_CheckList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsWithTheRowsUnchecked();
    void theRowsAreDrawnByItsOwnDelegate();
    void aPressOnARowTogglesIt();
    void thePopupStaysOpenForTheNextPress();
    void spaceTogglesTheCurrentRow();
    void reportsTheStateOfTheWholeList();
    void settingTheSameStateSendsNothing();
    void blockedSignalsStillChangeTheSummary();
    void theSummaryTellsTheCheckedRows();
    void theSummaryIsPaintedInTheClosedBox();
    void aNewSummaryIsRepainted();
    void newTextsAreDescribed();
    void theWheelChangesNothing();
    void rowsOutOfRangeAreUnchecked();

private:
    void press(int row);

    CheckList *m_list = nullptr;
};

void tst_CheckList::init()
{
    m_list = new CheckList;
    m_list->setSummaryTexts(QStringLiteral("All Sides"), QStringLiteral("Empty"),
                            QStringLiteral("Oook!"));
    m_list->addCheckItem(QStringLiteral("Top"), 1);
    m_list->addCheckItem(QStringLiteral("Right"), 4);
    m_list->addCheckItem(QStringLiteral("Bottom"), 8);
}

void tst_CheckList::cleanup()
{
    delete m_list;
}

void tst_CheckList::press(int row)
{
    QAbstractItemView *const view = m_list->view();
    const QRect place = view->visualRect(m_list->model()->index(row, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place.center());
}

void tst_CheckList::startsWithTheRowsUnchecked()
{
    QCOMPARE(m_list->count(), 3);
    QCOMPARE(m_list->checkState(0), Qt::Unchecked);
    QCOMPARE(m_list->itemData(1).toInt(), 4);
    QCOMPARE(m_list->overallState(), Qt::Unchecked);
}

void tst_CheckList::theRowsAreDrawnByItsOwnDelegate()
{
    m_list->show();
    m_list->showPopup();

    using Delegate = CheckList::QCheckListStyledItemDelegate;
    QVERIFY(qobject_cast<Delegate *>(m_list->view()->itemDelegate()));
}

void tst_CheckList::aPressOnARowTogglesIt()
{
    m_list->show();
    m_list->showPopup();
    QSignalSpy changed(m_list, &CheckList::checkStateChanged);

    press(1);
    QCOMPARE(m_list->checkState(1), Qt::Checked);
    QCOMPARE(changed.count(), 1);

    press(1);
    QCOMPARE(m_list->checkState(1), Qt::Unchecked);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(m_list->checkState(0), Qt::Unchecked);
}

void tst_CheckList::thePopupStaysOpenForTheNextPress()
{
    m_list->show();
    m_list->showPopup();

    press(0);
    press(2);

    QVERIFY(m_list->view()->isVisible());
    QCOMPARE(m_list->summary(), QStringLiteral("Top, Bottom"));
}

void tst_CheckList::spaceTogglesTheCurrentRow()
{
    m_list->show();
    m_list->showPopup();
    m_list->view()->setCurrentIndex(m_list->model()->index(2, 0));

    QTest::keyClick(m_list->view(), Qt::Key_Space);

    QCOMPARE(m_list->checkState(2), Qt::Checked);
    QVERIFY(m_list->view()->isVisible());
}

void tst_CheckList::reportsTheStateOfTheWholeList()
{
    QSignalSpy changed(m_list, &CheckList::checkStateChanged);

    m_list->setCheckState(0, Qt::Checked);
    m_list->setCheckState(1, Qt::Checked);
    m_list->setCheckState(2, Qt::Checked);
    for (int row = 0; row < 3; ++row)
        m_list->setCheckState(row, Qt::Unchecked);

    QList<int> states;
    for (const auto &arguments : changed)
        states.append(arguments.first().toInt());
    QCOMPARE(states, (QList<int>{Qt::PartiallyChecked, Qt::PartiallyChecked, Qt::Checked,
                                 Qt::PartiallyChecked, Qt::PartiallyChecked, Qt::Unchecked}));
}

void tst_CheckList::settingTheSameStateSendsNothing()
{
    m_list->setCheckState(0, Qt::Checked);
    QSignalSpy changed(m_list, &CheckList::checkStateChanged);

    m_list->setCheckState(0, Qt::Checked);
    m_list->setCheckState(7, Qt::Checked);

    QCOMPARE(changed.count(), 0);
}

void tst_CheckList::blockedSignalsStillChangeTheSummary()
{
    QSignalSpy changed(m_list, &CheckList::checkStateChanged);

    {
        const QSignalBlocker blocker(m_list);
        m_list->setCheckState(0, Qt::Checked);
    }

    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_list->accessibleDescription(), QStringLiteral("Top"));
}

void tst_CheckList::theSummaryTellsTheCheckedRows()
{
    QCOMPARE(m_list->summary(), QStringLiteral("Empty"));

    m_list->setCheckState(1, Qt::Checked);
    m_list->setCheckState(0, Qt::Checked);
    QCOMPARE(m_list->summary(), QStringLiteral("Top, Right"));

    m_list->setCheckState(2, Qt::Checked);
    QCOMPARE(m_list->summary(), QStringLiteral("All Sides"));

    m_list->clear();
    QCOMPARE(m_list->summary(), QStringLiteral("Oook!"));
}

void tst_CheckList::theSummaryIsPaintedInTheClosedBox()
{
    m_list->resize(160, 30);
    const QImage none = m_list->grab().toImage();

    m_list->setCheckState(0, Qt::Checked);
    const QImage one = m_list->grab().toImage();
    m_list->setCheckState(0, Qt::Unchecked);

    QVERIFY(one != none);
    QCOMPARE(m_list->grab().toImage(), none);
}

void tst_CheckList::aNewSummaryIsRepainted()
{
    m_list->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_list));
    const PaintCounter paints(*m_list);

    m_list->setCheckState(2, Qt::Checked); // not the current row, which the box repaints by itself

    QTRY_COMPARE(paints.count(), 1);
}

void tst_CheckList::newTextsAreDescribed()
{
    m_list->setSummaryTexts(QStringLiteral("Both"), QStringLiteral("Neither"), QString());

    QCOMPARE(m_list->accessibleDescription(), QStringLiteral("Neither"));
}

void tst_CheckList::theWheelChangesNothing()
{
    m_list->show();
    const int current = m_list->currentIndex();
    QWheelEvent wheel(QPointF(5, 5), m_list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);

    QCoreApplication::sendEvent(m_list, &wheel);

    QCOMPARE(m_list->currentIndex(), current);
    QVERIFY(!wheel.isAccepted());
}

void tst_CheckList::rowsOutOfRangeAreUnchecked()
{
    QCOMPARE(m_list->checkState(-1), Qt::Unchecked);
    QCOMPARE(m_list->checkState(3), Qt::Unchecked);

    QSignalSpy changed(m_list, &CheckList::checkStateChanged);
    m_list->itemPressed({});
    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(tst_CheckList)
#include "tst_CheckList.moc"
