#pragma once

#include "model/SpriteBank.h"

#include <QStringList>

/// The signals of a sprite bank in the order in which they came, each as "name arguments".
class SpriteBankLog : public QObject
{
public:
    /// Listens to @p bank until one of the two dies.
    explicit SpriteBankLog(SpriteBank *bank)
    {
        connect(bank, &SpriteBank::imageChanged, this, [this](int i) { log("image %1", i); });
        connect(bank, &SpriteBank::countChanged, this, [this] { sent += "count"; });
        connect(bank, &SpriteBank::spriteSwapped, this,
                [this](int a, int b) { log("swapped %1 %2", a, b); });
        connect(bank, &SpriteBank::spriteMoved, this,
                [this](int a, int b) { log("moved %1 %2", a, b); });
        connect(bank, &SpriteBank::spriteDeleted, this, [this](int i) { log("deleted %1", i); });
        connect(bank, &SpriteBank::structureAboutToChange, this, [this] { sent += "about"; });
        connect(bank, &SpriteBank::structureChanged, this,
                [this](const QString &text) { sent += "structure " + text; });
        connect(bank, &SpriteBank::animationsChanged, this, [this] { sent += "animations"; });
        connect(bank, &SpriteBank::restored, this, [this] { sent += "restored"; });
    }

    QStringList sent;

private:
    void log(const char *pattern, int number) { sent += QString(pattern).arg(number); }
    void log(const char *pattern, int a, int b) { sent += QString(pattern).arg(a).arg(b); }
};
