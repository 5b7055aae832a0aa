#pragma once

#include "model/TileSet.h"

#include <QStringList>

/// The signals of a tile set in the order in which they came, each as "name argument".
class TileSetLog : public QObject
{
public:
    /// Listens to @p set until one of the two dies.
    explicit TileSetLog(TileSet *set)
    {
        connect(set, &TileSet::nameChanged, this, [this](const QString &n) { log("name", n); });
        connect(set, &TileSet::tileChanged, this, [this](int i) { log("changed", i); });
        connect(set, &TileSet::tileDeleted, this, [this](int i) { log("deleted", i); });
        connect(set, &TileSet::tileInserted, this, [this](int i) { log("inserted", i); });
        connect(set, &TileSet::tileSwapped, this, [this](int i) { log("swapped", i); });
        connect(set, &TileSet::structureAboutToChange, this, [this] { log("about", QString()); });
        connect(set, &TileSet::structureChanged, this,
                [this](const QString &t) { log("structure", t); });
        connect(set, &TileSet::restored, this, [this] { log("restored", QString()); });
    }

    QStringList sent;

private:
    void log(const QString &name, const QString &text) { sent += (name + ' ' + text).trimmed(); }
    void log(const QString &name, int number) { log(name, QString::number(number)); }
};
