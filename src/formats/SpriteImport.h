#pragma once

#include <QPointer>
#include <QString>
#include <QUuid>

class Project;
class SpriteBank;

/// The imports of sprites: from a sheet picture, cut in squares of 16 by 16, and from a raw file of
/// 256 bytes a sprite.
///
/// A new bank has 8-bit depth, the file's base name, and one blank sprite before it is filled.
namespace SpriteImport {

/// Where the sprites of a sheet go, as flags of the import dialog.
enum SheetAction { Append = 1, ImagePalette = 2, ProjectPalette = 4 };

/// Where raw sprites go, as flags of the import dialog.
enum RawAction { AppendRaw = 1, CreatePalette = 2, UseExistingPalette = 4 };

/// The bank into which the import went, null if there was nothing to do, and whether it was made.
struct Outcome
{
    QPointer<SpriteBank> bank;
    bool created = false;
};

/// Appends the sheet to @p current, or makes a bank in @p project: matched against the palette of
/// @p paletteId, or with a palette made of the sheet's own colours, where sprites that are equal,
/// mirrored or turned come once.
Outcome importSheet(Project *project, SpriteBank *current, const QString &fileName, int actions,
                    const QUuid &paletteId);

/// Appends the sprites of a raw file to @p current or to a new bank in @p project, which has the
/// palette of @p paletteId or a new default one. A partial sprite at the end is left out.
Outcome importRaw(Project *project, SpriteBank *current, const QString &fileName, int actions,
                  const QUuid &paletteId);

} // namespace SpriteImport
