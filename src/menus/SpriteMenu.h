#pragma once

#include "dialogs/SpriteDialog.h"
#include "editors/ImportBinaryDialog.h"
#include "editors/ImportImageDialog.h"

#include <QMenu>
#include <QPointer>
#include <QUuid>

class PaletteSelectorDialog;
class Project;
class QActionGroup;
class QFileDialog;
class SpriteBank;

/// Makes and imports sprite banks, and offers everything about the active one.
class SpriteMenu : public QMenu
{
    Q_OBJECT

public:
    using ImportActions = SpriteEditor::ImportBinaryDialog::ImportActions;

    explicit SpriteMenu(QWidget *parent = nullptr);

    /// The menu is on only with a project; the items about a bank are off then.
    void setProject(const QPointer<Project> &project);

    QPointer<SpriteBank> spriteBank() const { return m_bank; }
    void setSpriteBank(const QPointer<SpriteBank> &sprites) { m_bank = sprites; }
    /// The items that need an active bank.
    void setSpriteActionsEnabled(bool enabled);

signals:
    void create(SpriteDialog::CreateOptions options, QString name, QUuid paletteId);
    void import(QString file, QString name, QUuid paletteId);
    void swapPalette(QUuid id);

public slots:
    void displayExportFileDialog();
    void displayCreateDialog();
    void displayImportDialog();
    void displaySwapPaletteDialog();
    /// Writes the active bank to the file chosen in the export dialog. A failure is logged.
    void exportFileSelected();
    /// Asks how to import the file chosen in the import dialog, in the way of its suffix.
    void importFileSelected();
    /// Forgets the active bank and turns its items off if it is @p sprites.
    void removeSpriteBank(QPointer<SpriteBank> sprites);
    /// Imports the file of the raw dialog. A new bank becomes the active one.
    void importBinaryData(SpriteEditor::ImportBinaryDialog::ImportActions flags, QUuid paletteId);
    void importImage(SpriteEditor::ImportImageDialog::ImportActions actions, QUuid paletteId);

private:
    void displayBinaryDialog(const QString &fileName);
    void displayImageDialog(const QString &fileName);

    QPointer<Project> m_project;
    QPointer<SpriteBank> m_bank;
    QActionGroup *m_bankActions;
    // Made at their first use.
    QPointer<SpriteDialog> m_createDialog;
    QPointer<PaletteSelectorDialog> m_paletteDialog;
    QPointer<QFileDialog> m_importDialog;
    QPointer<QFileDialog> m_exportDialog;
    QPointer<SpriteEditor::ImportBinaryDialog> m_binaryDialog;
    QPointer<SpriteEditor::ImportImageDialog> m_imageDialog;
};
