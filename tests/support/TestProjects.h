#pragma once

#include "model/Project.h"

#include <QJsonObject>

/// Projects, their archive entries and their JSON for the tests of saving and loading.
namespace TestProjects {

using Entries = QMap<QString, QByteArray>;

/// Fills a project with every kind of document, and no field at its default.
void fill(Project *project);

/// Adds to what fill() makes a game of 512 tiles, 128 sprites, a level of 128 by 96 cells and a
/// title picture, all noise.
void fillLarge(Project *project);

/// The whole archive of what fill() makes.
Entries richEntries();

/// Reads from a map of entries as from an archive.
Project::EntryReader reader(const Entries &entries);

/// Entries of nothing but this JSON.
Entries jsonEntries(const QJsonObject &root);

/// The parsed "project.json".
QJsonObject json(const Entries &entries);

/// An 8-bit indexed PNG with pixel i being i, row by row, and a colourful palette.
QByteArray png(QSize size);

/// The bytes of a tile map entry: the size, then cells with rising tile index.
QByteArray tileMap(int height, int width);

} // namespace TestProjects
