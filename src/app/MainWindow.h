#pragma once

#include "app/AppState.h"
#include "app/LayoutController.h"
#include "colour/PaletteWindow.h"
#include "control/DocumentController.h"
#include "control/DocumentTabView.h"
#include "control/ProjectActions.h"
#include "control/ProjectController.h"
#include "dialogs/MessageDialog.h"
#include "dialogs/PreferencesDialog.h"
#include "dialogs/TileAnimationDialog.h"
#include "editors/SpriteWindow.h"
#include "editors/TilePickerTool.h"
#include "editors/TileWindow.h"
#include "mapeditor/BlockSelectorWindow.h"
#include "mapeditor/MapSpritesWindow.h"
#include "mapeditor/ToolBar.h"
#include "menus/MenuBar.h"
#include "tree/ProjectWindow.h"
#include "uikit/ReadableColours.h"
#include "update/UpdateController.h"
#include "update/UpdateDialog.h"

#include <QLabel>
#include <QMainWindow>
#include <QUuid>

#include <memory>

/// The one top-level window, and the place where the program's objects are made and wired.
///
/// Every long-lived object is a member, in the order in which they need each other. State and
/// preferences are read at the first show and written when the window closes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    ProjectController *projectController() { return &m_projectController; }
    DocumentController *documentController() { return &m_documentController; }
    UpdateController *updates() { return &_updates; }
    const DocumentViews &views() const { return m_views; }

public slots:
    /// Shows @p name, the text of a failure, to the user.
    void showError(QString name);
    /// When a status text has ended, shows what is being edited.
    void messageChanged(QString message);
    /// The next or previous tile of the set on display, up to its ends.
    void nextTile();
    void previousTile();
    void changeSpritePalette(QUuid paletteId);
    void changeTilePalette(QUuid paletteId);
    /// Reads a character set into the tile set on display.
    void importZXFont(int index, int foreIndex, int backIndex, int offset, QString file);

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    DocumentViews makeViews();
    LayoutController::Docks makeDocks();

    void connectProjectControl();
    void connectActions();
    void setUpFrame();
    void makeFileToolBar();
    void connectMessages();
    void connectMenus();
    void connectProjectLife();
    void connectUpdates();

    void projectOpened(Project *project);
    /// Another project or none: the status bar names no longer what is gone.
    void followProject();
    void showTile(int step);
    void readState();
    void restoreDocks();
    void bringToScreen();
    void writeState();
    void persistPreferences();
    void checkForUpdates(UpdateController::Origin origin);
    void updateAvailable(const Update::Release &release, UpdateController::Origin origin);
    void upToDate(UpdateController::Origin origin);
    void updateCheckFailed(const QString &error, UpdateController::Origin origin);

    ReadableColours m_colours; // before the widgets, which would have to change
    ProjectWindow m_projectWindow;
    PaletteWindow m_paletteWindow;
    TileWindow m_tileWindow;
    SpriteWindow m_spriteWindow;
    TilePickerTool m_tilePicker;
    BlockSelectorWindow m_blockSelector;
    MapSpritesWindow m_mapSprites;
    MapEditor::ToolBar m_mapToolBar;
    DocumentTabView m_tabs;
    QLabel m_label;
    MenuBar m_menuBar;
    ProjectController m_projectController;
    AppState m_state;
    PreferencesDialog m_preferences;
    std::unique_ptr<TileAnimationDialog> m_tileAnimationDialog; // made when first asked for
    MessageDialog m_messageDialog;
    UpdateDialog m_updateDialog;
    UpdateController _updates;
    DocumentViews m_views;
    DocumentController m_documentController;
    ProjectActions m_projectActions;
    LayoutController m_layoutController;
    bool m_isFirstShow = true;
    QString m_identity; // the status text that tells what is being edited
};
