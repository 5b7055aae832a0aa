#include "menus/PaletteMenu.h"

#include "dialogs/PaletteDialog.h"
#include "menus/MenuDialogs.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "uikit/PlainText.h"

#include <QFileDialog>
#include <QFileInfo>

PaletteMenu::PaletteMenu(QWidget *parent)
    : QMenu(tr("Palette"), parent)
{
    QAction *create = addAction(tr("New Palette"));
    create->setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_P);
    connect(create, &QAction::triggered, this, &PaletteMenu::showPaletteDialog);
    connect(addAction(tr("Import")), &QAction::triggered, this, &PaletteMenu::showImportDialog);

    addSeparator();

    m_nameAction = addAction(QString());
    m_nameAction->setEnabled(false); // a label
    m_exportAction = addAction(tr("Export"));
    connect(m_exportAction, &QAction::triggered, this, &PaletteMenu::showExportDialog);

    setProject(nullptr);
}

void PaletteMenu::setProject(const QPointer<Project> &project)
{
    m_project = project;
    setEnabled(!m_project.isNull());
    setPalette(QUuid());
}

void PaletteMenu::setPalette(const QUuid &id)
{
    disconnect(m_nameConnection);
    m_paletteId = id;
    if (const QPointer<Palette> active = palette())
        m_nameConnection = connect(active, &Palette::nameChanged, this, &PaletteMenu::showName);
    showName();
}

QPointer<Palette> PaletteMenu::palette() const
{
    return m_project ? m_project->palette(m_paletteId) : nullptr;
}

void PaletteMenu::showName()
{
    const QPointer<Palette> active = palette();
    m_nameAction->setText(active ? PlainText::label(active->name()) : tr("No Palette"));
    m_nameAction->setVisible(!active.isNull());
    m_exportAction->setEnabled(!active.isNull());
}

void PaletteMenu::showPaletteDialog()
{
    if (!m_project)
        return;
    if (!m_paletteDialog) {
        m_paletteDialog = new PaletteDialog(MenuDialogs::parentFor(this));
        connect(m_paletteDialog, &PaletteDialog::accepted, this, &PaletteMenu::createPalette);
    }
    m_paletteDialog->show(m_project->paletteNames());
}

void PaletteMenu::createPalette(CreateAction action, QString name)
{
    if (m_project)
        m_project->createPalette(action, name, m_paletteId);
}

void PaletteMenu::showImportDialog()
{
    if (!m_importDialog) {
        m_importDialog = MenuDialogs::makeFileDialog(
            this, {.title = tr("Import Palette"),
                   .filters = {tr("Palette (*.pal *.npl)"), tr("Images (*.png *.bmp)")}});
        connect(m_importDialog, &QFileDialog::accepted, this, &PaletteMenu::importAccepted);
    }
    m_importDialog->open();
}

void PaletteMenu::importAccepted()
{
    const std::optional<QString> file = MenuDialogs::singleFile(m_importDialog);
    if (!file || !m_project)
        return;

    const QPointer<Palette> imported =
        m_project->createPalette(CreateBlank, QFileInfo(*file).baseName());
    if (!imported->importData(*file))
        qWarning("Read error");
}

void PaletteMenu::showExportDialog()
{
    if (!m_exportDialog) {
        m_exportDialog =
            MenuDialogs::makeFileDialog(this, {.title = tr("Export Palette"),
                                               .filters = {tr("Palette (*.pal *.npl)")},
                                               .acceptMode = QFileDialog::AcceptSave,
                                               .defaultSuffix = QStringLiteral(".pal")});
        connect(m_exportDialog, &QFileDialog::accepted, this, &PaletteMenu::exportAccepted);
    }
    m_exportDialog->open();
}

void PaletteMenu::exportAccepted()
{
    const std::optional<QString> file = MenuDialogs::singleFile(m_exportDialog);
    const QPointer<Palette> active = palette();
    if (!file || !active)
        return;

    if (!active->exportData(*file))
        MenuDialogs::warnOfFailedExport(this);
}
