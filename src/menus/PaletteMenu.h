#pragma once

#include "model/Enums.h"

#include <QMenu>
#include <QPointer>
#include <QUuid>

class Palette;
class PaletteDialog;
class Project;
class QFileDialog;

/// Makes, imports and exports palettes, and names the active one.
class PaletteMenu : public QMenu
{
    Q_OBJECT

public:
    explicit PaletteMenu(QWidget *parent = nullptr);

    /// The menu is on only with a project; no palette is active then.
    void setProject(const QPointer<Project> &project);

    QUuid paletteId() const { return m_paletteId; }
    /// The palette that is named, copied and exported; null or unknown for none.
    void setPalette(const QUuid &id);

public slots:
    void showPaletteDialog();
    void showImportDialog();
    void showExportDialog();
    void exportAccepted();
    /// Makes a blank palette named after the file, then reads the file into it. It stays blank, and
    /// the log tells it, if the file holds no palette.
    void importAccepted();
    /// A copy is one of the active palette.
    void createPalette(CreateAction action, QString name);

private:
    QPointer<Palette> palette() const;
    void showName();

    QPointer<Project> m_project;
    QUuid m_paletteId;
    QMetaObject::Connection m_nameConnection;
    QAction *m_nameAction;
    QAction *m_exportAction;
    // Made at their first use.
    QPointer<PaletteDialog> m_paletteDialog;
    QPointer<QFileDialog> m_importDialog;
    QPointer<QFileDialog> m_exportDialog;
};
