#include "menus/ImageMenu.h"

#include "dialogs/ImageDialog.h"
#include "dialogs/PaletteChoice.h"
#include "menus/MenuDialogs.h"
#include "model/Palette.h"
#include "model/Project.h"

ImageMenu::ImageMenu(QWidget *parent)
    : QMenu(tr("Image"), parent)
{
    connect(addAction(tr("New Image")), &QAction::triggered, this, &ImageMenu::displayImageDialog);
    setProject(nullptr);
}

void ImageMenu::setProject(const QPointer<Project> &project)
{
    m_project = project;
    setEnabled(!m_project.isNull());
}

void ImageMenu::displayImageDialog()
{
    if (!m_project)
        return;
    if (!m_imageDialog) {
        m_imageDialog = new ImageDialog(MenuDialogs::parentFor(this));
        connect(m_imageDialog, &ImageDialog::accepted, this, &ImageMenu::createImage);
    }
    m_imageDialog->show(m_project->palettes());
}

void ImageMenu::createImage(QString name, Tessaril::ImageMode mode, QUuid id)
{
    if (!m_project)
        return;

    if (id == PaletteChoice::NewBlank)
        id = m_project->createPalette(CreateBlank, name)->id();
    else if (id == PaletteChoice::NewDefault)
        id = m_project->createPalette(CreateDefault, name)->id();
    m_project->createImage(mode, name, id);
}
