#include "editors/ImportImageDialog.h"

namespace SpriteEditor {

ImportImageDialog::ImportImageDialog(QWidget *parent)
    : SpriteImportDialog({.heading = tr("Import Sprite Image(s)"),
                          .newPalette = tr("Create a new palette from the image"),
                          .existingPalette = tr("Use an existing palette"),
                          .filter = tr("Images (*.png *.bmp)"),
                          .suffixes = {QStringLiteral("png"), QStringLiteral("bmp")}},
                         parent)
{
}

void ImportImageDialog::sendAccepted(const QUuid &paletteId)
{
    ImportActions actions = usesExistingPalette() ? ProjectPalette : ImagePalette;
    actions.setFlag(Append, isAppending());
    emit accepted(actions, paletteId);
}

} // namespace SpriteEditor
