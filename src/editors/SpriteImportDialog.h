#pragma once

#include "dialogs/DialogBase.h"
#include "model/Palette.h"

#include <QList>
#include <QPointer>
#include <QStringList>
#include <QUuid>

class DocumentCombo;
class FileField;
class QCheckBox;
class QRadioButton;

namespace SpriteEditor {

/// What the two sprite import dialogs share: the file, whether it is appended, and the palette.
///
/// The palette can be chosen only for one file of a kind that the dialog reads, and only if a new
/// bank is made.
class SpriteImportDialog : public DialogBase
{
    Q_OBJECT

public:
    QString fileName() const;

public slots:
    /// Opens for a file. Appending needs an active bank, and an existing palette one of @p
    /// palettes.
    void show(QString fileName, bool hasBank, QList<QPointer<Palette>> palettes);
    void accept() override;

protected:
    /// Where the two dialogs differ.
    struct Kind
    {
        QString heading;
        QString newPalette;      ///< text of the button
        QString existingPalette; ///< text of the button
        QString filter;          ///< of the file dialog
        QStringList suffixes;    ///< lower-case, of the files it reads
    };

    SpriteImportDialog(const Kind &kind, QWidget *parent);

    bool isAppending() const;
    bool usesExistingPalette() const;

    /// Sends the derived dialog's accepted() with what was chosen.
    virtual void sendAccepted(const QUuid &paletteId) = 0;

private:
    void addRows(const Kind &kind);
    void updateControls();

    QStringList m_suffixes;
    FileField *m_file;
    QCheckBox *m_append;
    QRadioButton *m_newPalette;
    QRadioButton *m_existingPalette;
    DocumentCombo *m_palettes;
};

} // namespace SpriteEditor
