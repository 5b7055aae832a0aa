#pragma once

#include "editors/SpriteImportDialog.h"

#include <QFlags>

namespace SpriteEditor {

/// Asks how to import a picture of sprites.
class ImportImageDialog : public SpriteImportDialog
{
    Q_OBJECT

public:
    enum ImportAction { Append = 1, ImagePalette = 2, ProjectPalette = 4 };
    Q_DECLARE_FLAGS(ImportActions, ImportAction)
    Q_FLAG(ImportActions)

    explicit ImportImageDialog(QWidget *parent = nullptr);

signals:
    /// @p paletteId is null unless an existing palette was chosen.
    void accepted(SpriteEditor::ImportImageDialog::ImportActions append, QUuid paletteId);

protected:
    void sendAccepted(const QUuid &paletteId) override;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ImportImageDialog::ImportActions)

} // namespace SpriteEditor
