#include "editors/AnimationControlWidget.h"

#include "uikit/ThemedIcon.h"

#include <QAction>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using Action = AnimationControlWidget::Action;

class tst_AnimationControlWidget : public QObject
{
    Q_OBJECT

private slots:
    void buttonsStandInOrder_data();
    void buttonsStandInOrder();
    void startsAtFrameOneOfOne();
    void showsTheFrameWithinTheCount_data();
    void showsTheFrameWithinTheCount();
    void clicksReportTheActionAndItsState_data();
    void clicksReportTheActionAndItsState();
    void pauseTellsWhetherItIsChecked();
    void playAndStopEndAPause();
    void loopingIsTheOnlyPlayMode();
    void groupsStandApartInTheMiddle();
    void theFrameIsToldInTheMiddle();
    void aNarrowOneHasItsGroupsInRows();
    void playModesExcludeEachOther();

private:
    static QToolButton *button(const AnimationControlWidget &controls, int action);
};

QToolButton *tst_AnimationControlWidget::button(const AnimationControlWidget &controls, int action)
{
    return controls.findChildren<QToolButton *>().value(action);
}

void tst_AnimationControlWidget::buttonsStandInOrder_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<bool>("isCheckable");

    QTest::newRow("first") << 0 << "Goto first frame"
                           << ":Media/Start" << false;
    QTest::newRow("previous") << 1 << "Previous frame"
                              << ":Arrow/W" << false;
    QTest::newRow("play") << 2 << "Play"
                          << ":Media/Play" << false;
    QTest::newRow("pause") << 3 << "Pause playback"
                           << ":Media/Pause" << true;
    QTest::newRow("stop") << 4 << "Stop"
                          << ":Media/Stop" << false;
    QTest::newRow("next") << 5 << "Next frame"
                          << ":Arrow/E" << false;
    QTest::newRow("last") << 6 << "Goto last frame"
                          << ":Media/End" << false;
    QTest::newRow("add") << 7 << "Add a frame"
                         << ":NewIcon" << false;
    QTest::newRow("delete") << 8 << "Delete current frame"
                            << ":Trashcan" << false;
    QTest::newRow("loop") << 9 << "Loop"
                          << ":Media/Loop" << true;
    QTest::newRow("ping pong") << 10 << "Ping pong"
                               << ":Media/PingPong" << true;
}

void tst_AnimationControlWidget::buttonsStandInOrder()
{
    QFETCH(int, action);
    QFETCH(QString, toolTip);
    QFETCH(QString, icon);
    QFETCH(bool, isCheckable);
    const AnimationControlWidget controls;

    const QToolButton *one = button(controls, action);

    QVERIFY(one);
    QCOMPARE(one->toolTip(), toolTip);
    QCOMPARE(one->accessibleName(), toolTip);
    QCOMPARE(one->isCheckable(), isCheckable);
    QCOMPARE(one->minimumSize(), QSize(34, 34));
    QCOMPARE(one->maximumSize(), QSize(34, 34));
    QVERIFY(one->autoRaise());
    QCOMPARE(one->icon().pixmap(24).toImage(), themedIcon(icon).pixmap(24).toImage());
    QCOMPARE(one->defaultAction(), controls.action(static_cast<Action>(action)));
}

void tst_AnimationControlWidget::startsAtFrameOneOfOne()
{
    const AnimationControlWidget controls;

    QCOMPARE(controls.findChild<QLabel *>()->text(), QString("Frame 1 of 1"));
    QCOMPARE(controls.current(), 1);
    QCOMPARE(controls.count(), 1);
}

void tst_AnimationControlWidget::showsTheFrameWithinTheCount_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("text");

    QTest::newRow("within") << 2 << 5 << "Frame 2 of 5";
    QTest::newRow("above the count") << 9 << 5 << "Frame 5 of 5";
    QTest::newRow("below one") << 0 << 5 << "Frame 1 of 5";
    QTest::newRow("no frames") << 1 << 0 << "Frame 0 of 0";
}

void tst_AnimationControlWidget::showsTheFrameWithinTheCount()
{
    QFETCH(int, current);
    QFETCH(int, count);
    QFETCH(QString, text);
    AnimationControlWidget controls;

    controls.setFrame(current, count);

    QCOMPARE(controls.findChild<QLabel *>()->text(), text);
}

void tst_AnimationControlWidget::clicksReportTheActionAndItsState_data()
{
    buttonsStandInOrder_data();
}

void tst_AnimationControlWidget::clicksReportTheActionAndItsState()
{
    QFETCH(int, action);
    const AnimationControlWidget controls;
    QSignalSpy clicked(&controls, &AnimationControlWidget::buttonClicked);

    QTest::mouseClick(button(controls, action), Qt::LeftButton);

    if (action == Action::PingPong) {
        QCOMPARE(clicked.count(), 0);
        return;
    }
    const bool isChecked = action == Action::Pause || action == Action::Loop;
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).value<Action>(), static_cast<Action>(action));
    QCOMPARE(clicked.at(0).at(1).toBool(), isChecked);
}

void tst_AnimationControlWidget::pauseTellsWhetherItIsChecked()
{
    const AnimationControlWidget controls;
    QSignalSpy clicked(&controls, &AnimationControlWidget::buttonClicked);

    QTest::mouseClick(button(controls, Action::Pause), Qt::LeftButton);
    QTest::mouseClick(button(controls, Action::Pause), Qt::LeftButton);

    QCOMPARE(clicked.at(0).at(1).toBool(), true);
    QCOMPARE(clicked.at(1).at(1).toBool(), false);
}

void tst_AnimationControlWidget::playAndStopEndAPause()
{
    for (const Action action : {Action::Play, Action::Stop}) {
        const AnimationControlWidget controls;
        QTest::mouseClick(button(controls, Action::Pause), Qt::LeftButton);
        QSignalSpy clicked(&controls, &AnimationControlWidget::buttonClicked);

        QTest::mouseClick(button(controls, action), Qt::LeftButton);

        QVERIFY(!button(controls, Action::Pause)->isChecked());
        QCOMPARE(clicked.count(), 1);
    }
}

void tst_AnimationControlWidget::loopingIsTheOnlyPlayMode()
{
    const AnimationControlWidget controls;

    QVERIFY(button(controls, Action::Loop)->isChecked());
    QVERIFY(!button(controls, Action::PingPong)->isEnabled());
    QTest::mouseClick(button(controls, Action::Loop), Qt::LeftButton);
    QVERIFY(button(controls, Action::Loop)->isChecked());
}

void tst_AnimationControlWidget::groupsStandApartInTheMiddle()
{
    AnimationControlWidget controls;
    controls.resize(701, controls.sizeHint().height());
    controls.show();
    QVERIFY(QTest::qWaitForWindowExposed(&controls));

    const auto placeOf = [&controls](int action) {
        const QToolButton *const one = button(controls, action);
        return QRect(one->mapTo(&controls, QPoint()), one->size());
    };
    QList<int> gaps;
    for (int i = Action::First; i < Action::PingPong; ++i)
        gaps.append(placeOf(i + 1).x() - placeOf(i).right() - 1);
    QCOMPARE(gaps, QList<int>({0, 0, 0, 0, 0, 0, 10, 0, 10, 0}));
    const int left = placeOf(Action::First).x();
    const int right = controls.width() - placeOf(Action::PingPong).right() - 1;
    QVERIFY(qAbs(left - right) <= 1);
    QVERIFY(controls.findChild<QLabel *>()->geometry().bottom() < placeOf(Action::First).y());
}

void tst_AnimationControlWidget::theFrameIsToldInTheMiddle()
{
    AnimationControlWidget controls;
    controls.resize(701, controls.sizeHint().height());
    controls.show();
    QVERIFY(QTest::qWaitForWindowExposed(&controls));

    const QImage label = controls.findChild<QLabel *>()->grab().toImage();
    int left = label.width();
    int right = 0;
    for (int y = 0; y < label.height(); ++y) {
        for (int x = 0; x < label.width(); ++x) {
            if (label.pixel(x, y) != label.pixel(0, 0)) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    QVERIFY(left < right);
    QVERIFY(qAbs(left - (label.width() - 1 - right)) <= 3);
}

void tst_AnimationControlWidget::aNarrowOneHasItsGroupsInRows()
{
    AnimationControlWidget controls;
    controls.resize(controls.minimumSizeHint());
    controls.resize(controls.width(), controls.heightForWidth(controls.width()));
    controls.show();
    QVERIFY(QTest::qWaitForWindowExposed(&controls));

    QVERIFY(controls.width() < 300);
    for (int i = Action::First; i <= Action::PingPong; ++i) {
        const QToolButton *const one = button(controls, i);
        QVERIFY(controls.rect().contains(QRect(one->mapTo(&controls, QPoint()), one->size())));
        QCOMPARE(one->visibleRegion(), QRegion(one->rect()));
    }
}

void tst_AnimationControlWidget::playModesExcludeEachOther()
{
    const AnimationControlWidget controls;

    controls.action(Action::PingPong)->setChecked(true);

    QVERIFY(!controls.action(Action::Loop)->isChecked());
}

QTEST_MAIN(tst_AnimationControlWidget)
#include "tst_AnimationControlWidget.moc"
