#include "editors/SpriteViewFixture.h"

#include <QSignalSpy>

#include <limits>

class tst_SpriteEditorPlayback : public QObject, private SpriteViewFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void selectingSetsTheInterval_data();
    void selectingSetsTheInterval();
    void theTransportStepsThroughFrames();
    void addAndDeleteChangeTheFrames();
    void deletingTheOnlyFrameLeavesABlankOne();
    void playPauseAndStopDriveTheTimer();
    void theTimerPlaysTheFramesRoundAndRound();
    void playingEndsWithoutAnimation();
    void transportNeedsAnAnimation();
    void addingStopsThePlayback();
    void theDelayChangesThePlayback();
    void playingMeetsFewerFrames();
    void selectingShowsTheFirstFrame();
};

void tst_SpriteEditorPlayback::selectingSetsTheInterval_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("milliseconds");

    QTest::newRow("no delay") << 0 << 20;
    QTest::newRow("one") << 1 << 40;
    QTest::newRow("two") << 2 << 60;
    QTest::newRow("longest") << 50 << 1020;
    QTest::newRow("of a damaged file")
        << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
    QTest::newRow("below nothing") << -7 << 20;
}

void tst_SpriteEditorPlayback::selectingSetsTheInterval()
{
    QFETCH(int, delay);
    QFETCH(int, milliseconds);
    m_project->animation->setDelay(delay);

    select(m_project->animation);

    QCOMPARE(timer()->interval(), milliseconds);
}

void tst_SpriteEditorPlayback::theTransportStepsThroughFrames()
{
    m_project->animation->addFrame();
    m_project->animation->addFrame();
    select(m_project->animation);

    QList<int> shown;
    QStringList labels;
    for (const Action action : {Action::Next, Action::Next, Action::Next, Action::Previous,
                                Action::First, Action::Previous, Action::Last}) {
        click(action);
        shown.append(frames()->currentFrame());
        labels.append(label().section(' ', 1, 1));
    }

    QCOMPARE(shown, QList<int>({1, 2, 2, 1, 0, 0, 2}));
    QCOMPARE(labels, QStringList({"2", "3", "3", "2", "1", "1", "3"}));
}

void tst_SpriteEditorPlayback::addAndDeleteChangeTheFrames()
{
    select(m_project->animation);
    QSignalSpy changed(m_project->animation, &Animation::contentChanged);

    click(Action::Add);
    click(Action::Add);
    QCOMPARE(m_project->animation->frameCount(), 3);
    QCOMPARE(m_project->animation->frame(2)->cells().first().size(), 4);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(frames()->currentFrame(), 2);
    QCOMPARE(label(), QString("Frame 3 of 3"));

    click(Action::Delete);
    QCOMPARE(m_project->animation->frameCount(), 2);
    QCOMPARE(frames()->currentFrame(), 1);
    QCOMPARE(label(), QString("Frame 2 of 2"));
    click(Action::First);
    click(Action::Delete);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_SpriteEditorPlayback::deletingTheOnlyFrameLeavesABlankOne()
{
    select(m_project->animation);
    const QUuid id = m_project->animation->frame(0)->id();

    click(Action::Delete);

    QCOMPARE(m_project->animation->frameCount(), 1);
    QVERIFY(m_project->animation->frame(0)->id() != id);
    QCOMPARE(m_project->animation->frame(0)->cell({3, 0}), AnimationFrame::Cell());
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_SpriteEditorPlayback::playPauseAndStopDriveTheTimer()
{
    select(m_project->animation);

    click(Action::Play);
    QVERIFY(timer()->isActive());
    click(Action::Pause);
    QVERIFY(!timer()->isActive());
    click(Action::Pause);
    QVERIFY(timer()->isActive());
    click(Action::Loop);
    QVERIFY(timer()->isActive());
    click(Action::Stop);
    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorPlayback::theTimerPlaysTheFramesRoundAndRound()
{
    m_project->animation->addFrame();
    m_project->animation->addFrame();
    select(m_project->animation);
    QSignalSpy shown(frames(), &FrameEditorWidget::currentFrameChanged);

    click(Action::Play);
    QCOMPARE(timer()->interval(), 20); // one tick for each frame
    QVERIFY(!timer()->isSingleShot());
    QTRY_VERIFY(shown.count() >= 5);
    click(Action::Stop);

    for (int i = 0; i < shown.count(); ++i)
        QCOMPARE(shown.at(i).at(0).toInt(), i % 3);
    const int last = (static_cast<int>(shown.count()) - 1) % 3;
    QCOMPARE(label(), QString("Frame %1 of 3").arg(last + 1));
}

void tst_SpriteEditorPlayback::playingEndsWithoutAnimation()
{
    select(m_project->animation);
    click(Action::Play);
    m_view->changeAnim(nullptr);
    QVERIFY(timer()->isActive());

    m_view->animate();

    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorPlayback::transportNeedsAnAnimation()
{
    for (int action = Action::First; action <= Action::PingPong; ++action)
        m_view->animButtonClicked(static_cast<Action>(action), false);

    QVERIFY(!timer()->isActive());
    QCOMPARE(m_project->animation->frameCount(), 1);
}

void tst_SpriteEditorPlayback::addingStopsThePlayback()
{
    select(m_project->animation);
    click(Action::Play);
    m_view->addAnimation();
    QVERIFY(!timer()->isActive());
    click(Action::Play);
    m_view->cloneAnimation(m_project->animation);
    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorPlayback::theDelayChangesThePlayback()
{
    select(m_project->animation);
    click(Action::Play);

    spin("Delay")->setValue(20);

    QVERIFY(timer()->isActive());
    QCOMPARE(timer()->interval(), 420);
}

void tst_SpriteEditorPlayback::playingMeetsFewerFrames()
{
    for (int i = 0; i < 3; ++i)
        m_project->animation->addFrame();
    select(m_project->animation);
    for (int i = 0; i < 3; ++i)
        m_view->animate(); // the fourth frame is next

    for (int i = 0; i < 2; ++i)
        m_project->animation->removeFrame(0);
    m_view->animate();
    QCOMPARE(frames()->currentFrame(), 1);
    QCOMPARE(label(), QString("Frame 2 of 2"));
    m_view->animate();
    QCOMPARE(frames()->currentFrame(), 0);
}

void tst_SpriteEditorPlayback::selectingShowsTheFirstFrame()
{
    m_project->animation->addFrame();
    SpriteAnim *other = m_project->sprites->createAnimation();
    other->addFrame();
    other->addFrame();
    select(m_project->animation);
    click(Action::Last);

    select(other);

    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 3"));
}

QTEST_MAIN(tst_SpriteEditorPlayback)
#include "tst_SpriteEditorPlayback.moc"
