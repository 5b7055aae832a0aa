#pragma once

#include <QObject>
#include <QRect>
#include <QUuid>

/// One block animation placed on a map. Delays count frames of the frame clock.
class AnimationProperties : public QObject
{
    Q_OBJECT

public:
    explicit AnimationProperties(QObject *parent = nullptr);

    QUuid id;             ///< of the TileAnimation
    QRect rect;           ///< cells covered on the map
    int initialDelay = 0; ///< wait before starting
    int repeatDelay = 0;  ///< wait between runs
    int startFrame = 0;   ///< first frame shown
};
