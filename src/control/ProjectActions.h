#pragma once

#include "control/DocumentViews.h"
#include "dialogs/SpriteDialog.h"
#include "tree/ProjectTree.h"

#include <QObject>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QUuid>

class DocumentController;
class ImageSlicer;
class Map;
class MessageDialog;
class Project;
class ProjectController;
class QMessageBox;
class QProgressDialog;

/// Carries out the commands on the documents of the open project: make, copy, delete, and the two
/// imports that make several at once. Without a project all of them do nothing.
///
/// Refusals and failed imports are told in boxes of its own, which are opened without waiting.
class ProjectActions : public QObject
{
    Q_OBJECT

public:
    /// The views, the controllers and all that they name outlive the actions.
    ProjectActions(const DocumentViews &views, ProjectController *controller,
                   DocumentController *documents, QObject *parent = nullptr);

public slots:
    /// A null @p paletteId stands for a new blank palette of the same name.
    void createTileSet(QString name, QUuid paletteId, int tileCount, bool hiRes);
    /// @p size in cells.
    void createMap(QString name, QUuid tileSetId, QSize &size);
    void createBlocks(QString name, QUuid tileSetId);
    void createSprites(SpriteDialog::CreateOptions options, QString name, QUuid paletteId);
    /// Makes a map of @p size beside the map @p mapId and puts the cells of the clipboard into it.
    void createMapFromSelection(QUuid mapId, QSize size);
    /// Palettes, tile sets and maps; other kinds are only logged.
    void copyItem(ProjectTree::ProjectNode node, QUuid id);
    /// All kinds but images. A document in use stays, and the user is told.
    void deleteItem(ProjectTree::ProjectNode node, QUuid id);
    /// The four files of a level by the suffix of any of them, a picture by every other suffix.
    void importMap(QString filePath);

private:
    Project *project() const;
    void deletePalette(const QUuid &id);
    void deleteTileSet(const QUuid &id);
    void deleteBlocks(const QUuid &id);
    void deleteSpriteBank(const QUuid &id);
    void deleteMap(const QUuid &id);
    void showMap(const QPointer<Map> &map);
    void showTileSet(const QUuid &id);
    /// Closes the tab of a deleted document, drops its history and takes it out of the tree.
    void forget(ProjectTree::ProjectNode node, const QUuid &id);
    void removeFromTree(ProjectTree::ProjectNode node, const QUuid &id);
    void refuse(const QString &title, const QString &text);
    void importFourFiles(const QString &filePath);
    void importPicture(const QString &filePath);
    void showImportFailure(const QString &message);
    QWidget *window() const;

    DocumentViews m_views;
    ProjectController *m_controller;
    DocumentController *m_documents;
    MessageDialog *m_refusal;
    QMessageBox *m_importBox = nullptr; // of the window, made when there is something to tell
    bool m_importing = false;           // its progress lets events in
};
