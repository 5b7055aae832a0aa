#include "Mutators.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <functional>

namespace {

constexpr int MaxCopies = 40;
constexpr int Base64Size = 16; // characters from which a text is taken for packed bytes

QJsonValue hostile(QRandomGenerator *random)
{
    static const QJsonArray values{QJsonValue(),
                                   true,
                                   false,
                                   -1,
                                   0,
                                   1,
                                   2,
                                   3.5,
                                   1e99,
                                   -1e99,
                                   2147483647,
                                   -2147483648.0,
                                   4294967296.0,
                                   65536,
                                   255,
                                   16,
                                   "",
                                   "7",
                                   "%1%2",
                                   "../x",
                                   QStringLiteral("\u202e<b>x</b>"),
                                   "{00000000-0000-0000-0000-000000000000}",
                                   QJsonArray{},
                                   QJsonArray{QJsonObject{}},
                                   QJsonObject{},
                                   QJsonObject{{"id", 1}}};
    return values.at(random->bounded(int(values.size())));
}

int countOf(const QJsonValue &value)
{
    int count = 1;
    const QJsonObject object = value.toObject();
    for (const auto &member : object)
        count += countOf(member);
    const QJsonArray array = value.toArray();
    for (const auto &item : array)
        count += countOf(item);
    return count;
}

using Change = std::function<QJsonValue(const QJsonValue &)>;

/// @p value with its node number @p place, which is counted down, changed.
QJsonValue changedAt(const QJsonValue &value, int *place, const Change &change)
{
    if ((*place)-- == 0)
        return change(value);
    if (value.isArray()) {
        QJsonArray array = value.toArray();
        for (qsizetype i = 0; i < array.size() && *place >= 0; ++i)
            array[i] = changedAt(array.at(i), place, change);
        return array;
    }
    if (!value.isObject())
        return value;
    QJsonObject object = value.toObject();
    const QStringList keys = object.keys();
    for (const QString &key : keys) {
        if (*place < 0)
            break;
        const QJsonValue member = changedAt(object.value(key), place, change);
        if (member.isUndefined())
            object.remove(key);
        else
            object[key] = member;
    }
    return object;
}

QJsonValue valueAt(const QJsonValue &root, int place)
{
    QJsonValue found;
    changedAt(root, &place, [&found](const QJsonValue &value) { return found = value; });
    return found;
}

QJsonValue withOtherText(const QString &text, QRandomGenerator *random)
{
    const QByteArray utf8 = text.toUtf8();
    const auto packed =
        QByteArray::fromBase64Encoding(utf8, QByteArray::AbortOnBase64DecodingErrors);
    if (utf8.size() >= Base64Size && packed)
        return QString::fromLatin1(Mutators::bytes(*packed, random).toBase64());
    return QString::fromUtf8(Mutators::bytes(utf8, random));
}

QJsonValue withRepeats(QJsonArray array, QRandomGenerator *random)
{
    const QJsonValue item =
        array.isEmpty() ? hostile(random) : array.at(random->bounded(int(array.size())));
    for (int copies = random->bounded(1, MaxCopies); copies > 0; --copies)
        array.append(item);
    return array;
}

} // namespace

QByteArray Mutators::json(const QByteArray &text, QRandomGenerator *random)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        return {};

    const QJsonValue root = document.object();
    const int count = countOf(root);
    const auto change = [&](const QJsonValue &old) -> QJsonValue {
        const int choice = random->bounded(6);
        if (choice == 0)
            return QJsonValue::Undefined;
        if (choice == 1)
            return valueAt(root, random->bounded(count));
        if (choice == 2 && old.isArray())
            return withRepeats(old.toArray(), random);
        if (choice == 3 && old.isString())
            return withOtherText(old.toString(), random);
        if (choice == 4 && old.isDouble())
            return random->bounded(-70'000, 70'000);
        return hostile(random);
    };
    int place = random->bounded(std::min(1, count - 1), count);
    return QJsonDocument(changedAt(root, &place, change).toObject()).toJson(QJsonDocument::Compact);
}
