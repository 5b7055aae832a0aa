#pragma once

#include <QList>
#include <QString>

#include <functional>

/// One of the things after which the screen may have to show something else.
struct Change
{
    QString name;
    std::function<void()> make;
};

using Changes = QList<Change>;
