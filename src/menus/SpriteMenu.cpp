#include "menus/SpriteMenu.h"

#include "dialogs/PaletteSelectorDialog.h"
#include "formats/FileBytes.h"
#include "formats/NextFormats.h"
#include "formats/SpriteImport.h"
#include "menus/MenuDialogs.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "uikit/WaitCursor.h"

#include <QActionGroup>
#include <QFileDialog>
#include <QFileInfo>

SpriteMenu::SpriteMenu(QWidget *parent)
    : QMenu(tr("Sprites"), parent)
    , m_bankActions(new QActionGroup(this))
{
    m_bankActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);

    QAction *create = addAction(tr("New"));
    create->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_B);
    connect(create, &QAction::triggered, this, &SpriteMenu::displayCreateDialog);
    connect(addAction(tr("Import")), &QAction::triggered, this, &SpriteMenu::displayImportDialog);

    addSeparator();

    QAction *swap = addAction(tr("Swap Palette"));
    connect(swap, &QAction::triggered, this, &SpriteMenu::displaySwapPaletteDialog);
    m_bankActions->addAction(swap);
    QAction *exportAction = addAction(tr("Export Data"));
    connect(exportAction, &QAction::triggered, this, &SpriteMenu::displayExportFileDialog);
    m_bankActions->addAction(exportAction);

    setProject(nullptr);
}

void SpriteMenu::setProject(const QPointer<Project> &project)
{
    m_project = project;
    setEnabled(!m_project.isNull());
    setSpriteActionsEnabled(false);
}

void SpriteMenu::setSpriteActionsEnabled(bool enabled)
{
    m_bankActions->setEnabled(enabled);
}

void SpriteMenu::removeSpriteBank(QPointer<SpriteBank> sprites)
{
    if (m_bank != sprites)
        return;
    m_bank.clear();
    setSpriteActionsEnabled(false);
}

void SpriteMenu::displayCreateDialog()
{
    if (!m_project)
        return;
    if (!m_createDialog) {
        m_createDialog = new SpriteDialog(MenuDialogs::parentFor(this));
        connect(m_createDialog, &SpriteDialog::accepted, this, &SpriteMenu::create);
    }
    m_createDialog->show(m_project->palettes());
}

void SpriteMenu::displaySwapPaletteDialog()
{
    if (!m_project)
        return;
    if (!m_paletteDialog) {
        m_paletteDialog = new PaletteSelectorDialog(MenuDialogs::parentFor(this));
        connect(m_paletteDialog, &PaletteSelectorDialog::accepted, this, &SpriteMenu::swapPalette);
    }
    const QPointer<Palette> used = m_bank ? m_bank->palette() : nullptr;
    m_paletteDialog->show(m_project->palettes(), used ? used->id() : QUuid());
}

void SpriteMenu::displayExportFileDialog()
{
    if (!m_exportDialog) {
        m_exportDialog =
            MenuDialogs::makeFileDialog(this, {.title = tr("Export Sprite Data"),
                                               .filters = {tr("Next Sprites (*.spr)")},
                                               .acceptMode = QFileDialog::AcceptSave,
                                               .defaultSuffix = QStringLiteral(".spr")});
        connect(m_exportDialog, &QFileDialog::accepted, this, &SpriteMenu::exportFileSelected);
    }
    m_exportDialog->open();
}

void SpriteMenu::exportFileSelected()
{
    const std::optional<QString> file = MenuDialogs::singleFile(m_exportDialog);
    if (!file || !m_bank)
        return;

    if (!FileBytes::write(*file, NextFormats::pixelBytes(m_bank->image())))
        qInfo("Failed to save data");
}

void SpriteMenu::displayImportDialog()
{
    if (!m_importDialog) {
        m_importDialog = MenuDialogs::makeFileDialog(
            this, {.title = tr("Import Sprite Data"),
                   .filters = {tr("Images (*.png *.bmp)"), tr("Next sprites (*.spr)")}});
        m_importDialog->setFileMode(QFileDialog::ExistingFile);
        connect(m_importDialog, &QFileDialog::accepted, this, &SpriteMenu::importFileSelected);
    }
    m_importDialog->open();
}

void SpriteMenu::importFileSelected()
{
    const std::optional<QString> file = MenuDialogs::singleFile(m_importDialog);
    if (!file || !m_project)
        return;

    if (QFileInfo(*file).suffix().toLower() == u"spr")
        displayBinaryDialog(*file);
    else
        displayImageDialog(*file);
}

void SpriteMenu::displayBinaryDialog(const QString &fileName)
{
    if (!m_binaryDialog) {
        m_binaryDialog = new SpriteEditor::ImportBinaryDialog(MenuDialogs::parentFor(this));
        connect(m_binaryDialog, &SpriteEditor::ImportBinaryDialog::accepted, this,
                &SpriteMenu::importBinaryData);
    }
    m_binaryDialog->show(fileName, !m_bank.isNull(), m_project->palettes());
}

void SpriteMenu::displayImageDialog(const QString &fileName)
{
    if (!m_imageDialog) {
        m_imageDialog = new SpriteEditor::ImportImageDialog(MenuDialogs::parentFor(this));
        connect(m_imageDialog, &SpriteEditor::ImportImageDialog::accepted, this,
                &SpriteMenu::importImage);
    }
    m_imageDialog->show(fileName, !m_bank.isNull(), m_project->palettes());
}

void SpriteMenu::importBinaryData(SpriteEditor::ImportBinaryDialog::ImportActions flags,
                                  QUuid paletteId)
{
    if (!m_project || !m_binaryDialog)
        return;

    const WaitCursor wait;
    const SpriteImport::Outcome outcome = SpriteImport::importRaw(
        m_project, m_bank, m_binaryDialog->fileName(), flags.toInt(), paletteId);
    if (outcome.created)
        setSpriteBank(outcome.bank);
}

void SpriteMenu::importImage(SpriteEditor::ImportImageDialog::ImportActions actions,
                             QUuid paletteId)
{
    if (!m_project || !m_imageDialog)
        return;

    const WaitCursor wait;
    SpriteImport::importSheet(m_project, m_bank, m_imageDialog->fileName(), actions.toInt(),
                              paletteId);
}
