#pragma once

#include "editors/SpriteImportDialog.h"

#include <QFlags>

namespace SpriteEditor {

/// Asks how to import raw sprites, 256 bytes each.
class ImportBinaryDialog : public SpriteImportDialog
{
    Q_OBJECT

public:
    enum ImportAction { Append = 1, CreatePalette = 2, UseExistingPalette = 4 };
    Q_DECLARE_FLAGS(ImportActions, ImportAction)
    Q_FLAG(ImportActions)

    explicit ImportBinaryDialog(QWidget *parent = nullptr);

signals:
    /// @p paletteId is null unless an existing palette was chosen.
    void accepted(SpriteEditor::ImportBinaryDialog::ImportActions flags, QUuid paletteId);

protected:
    void sendAccepted(const QUuid &paletteId) override;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ImportBinaryDialog::ImportActions)

} // namespace SpriteEditor
