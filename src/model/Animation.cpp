#include "model/Animation.h"

Animation::Animation(bool isSprite, const QString &name, QObject *parent)
    : QObject(parent)
    , m_isSprite(isSprite)
    , m_id(QUuid::createUuid())
    , m_name(name)
{
}

AnimationFrame *Animation::addFrame()
{
    auto *frame = new AnimationFrame(this);
    frame->resize(m_size);
    m_frames.append(frame);
    connect(frame, &AnimationFrame::frameChanged, this, &Animation::frameEdited);
    return frame;
}

void Animation::removeFrame(int index)
{
    if (index < 0 || index >= m_frames.size())
        return;

    delete m_frames.takeAt(index);
    if (m_frames.isEmpty())
        addFrame();
    emit frameChanged(0);
    emit contentChanged();
}

void Animation::clearFrames()
{
    for (const auto &frame : std::as_const(m_frames))
        delete frame;
    m_frames.clear();
}

Animation::State Animation::state() const
{
    State state{m_size, m_delay, {}};
    for (const auto &frame : m_frames) {
        if (frame)
            state.frames.append({frame->id(), frame->cells()});
    }
    return state;
}

void Animation::restore(const State &state)
{
    clearFrames();
    m_size = state.size;
    m_delay = state.delay;
    for (const FrameState &record : state.frames) {
        AnimationFrame *frame = addFrame();
        frame->setId(record.id);
        frame->setCells(record.cells);
    }
    emit sizeChanged(m_size);
    emit frameChanged(0);
    emit contentChanged();
}

void Animation::copyFrom(const Animation *source, bool withCells)
{
    // By value first: the source may be this animation itself.
    const State state = source->state();
    clearFrames();
    m_size = state.size;
    for (const FrameState &record : state.frames) {
        AnimationFrame *frame = addFrame();
        if (!withCells)
            continue;
        frame->setId(record.id);
        frame->setCells(record.cells);
    }
}

void Animation::notifyContentChanged()
{
    emit contentChanged();
}

void Animation::setName(QString name)
{
    if (name == m_name)
        return;

    m_name = name;
    emit nameChanged(m_name);
}

void Animation::setWidth(int w)
{
    setSize({w, m_size.height()});
}

void Animation::setHeight(int h)
{
    setSize({m_size.width(), h});
}

void Animation::setSize(QSize size)
{
    if (size == m_size)
        return;

    m_size = size;
    for (const auto &frame : std::as_const(m_frames)) {
        if (frame)
            frame->resize(size);
    }
    emit sizeChanged(m_size);
}

void Animation::setDelay(int delay)
{
    m_delay = delay;
    emit delayChanged(m_delay);
}

void Animation::frameEdited()
{
    emit frameChanged(static_cast<int>(m_frames.indexOf(qobject_cast<AnimationFrame *>(sender()))));
}
