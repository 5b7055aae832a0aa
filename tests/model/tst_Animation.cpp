#include "model/Animation.h"

#include <QSignalSpy>
#include <QTest>

namespace {

class PlainAnimation : public Animation
{
public:
    PlainAnimation()
        : Animation(false, QStringLiteral("plain"), nullptr)
    {
    }

    QImage thumbnail(QSize) const override { return {}; }
};

/// Writes down the signals of an animation in the order in which they arrive.
class SignalLog : public QObject
{
public:
    explicit SignalLog(const Animation *animation)
    {
        connect(animation, &Animation::nameChanged, this,
                [this](const QString &name) { lines << "name " + name; });
        connect(animation, &Animation::sizeChanged, this, [this](QSize size) {
            lines << QStringLiteral("size %1x%2").arg(size.width()).arg(size.height());
        });
        connect(animation, &Animation::frameChanged, this,
                [this](int index) { lines << "frame " + QString::number(index); });
        connect(animation, &Animation::contentChanged, this, [this] { lines << "content"; });
        connect(animation, &Animation::delayChanged, this,
                [this](int delay) { lines << "delay " + QString::number(delay); });
    }

    QStringList lines;
};

const AnimationFrame::Cells OneBlankCell{{AnimationFrame::Cell()}};

} // namespace

class tst_Animation : public QObject
{
    Q_OBJECT

private slots:
    void aNewAnimationIsOneCellWithoutDelay();
    void theSignalsComeFirstInTheMetaObject();
    void aFrameTakesTheSizeAndSendsNothing();
    void namesSendOnlyWhenTheyDiffer();
    void delaysAlwaysSend();
    void widthAndHeightKeepTheOther();
    void settingTheSameSizeSendsNothing();
    void growingKeepsCellsAndShrinkingLosesThem();
    void removingAFrameSendsFrameThenContent();
    void removingALaterFrameTellsTheFirstToo();
    void removingTheOnlyFrameLeavesABlankOneWithANewId();
    void removingOutOfRangeDoesNothing();
    void anEditedFrameTellsItsPosition();
    void aFrameThatIsNotListedTellsMinusOne();
    void frameOutOfRangeIsNull();
    void aStateIsACopyByValue();
    void restoringPutsBackIdsAndCellsInOrder();
    void restoringAnEmptyStateLeavesNoFrames();
    void restoredFramesTellTheirEdits();
    void copyingWithCellsKeepsIds();
    void copyingWithoutCellsMakesBlankFramesWithNewIds();
    void copyingFromItselfKeepsEverything();
    void clearingSendsNothing();
};

void tst_Animation::aNewAnimationIsOneCellWithoutDelay()
{
    const PlainAnimation animation;

    QCOMPARE(animation.size(), QSize(1, 1));
    QCOMPARE(animation.delay(), 0);
    QCOMPARE(animation.frameCount(), 0);
    QVERIFY(!animation.id().isNull());
    QVERIFY(animation.id() != PlainAnimation().id());
}

void tst_Animation::theSignalsComeFirstInTheMetaObject()
{
    const QMetaObject &meta = Animation::staticMetaObject;
    QByteArrayList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).methodSignature();

    QCOMPARE(names, (QByteArrayList{"nameChanged(QString)", "sizeChanged(QSize)",
                                    "frameChanged(int)", "contentChanged()", "delayChanged(int)",
                                    "setName(QString)", "setWidth(int)", "setHeight(int)",
                                    "setSize(QSize)", "setDelay(int)", "frameEdited()"}));
}

void tst_Animation::aFrameTakesTheSizeAndSendsNothing()
{
    PlainAnimation animation;
    animation.setSize({3, 2});
    const SignalLog log(&animation);

    const AnimationFrame *frame = animation.addFrame();

    const AnimationFrame::Cell zero;
    QCOMPARE(frame->cells(), (AnimationFrame::Cells{{zero, zero, zero}, {zero, zero, zero}}));
    QCOMPARE(frame->parent(), &animation);
    QCOMPARE(animation.frame(0), frame);
    QCOMPARE(animation.frameCount(), 1);
    QCOMPARE(log.lines, QStringList());
}

void tst_Animation::namesSendOnlyWhenTheyDiffer()
{
    PlainAnimation animation;
    const SignalLog log(&animation);

    animation.setName(QStringLiteral("plain"));
    animation.setName(QStringLiteral("walk"));
    animation.setName(QStringLiteral("walk"));

    QCOMPARE(animation.name(), QStringLiteral("walk"));
    QCOMPARE(log.lines, QStringList{"name walk"});
}

void tst_Animation::delaysAlwaysSend()
{
    PlainAnimation animation;
    const SignalLog log(&animation);

    animation.setDelay(3);
    animation.setDelay(3);

    QCOMPARE(animation.delay(), 3);
    QCOMPARE(log.lines, (QStringList{"delay 3", "delay 3"}));
}

void tst_Animation::widthAndHeightKeepTheOther()
{
    PlainAnimation animation;
    const SignalLog log(&animation);

    animation.setWidth(4);
    animation.setHeight(2);

    QCOMPARE(animation.size(), QSize(4, 2));
    QCOMPARE(log.lines, (QStringList{"size 4x1", "size 4x2"}));
}

void tst_Animation::settingTheSameSizeSendsNothing()
{
    PlainAnimation animation;
    animation.setSize({4, 2});
    const SignalLog log(&animation);

    animation.setSize({4, 2});
    animation.setWidth(4);
    animation.setHeight(2);

    QCOMPARE(log.lines, QStringList());
}

void tst_Animation::growingKeepsCellsAndShrinkingLosesThem()
{
    PlainAnimation animation;
    AnimationFrame *frame = animation.addFrame();
    frame->setCell({0, 0}, {.index = 5});

    animation.setSize({2, 1});
    QCOMPARE(frame->cells(), (AnimationFrame::Cells{{{.index = 5}, {}}}));
    frame->setCell({1, 0}, {.index = 6});
    animation.setSize({1, 1});
    animation.setSize({2, 1});

    QCOMPARE(frame->cells(), (AnimationFrame::Cells{{{.index = 5}, {}}}));
}

void tst_Animation::removingAFrameSendsFrameThenContent()
{
    PlainAnimation animation;
    const QPointer<AnimationFrame> first = animation.addFrame();
    const QPointer<AnimationFrame> second = animation.addFrame();
    const SignalLog log(&animation);

    animation.removeFrame(0);

    QVERIFY(first.isNull());
    QCOMPARE(animation.frames(), QList<QPointer<AnimationFrame>>{second});
    QCOMPARE(log.lines, (QStringList{"frame 0", "content"}));
}

void tst_Animation::removingALaterFrameTellsTheFirstToo()
{
    PlainAnimation animation;
    const QPointer<AnimationFrame> first = animation.addFrame();
    const QPointer<AnimationFrame> second = animation.addFrame();
    const SignalLog log(&animation);

    animation.removeFrame(1);

    QVERIFY(second.isNull());
    QCOMPARE(animation.frames(), QList<QPointer<AnimationFrame>>{first});
    QCOMPARE(log.lines, (QStringList{"frame 0", "content"}));
}

void tst_Animation::removingTheOnlyFrameLeavesABlankOneWithANewId()
{
    PlainAnimation animation;
    AnimationFrame *frame = animation.addFrame();
    frame->setCell({0, 0}, {.index = 5});
    const QUuid id = frame->id();
    const SignalLog log(&animation);

    animation.removeFrame(0);

    QCOMPARE(animation.frameCount(), 1);
    QCOMPARE(animation.frame(0)->cells(), OneBlankCell);
    QVERIFY(animation.frame(0)->id() != id);
    QCOMPARE(log.lines, (QStringList{"frame 0", "content"}));
}

void tst_Animation::removingOutOfRangeDoesNothing()
{
    PlainAnimation animation;
    animation.addFrame();
    const SignalLog log(&animation);

    animation.removeFrame(-1);
    animation.removeFrame(1);

    QCOMPARE(animation.frameCount(), 1);
    QCOMPARE(log.lines, QStringList());
}

void tst_Animation::anEditedFrameTellsItsPosition()
{
    PlainAnimation animation;
    animation.addFrame();
    AnimationFrame *second = animation.addFrame();
    const SignalLog log(&animation);

    second->notifyChanged();

    QCOMPARE(log.lines, QStringList{"frame 1"});
}

void tst_Animation::aFrameThatIsNotListedTellsMinusOne()
{
    PlainAnimation animation;
    animation.addFrame();
    AnimationFrame stranger;
    connect(&stranger, &AnimationFrame::frameChanged, &animation, &Animation::frameEdited);
    const SignalLog log(&animation);

    stranger.notifyChanged();
    animation.frameEdited();

    QCOMPARE(log.lines, (QStringList{"frame -1", "frame -1"}));
}

void tst_Animation::frameOutOfRangeIsNull()
{
    PlainAnimation animation;
    animation.addFrame();

    QVERIFY(animation.frame(-1).isNull());
    QVERIFY(animation.frame(1).isNull());
}

void tst_Animation::aStateIsACopyByValue()
{
    PlainAnimation animation;
    AnimationFrame *frame = animation.addFrame();
    frame->setCell({0, 0}, {.index = 5});
    animation.setDelay(2);

    const Animation::State state = animation.state();
    frame->setCell({0, 0}, {.index = 6});

    QCOMPARE(state.size, QSize(1, 1));
    QCOMPARE(state.delay, 2);
    QCOMPARE(state.frames.size(), 1);
    QCOMPARE(state.frames.first().id, frame->id());
    QCOMPARE(state.frames.first().cells, (AnimationFrame::Cells{{{.index = 5}}}));
    QVERIFY(!(state == animation.state()));
}

void tst_Animation::restoringPutsBackIdsAndCellsInOrder()
{
    PlainAnimation animation;
    animation.setSize({2, 1});
    animation.addFrame()->setCell({1, 0}, {.index = 5});
    animation.addFrame()->setCell({0, 0}, {.index = 6});
    animation.setDelay(4);
    const Animation::State state = animation.state();
    animation.setSize({1, 1});
    animation.setDelay(0);
    animation.removeFrame(0);
    const QPointer<AnimationFrame> left = animation.frame(0);
    const SignalLog log(&animation);

    animation.restore(state);

    QVERIFY(left.isNull());
    QCOMPARE(animation.size(), QSize(2, 1));
    QCOMPARE(animation.delay(), 4);
    QCOMPARE(animation.frame(0)->cell({1, 0}).index, 5);
    QVERIFY(animation.state() == state);
    QCOMPARE(log.lines, (QStringList{"size 2x1", "frame 0", "content"}));
}

void tst_Animation::restoringAnEmptyStateLeavesNoFrames()
{
    PlainAnimation animation;
    animation.setSize({2, 2});
    animation.addFrame();

    animation.restore({});

    QCOMPARE(animation.frameCount(), 0);
    QCOMPARE(animation.size(), QSize(1, 1));
}

void tst_Animation::restoredFramesTellTheirEdits()
{
    PlainAnimation animation;
    animation.addFrame();
    animation.addFrame();
    animation.restore(animation.state());
    const SignalLog log(&animation);

    animation.frame(1)->notifyChanged();

    QCOMPARE(log.lines, QStringList{"frame 1"});
}

void tst_Animation::copyingWithCellsKeepsIds()
{
    PlainAnimation source;
    source.setSize({2, 1});
    source.setDelay(7);
    source.addFrame()->setCell({1, 0}, {.index = 5});
    PlainAnimation copy;
    copy.setDelay(1);
    const QPointer<AnimationFrame> old = copy.addFrame();
    const SignalLog log(&copy);

    copy.copyFrom(&source, true);

    QVERIFY(old.isNull());
    QCOMPARE(copy.size(), QSize(2, 1));
    QCOMPARE(copy.delay(), 1);
    QVERIFY(copy.state().frames == source.state().frames);
    QCOMPARE(log.lines, QStringList());
}

void tst_Animation::copyingWithoutCellsMakesBlankFramesWithNewIds()
{
    PlainAnimation source;
    source.addFrame()->setCell({0, 0}, {.index = 5});
    source.addFrame();
    PlainAnimation copy;

    copy.copyFrom(&source, false);

    QCOMPARE(copy.frameCount(), 2);
    QCOMPARE(copy.frame(0)->cells(), OneBlankCell);
    QVERIFY(copy.frame(0)->id() != source.frame(0)->id());
}

void tst_Animation::copyingFromItselfKeepsEverything()
{
    PlainAnimation animation;
    animation.addFrame()->setCell({0, 0}, {.index = 5});
    const Animation::State state = animation.state();

    animation.copyFrom(&animation, true);

    QVERIFY(animation.state() == state);
}

void tst_Animation::clearingSendsNothing()
{
    PlainAnimation animation;
    const QPointer<AnimationFrame> frame = animation.addFrame();
    const SignalLog log(&animation);

    animation.clearFrames();

    QVERIFY(frame.isNull());
    QCOMPARE(animation.frameCount(), 0);
    QCOMPARE(log.lines, QStringList());
}

QTEST_GUILESS_MAIN(tst_Animation)
#include "tst_Animation.moc"
