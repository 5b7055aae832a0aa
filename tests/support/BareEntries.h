#pragma once

#include "TestProjects.h"

#include <QImage>

/// Archive entries of a single document that says no more than it has to, and of what has to be
/// beside it, for the tests of what a project makes of defaults and damage.
namespace BareEntries {

using TestProjects::Entries;

/// The id of the document; of a map, that of its tile set.
inline const QString Id = QStringLiteral("{11111111-2222-4333-8444-555555555555}");
/// The id of the map.
inline const QString OtherId = QStringLiteral("{99999999-2222-4333-8444-555555555555}");
inline const QString SetName = "tileset/" + Id + ".png";
inline const QString MapName = "tilemap/" + OtherId;

/// A tile set "Rock" of one tile, and a map "Cave" of 2 by 2 cells over it, with what the map is
/// given.
Entries map(const QJsonObject &map = {});

/// A bank of two sprites, with what it is given.
Entries bank(const QJsonObject &bank = {}, const QJsonArray &palettes = {});

/// A picture of 4 by 4 pixels, with what it is given.
Entries image(const QJsonObject &image = {}, const QJsonArray &palettes = {});

/// The JSON of a project with this document in the list @p key.
QJsonObject one(const QString &key, const QJsonObject &document);

/// Replaces a value in the JSON of the only document of a kind; all other entries stay.
Entries with(Entries entries, const QString &kind, const QString &key, const QJsonValue &value);

Entries without(Entries entries, const QString &name);
Entries replaced(Entries entries, const QString &name, const QByteArray &data);

/// A PNG of one colour in a format of Qt's.
QByteArray pngOf(QImage::Format format, QSize size);

} // namespace BareEntries
