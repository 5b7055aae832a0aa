#include "BareEntries.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>

using BareEntries::Entries;

Entries BareEntries::map(const QJsonObject &map)
{
    QJsonObject complete = map;
    complete["id"] = OtherId;
    complete["tileset"] = Id;
    complete["name"] = "Cave";
    Entries entries = TestProjects::jsonEntries(
        {{"tilesets", QJsonArray{QJsonObject{{"id", Id}, {"name", "Rock"}, {"count", 1}}}},
         {"maps", QJsonArray{complete}}});
    entries[SetName] = TestProjects::png({8, 8});
    entries[MapName] = TestProjects::tileMap(2, 2);
    return entries;
}

Entries BareEntries::bank(const QJsonObject &bank, const QJsonArray &palettes)
{
    QJsonObject complete = bank;
    complete["id"] = Id;
    Entries entries =
        TestProjects::jsonEntries({{"sprites", QJsonArray{complete}}, {"palettes", palettes}});
    entries["sprite/" + Id + ".png"] = TestProjects::png({16, 32});
    return entries;
}

Entries BareEntries::image(const QJsonObject &image, const QJsonArray &palettes)
{
    QJsonObject complete = image;
    complete["id"] = Id;
    Entries entries =
        TestProjects::jsonEntries({{"images", QJsonArray{complete}}, {"palettes", palettes}});
    entries["images/" + Id + ".png"] = TestProjects::png({4, 4});
    return entries;
}

QJsonObject BareEntries::one(const QString &key, const QJsonObject &document)
{
    return {{key, QJsonArray{document}}};
}

Entries BareEntries::with(Entries entries, const QString &kind, const QString &key,
                          const QJsonValue &value)
{
    QJsonObject root = TestProjects::json(entries);
    QJsonObject document = root.value(kind).toArray().at(0).toObject();
    document[key] = value;
    root[kind] = QJsonArray{document};
    entries["project.json"] = QJsonDocument(root).toJson();
    return entries;
}

Entries BareEntries::without(Entries entries, const QString &name)
{
    entries.remove(name);
    return entries;
}

Entries BareEntries::replaced(Entries entries, const QString &name, const QByteArray &data)
{
    entries[name] = data;
    return entries;
}

QByteArray BareEntries::pngOf(QImage::Format format, QSize size)
{
    QImage image(size, format);
    image.fill(0x40);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}
