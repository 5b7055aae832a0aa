#include "editors/BlockPaneFixture.h"

#include <QSignalSpy>

#include <limits>

class tst_AnimationEditorPlayback : public QObject, private BlockPaneFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void opensAtTheFirstFrameAndStandsStill();
    void repeatsTheDelayOfTheBlock();
    void theIntervalFollowsTheDelay_data();
    void theIntervalFollowsTheDelay();
    void theTransportStepsThroughFrames();
    void framesOutOfRangeAreIgnored();
    void addAppendsAFrameAndShowsIt();
    void deleteShowsTheFrameBefore_data();
    void deleteShowsTheFrameBefore();
    void deletingTheOnlyFrameLeavesABlankOne();
    void playPauseAndStopDriveTheTimer();
    void theTimerPlaysTheFramesRoundAndRound();
    void theDelayChangesThePlayback();
    void loopAndPingPongDoNothing();
    void playingMeetsFewerFrames();
};

void tst_AnimationEditorPlayback::opensAtTheFirstFrameAndStandsStill()
{
    click(Action::Last);
    click(Action::Play);

    m_editor->setAnimation(m_set->block);

    QCOMPARE(m_editor->currentFrame(), 0);
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 2"));
    QVERIFY(!m_editor->timer().isActive());
}

void tst_AnimationEditorPlayback::repeatsTheDelayOfTheBlock()
{
    m_set->block->setDelay(3);
    QSignalSpy delays(m_set->block, &Animation::delayChanged);
    QSignalSpy sizes(m_set->block, &Animation::sizeChanged);
    QSignalSpy contents(m_set->block, &Animation::contentChanged);

    m_editor->setAnimation(m_set->block);

    QCOMPARE(delays.count(), 1);
    QCOMPARE(delays.first().first().toInt(), 3);
    QCOMPARE(sizes.count() + contents.count(), 0);
}

void tst_AnimationEditorPlayback::theIntervalFollowsTheDelay_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("interval");
    QTest::newRow("none") << 0 << 20;
    QTest::newRow("25 fps") << 1 << 40;
    QTest::newRow("2") << 2 << 60;
    QTest::newRow("the largest") << 50 << 1020;
    QTest::newRow("of a damaged file")
        << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
}

void tst_AnimationEditorPlayback::theIntervalFollowsTheDelay()
{
    QFETCH(int, delay);
    QFETCH(int, interval);

    m_editor->setAnimationDelay(delay);
    QCOMPARE(m_editor->timer().interval(), interval);
    QCOMPARE(m_set->block->delay(), delay);

    AnimationEditorWidget other;
    other.setAnimation(m_set->block);
    QCOMPARE(other.timer().interval(), interval);
    other.play();
    QCOMPARE(other.timer().interval(), interval);
}

void tst_AnimationEditorPlayback::theTransportStepsThroughFrames()
{
    addFrames(2);
    QSignalSpy shown(frames(), &FrameEditorWidget::currentFrameChanged);

    QList<int> current;
    for (const Action action : {Action::Next, Action::Next, Action::Previous, Action::Last,
                                Action::Next, Action::First, Action::Previous}) {
        click(action);
        current.append(m_editor->currentFrame());
    }

    QCOMPARE(current, QList<int>({1, 2, 1, 3, 3, 0, 0}));
    QCOMPARE(shown.count(), 5); // nothing beyond the ends
    QCOMPARE(label(), QString("Frame 1 of 4"));
    click(Action::Last);
    QCOMPARE(frames()->currentFrame(), 3);
    QCOMPARE(label(), QString("Frame 4 of 4"));
}

void tst_AnimationEditorPlayback::framesOutOfRangeAreIgnored()
{
    QSignalSpy shown(frames(), &FrameEditorWidget::currentFrameChanged);

    m_editor->setCurrentFrame(-1);
    m_editor->setCurrentFrame(2);
    m_editor->setCurrentFrame(0);

    QCOMPARE(shown.count(), 0);
    m_editor->setCurrentFrame(1);
    QCOMPARE(shown.count(), 1);
    QCOMPARE(m_editor->currentFrame(), 1);
}

void tst_AnimationEditorPlayback::addAppendsAFrameAndShowsIt()
{
    QSignalSpy contents(m_set->block, &Animation::contentChanged);

    click(Action::Add);

    QCOMPARE(m_set->block->frameCount(), 3);
    QCOMPARE(contents.count(), 1);
    QCOMPARE(m_editor->currentFrame(), 2);
    QCOMPARE(frames()->currentFrame(), 2);
    QCOMPARE(label(), QString("Frame 3 of 3"));
}

void tst_AnimationEditorPlayback::deleteShowsTheFrameBefore_data()
{
    QTest::addColumn<int>("deleted");
    QTest::addColumn<int>("shown");
    QTest::addColumn<QString>("text");
    QTest::newRow("the first") << 0 << 0 << QString("Frame 1 of 3");
    QTest::newRow("the second") << 1 << 0 << QString("Frame 1 of 3");
    QTest::newRow("the third") << 2 << 1 << QString("Frame 2 of 3");
    QTest::newRow("the last") << 3 << 2 << QString("Frame 3 of 3");
}

void tst_AnimationEditorPlayback::deleteShowsTheFrameBefore()
{
    QFETCH(int, deleted);
    QFETCH(int, shown);
    QFETCH(QString, text);
    addFrames(2);
    const QUuid id = m_set->block->frame(deleted)->id();
    m_editor->setCurrentFrame(deleted);

    click(Action::Delete);

    QCOMPARE(m_set->block->frameCount(), 3);
    for (const auto &frame : m_set->block->frames())
        QVERIFY(frame->id() != id);
    QCOMPARE(m_editor->currentFrame(), shown);
    QCOMPARE(frames()->currentFrame(), shown);
    QCOMPARE(label(), text);
}

void tst_AnimationEditorPlayback::deletingTheOnlyFrameLeavesABlankOne()
{
    click(Action::Delete);
    click(Action::Delete);

    QCOMPARE(m_set->block->frameCount(), 1);
    QCOMPARE(cell({0, 0}), AnimationFrame::Cell());
    QCOMPARE(m_editor->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_AnimationEditorPlayback::playPauseAndStopDriveTheTimer()
{
    const QTimer &timer = m_editor->timer();
    QCOMPARE(timer.parent(), nullptr);

    click(Action::Play);
    QVERIFY(timer.isActive());
    QCOMPARE(timer.timerType(), Qt::PreciseTimer);
    click(Action::Pause);
    QVERIFY(!timer.isActive());
    click(Action::Pause);
    QVERIFY(!timer.isActive());
    click(Action::Play);
    QVERIFY(timer.isActive());
    click(Action::Stop);
    QVERIFY(!timer.isActive());
    m_editor->play();
    m_editor->pause();
    QVERIFY(!timer.isActive());
    m_editor->play();
    m_editor->stop();
    QVERIFY(!timer.isActive());
}

void tst_AnimationEditorPlayback::theTimerPlaysTheFramesRoundAndRound()
{
    addFrames(1);
    QList<int> shown;
    connect(frames(), &FrameEditorWidget::currentFrameChanged, this,
            [&shown](int frame) { shown.append(frame); });

    click(Action::Play);
    QTRY_VERIFY(shown.size() >= 5);
    click(Action::Stop);

    QCOMPARE(shown.mid(0, 5), QList<int>({1, 2, 0, 1, 2}));
    QCOMPARE(label(), QString("Frame %1 of 3").arg(shown.last() + 1));
    QCOMPARE(m_editor->currentFrame(), shown.last());
}

void tst_AnimationEditorPlayback::theDelayChangesThePlayback()
{
    click(Action::Play);

    spin("Delay")->setValue(20);

    QVERIFY(m_editor->timer().isActive());
    QCOMPARE(m_editor->timer().interval(), 420);
}

void tst_AnimationEditorPlayback::loopAndPingPongDoNothing()
{
    const TileAnimation::State before = m_set->block->tileState();
    m_editor->setCurrentFrame(1);

    m_editor->mediaControlButtonClicked(Action::Loop, true);
    m_editor->mediaControlButtonClicked(Action::PingPong, true);

    QVERIFY(!m_editor->timer().isActive());
    QCOMPARE(m_editor->currentFrame(), 1);
    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorPlayback::playingMeetsFewerFrames()
{
    addFrames(2);
    m_editor->setCurrentFrame(3);

    for (int i = 0; i < 2; ++i)
        m_set->block->removeFrame(0);
    m_editor->animate();

    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 2"));
}

QTEST_MAIN(tst_AnimationEditorPlayback)
#include "tst_AnimationEditorPlayback.moc"
