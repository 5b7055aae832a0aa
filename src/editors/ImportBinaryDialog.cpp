#include "editors/ImportBinaryDialog.h"

namespace SpriteEditor {

ImportBinaryDialog::ImportBinaryDialog(QWidget *parent)
    : SpriteImportDialog({.heading = tr("Import Sprite Data"),
                          .newPalette = tr("Create a new standard next palette"),
                          .existingPalette = tr("Use an existing palette from the project"),
                          .filter = tr("Sprite data (*.spr *.bin)"),
                          .suffixes = {QStringLiteral("spr"), QStringLiteral("bin")}},
                         parent)
{
}

void ImportBinaryDialog::sendAccepted(const QUuid &paletteId)
{
    ImportActions actions = usesExistingPalette() ? UseExistingPalette : CreatePalette;
    actions.setFlag(Append, isAppending());
    emit accepted(actions, paletteId);
}

} // namespace SpriteEditor
