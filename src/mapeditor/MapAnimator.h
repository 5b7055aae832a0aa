#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QTimer>

class AnimationFrame;
class Map;
class TileAnimation;

namespace MapEditor {

/// The frame clock of one map view: plays placed blocks by writing their frames into the object
/// layer, beside undo. Placed sprites only read ticks() when they are painted.
class MapAnimator : public QObject
{
    Q_OBJECT

public:
    static constexpr int TickMs = 20;

    explicit MapAnimator(QObject *parent = nullptr);

    void setMap(const QPointer<Map> &map) { m_map = map; }
    /// Not started at first.
    QTimer &timer() { return m_timer; }
    /// Since the view was made; never reset.
    qint64 ticks() const { return m_ticks; }

public slots:
    /// One step of the clock.
    void tick();

signals:
    /// Something on the map looks different, or may, for it has sprites.
    void framesAdvanced();

private:
    bool playBlocks();
    bool play(TileAnimation &animation, const QRect &rect);
    void writeFrame(const AnimationFrame &frame, const QRect &rect);

    QPointer<Map> m_map;
    QTimer m_timer;
    qint64 m_ticks = 0;
};

} // namespace MapEditor
