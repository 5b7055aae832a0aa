#pragma once

#include "model/Enums.h"

#include <QMenu>
#include <QPointer>
#include <QUuid>

class ImageDialog;
class Project;

/// Makes full-screen pictures.
class ImageMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ImageMenu(QWidget *parent = nullptr);

    /// The menu is on only with a project.
    void setProject(const QPointer<Project> &project);

public slots:
    /// @p id is that of a palette, or one of PaletteChoice, whose new palette then bears the
    /// picture's name.
    void createImage(QString name, Tessaril::ImageMode mode, QUuid id);

private:
    void displayImageDialog();

    QPointer<Project> m_project;
    QPointer<ImageDialog> m_imageDialog; // made at its first use
};
