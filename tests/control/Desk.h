#pragma once

#include "colour/PaletteWindow.h"
#include "control/DocumentController.h"
#include "control/ProjectController.h"
#include "dialogs/PreferencesDialog.h"
#include "editors/SpriteWindow.h"
#include "editors/TilePickerTool.h"
#include "editors/TileWindow.h"
#include "mapeditor/BlockSelectorWindow.h"
#include "mapeditor/MapSpritesWindow.h"
#include "mapeditor/ToolBar.h"
#include "menus/MenuBar.h"
#include "tree/ProjectWindow.h"

#include <QMainWindow>

/// The views without the window around them, and the controller between.
struct Desk
{
    QMainWindow window;
    ProjectWindow projectWindow;
    PaletteWindow paletteWindow;
    TileWindow tileWindow;
    SpriteWindow spriteWindow;
    TilePickerTool tilePicker;
    BlockSelectorWindow blockSelector;
    MapSpritesWindow mapSprites;
    MapEditor::ToolBar mapToolBar;
    DocumentTabView tabs;
    MenuBar menuBar;
    PreferencesDialog preferences;
    ProjectController control{&window, menuBar.fileMenu()};
    DocumentController documents{{.tabs = &tabs,
                                  .projectWindow = &projectWindow,
                                  .paletteWindow = &paletteWindow,
                                  .tileWindow = &tileWindow,
                                  .spriteWindow = &spriteWindow,
                                  .tilePicker = &tilePicker,
                                  .blockSelector = &blockSelector,
                                  .mapSprites = &mapSprites,
                                  .mapToolBar = &mapToolBar,
                                  .menuBar = &menuBar,
                                  .preferences = &preferences},
                                 &control,
                                 nullptr};
};
