#pragma once

#include <QByteArray>
#include <QMap>

class Project;

/// What must hold of a project that a load has accepted, however odd its file was.
namespace ProjectCheck {

/// Saves and loads it, compares the two, works with what was loaded, and saves that too. Ends the
/// program if something differs.
void check(const Project &project);

/// Loads the entries into a project of its own; if that is accepted, checks it. A refusal must have
/// its words.
void load(const QMap<QString, QByteArray> &entries);

/// Gives a new project a scratch picture of one pixel: its own takes longer to save than all else.
void shrinkScratch(Project *project);

/// The entries of a small project that holds one document of each kind: one palette, two tiles, a
/// map of 3 by 2 cells, two sprites, an image, a block list.
QMap<QString, QByteArray> smallEntries();

} // namespace ProjectCheck
