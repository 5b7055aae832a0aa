#pragma once

#include <QMetaType>
#include <QString>

namespace Update {

/// What the feed says of the newest release. The texts are the server's: show them as plain text.
struct Release
{
    QString version;
    QString channel;   ///< for example "stable" or "beta"
    QString released;  ///< ISO date
    QString notes;     ///< address of the release notes, may be empty
    QString downloads; ///< address of the download page, may be empty

    bool operator==(const Release &) const = default;
};

/// The running program, as the decision sees it.
struct Build
{
    QString version;
    QString date; ///< ISO date
};

} // namespace Update

Q_DECLARE_METATYPE(Update::Release)
