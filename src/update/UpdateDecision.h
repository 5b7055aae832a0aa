#pragma once

#include "update/Release.h"

#include <QByteArray>
#include <QDate>

#include <optional>

/// The rules of the update check, without network, clock or widgets.
namespace Update {

/// Whether a check is due at start. @p lastCheck is an ISO date, and a text that is none makes it
/// due; @p interval is "daily", "monthly", or weekly for any other text. Both dates are UTC.
bool isCheckDue(const QString &lastCheck, const QString &interval, const QDate &today);

/// The channel that a version belongs to: "alpha", "beta" or "rc" behind a dash, else "stable".
QString channelOf(const QString &version);

/// This program's entry of a feed; nothing if the feed is damaged or has none.
std::optional<Release> releaseOf(const QByteArray &feed);

/// Whether @p release is to be offered to the user of @p build, who chose to skip
/// @p skippedVersion. Newer is what was released after the build date.
bool isOffer(const Release &release, const Build &build, const QString &skippedVersion);

} // namespace Update
