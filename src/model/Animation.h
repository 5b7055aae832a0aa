#pragma once

#include "model/AnimationFrame.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QUuid>

/// A list of frames of one size, the base of sprite and tile animations. Sizes count cells.
class Animation : public QObject
{
    Q_OBJECT

public:
    struct FrameState
    {
        QUuid id;
        AnimationFrame::Cells cells;

        bool operator==(const FrameState &) const = default;
    };

    /// An undo snapshot, by value.
    struct State
    {
        QSize size{1, 1};
        int delay = 0;
        QList<FrameState> frames;

        bool operator==(const State &) const = default;
    };

    /// The picture of the first frame, scaled into @p size.
    virtual QImage thumbnail(QSize size) const = 0;

    bool isSprite() const { return m_isSprite; }
    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    QString name() const { return m_name; }
    QSize size() const { return m_size; }
    /// Frame clock setting: 0 is no delay, 1 is 25 frames a second, 2 is 12.5.
    int delay() const { return m_delay; }

    int frameCount() const { return static_cast<int>(m_frames.size()); }
    /// The frame at @p index, null out of range.
    QPointer<AnimationFrame> frame(int index) const { return m_frames.value(index); }
    const QList<QPointer<AnimationFrame>> &frames() const { return m_frames; }

    /// Appends a blank frame and returns it; the caller sends contentChanged().
    AnimationFrame *addFrame();
    /// Deletes a frame; the last one is replaced by a blank one. Sends frameChanged(0), then
    /// contentChanged(). Nothing out of range.
    void removeFrame(int index);
    /// Deletes all frames; sends nothing. For the loader, which adds its own.
    void clearFrames();

    State state() const;
    /// Puts size, delay and frames back; sends sizeChanged(), frameChanged(0), contentChanged().
    void restore(const State &state);
    /// Takes size and frame count from @p source, with its cells and frame ids or blank ones with
    /// new ids. The delay stays, and nothing is sent.
    void copyFrom(const Animation *source, bool withCells);

    /// Sends contentChanged().
    void notifyContentChanged();

signals:
    void nameChanged(QString name);
    void sizeChanged(QSize size);
    /// The frame at @p index changed; -1 if it is not one of ours.
    void frameChanged(int index);
    /// Frames came or went, or all of the animation changed.
    void contentChanged();
    void delayChanged(int delay);

public slots:
    void setName(QString name);
    void setWidth(int w);
    void setHeight(int h);
    /// Resizes every frame and sends sizeChanged(); nothing if equal.
    void setSize(QSize size);
    void setDelay(int delay);
    void frameEdited();

protected:
    Animation(bool isSprite, const QString &name, QObject *parent);

private:
    QList<QPointer<AnimationFrame>> m_frames;
    bool m_isSprite;
    QUuid m_id;
    QString m_name;
    QSize m_size{1, 1};
    int m_delay = 0;
};
