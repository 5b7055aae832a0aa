#pragma once

class BlockSelectorWindow;
class DocumentTabView;
class MapSpritesWindow;
class MenuBar;
class PaletteWindow;
class PreferencesDialog;
class ProjectWindow;
class SpriteWindow;
class TilePickerTool;
class TileWindow;

namespace MapEditor {
class ToolBar;
}

/// What of the window shows documents. The main window fills it and owns all that it names.
struct DocumentViews
{
    DocumentTabView *tabs = nullptr;
    ProjectWindow *projectWindow = nullptr;
    PaletteWindow *paletteWindow = nullptr;
    TileWindow *tileWindow = nullptr;
    SpriteWindow *spriteWindow = nullptr;
    TilePickerTool *tilePicker = nullptr;
    BlockSelectorWindow *blockSelector = nullptr;
    MapSpritesWindow *mapSprites = nullptr;
    MapEditor::ToolBar *mapToolBar = nullptr;
    MenuBar *menuBar = nullptr;
    PreferencesDialog *preferences = nullptr;
};
