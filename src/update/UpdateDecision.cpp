#include "update/UpdateDecision.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

const QString Stable = QStringLiteral("stable");
constexpr qsizetype MaxText = 100; // letters

int minimumDays(const QString &interval)
{
    if (interval == QLatin1String("daily"))
        return 1;
    return interval == QLatin1String("monthly") ? 28 : 7;
}

/// What is shown and kept of a text that may hold anything: one line, not too long.
QString shortLine(const QString &text)
{
    QString line = text.left(MaxText);
    for (QChar &letter : line) {
        const auto category = letter.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            letter = QLatin1Char(' ');
    }
    if (!line.isEmpty() && line.back().isHighSurrogate())
        line.chop(1);
    return line;
}

} // namespace

bool Update::isCheckDue(const QString &lastCheck, const QString &interval, const QDate &today)
{
    const QDate last = QDate::fromString(lastCheck, Qt::ISODate);
    return !last.isValid() || last.daysTo(today) >= minimumDays(interval);
}

QString Update::channelOf(const QString &version)
{
    const auto dash = version.indexOf(QLatin1Char('-'));
    if (dash < 0)
        return Stable;

    const QString suffix = version.mid(dash + 1);
    for (const char *const name : {"alpha", "beta", "rc"}) {
        const QString channel = QString::fromLatin1(name);
        if (suffix.startsWith(channel))
            return channel;
    }
    return Stable;
}

std::optional<Update::Release> Update::releaseOf(const QByteArray &feed)
{
    const QJsonObject tools =
        QJsonDocument::fromJson(feed).object().value(QLatin1String("tools")).toObject();
    const auto entry = tools.constFind(QLatin1String("tessaril"));
    if (entry == tools.constEnd())
        return std::nullopt;

    const QJsonObject object = entry->toObject();
    const auto text = [&object](const char *key) {
        return object.value(QLatin1String(key)).toString();
    };
    return Release{shortLine(text("latest")), shortLine(text("channel")),
                   shortLine(text("released")), text("notes_url"), text("downloads_url")};
}

bool Update::isOffer(const Release &release, const Build &build, const QString &skippedVersion)
{
    if (release.version.isEmpty() || release.version == build.version)
        return false;
    if (!skippedVersion.isEmpty() && skippedVersion == release.version)
        return false;
    if (release.channel != channelOf(build.version) && release.channel != Stable)
        return false;
    return release.released > build.date;
}
