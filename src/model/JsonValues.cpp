#include "model/JsonValues.h"

using namespace Qt::StringLiterals;

namespace JsonValues {

QUuid id(const QJsonObject &object, QLatin1String key)
{
    return QUuid::fromString(object.value(key).toString());
}

QUuid idOrNew(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).isString() ? id(object, key) : QUuid::createUuid();
}

int coordinate(const QJsonObject &object, QLatin1String key, int fallback)
{
    return std::clamp(object.value(key).toInt(fallback), -MaxCoordinate, MaxCoordinate);
}

void insertRect(QJsonObject &object, QRect rect)
{
    object.insert("x"_L1, rect.x());
    object.insert("y"_L1, rect.y());
    object.insert("width"_L1, rect.width());
    object.insert("height"_L1, rect.height());
}

QRect rect(const QJsonObject &object, QRect fallback)
{
    return {coordinate(object, "x"_L1, fallback.x()), coordinate(object, "y"_L1, fallback.y()),
            coordinate(object, "width"_L1, fallback.width()),
            coordinate(object, "height"_L1, fallback.height())};
}

} // namespace JsonValues
