#pragma once

#include <QJsonObject>
#include <QRect>
#include <QUuid>

#include <algorithm>

/// The values of project.json that more than one kind of document writes and reads. A reader takes
/// a key that is absent or of another type for its default.
namespace JsonValues {

/// The coordinates that a reader lets through, so that sums of two never overflow.
inline constexpr int MaxCoordinate = 1 << 28;

/// The id under @p key, null if there is none.
QUuid id(const QJsonObject &object, QLatin1String key);
/// The id under @p key, a new one if there is none.
QUuid idOrNew(const QJsonObject &object, QLatin1String key);

/// The id of a document as text; that of the null id for a null pointer.
template <typename Document>
QString idText(const Document &document)
{
    return (document ? document->id() : QUuid()).toString();
}

/// The id of a document as text, empty for a null pointer.
template <typename Document>
QString idTextOrEmpty(const Document &document)
{
    return document ? document->id().toString() : QString();
}

/// An integer kept within MaxCoordinate on both sides of 0.
int coordinate(const QJsonObject &object, QLatin1String key, int fallback = 0);

/// An integer clamped into the range of an enumeration from 0 to @p last.
template <typename Enum>
Enum enumerator(const QJsonObject &object, QLatin1String key, Enum fallback, Enum last)
{
    const int value = object.value(key).toInt(static_cast<int>(fallback));
    return static_cast<Enum>(std::clamp(value, 0, static_cast<int>(last)));
}

/// "x", "y", "width" and "height".
void insertRect(QJsonObject &object, QRect rect);
QRect rect(const QJsonObject &object, QRect fallback);

} // namespace JsonValues
