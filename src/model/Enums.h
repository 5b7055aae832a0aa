#pragma once

#include <QObject>

/// The enumerations that cross signals and are read back by name.
namespace Tessaril {
Q_NAMESPACE

/// The colour depth of a sprite bank.
enum class Sprite { FourBit = 0, EightBit = 1 };
Q_ENUM_NS(Sprite)

/// The end of a grid at which a row or a column comes or goes: top or left, bottom or right.
enum class Position { Begin = 0, End = 1 };
Q_ENUM_NS(Position)

/// The screen modes of image documents.
enum class ImageMode {
    Layer2_256x192 = 0,
    Layer2_320x256 = 1,
    Layer2_640x256 = 2,
    LoRes_128x96 = 3
};
Q_ENUM_NS(ImageMode)

namespace Ui {
Q_NAMESPACE

/// Every button of the tool palettes. Those up to Pick are the mutually exclusive drawing modes;
/// _end_toggles is a marker and never a button; the rest are actions and independent toggles.
enum class ToolButton {
    Draw = 0,
    Line = 1,
    Rectangle = 2,
    RectangleFill = 3,
    Circle = 4,
    CircleFill = 5,
    Select = 6,
    Paste = 7,
    Fill = 8,
    Pick = 9,
    _end_toggles = 10,
    Resize = 11,
    Grid = 12,
    ZoomIn = 13,
    ZoomOut = 14,
    RotateCW = 15,
    RotateCCW = 16,
    MoveUp = 17,
    MoveDown = 18,
    MoveLeft = 19,
    MoveRight = 20,
    Cut = 21,
    Copy = 22,
    Crop = 23,
    Erase = 24,
    Flip = 25,
    Mirror = 26,
    PaintPalette = 27,
    Open = 28,
    Save = 29,
    AnimPlay = 30,
    AnimStop = 31,
    ExpandToFit = 32,
    PlaceAnim = 33,
    PlaceSprite = 34,
    ShrinkToFit = 35,
    ToggleViewport = 36
};
Q_ENUM_NS(ToolButton)

/// How the pixels of a canvas use the palette.
enum class ImageType { Ula = 0, UlaPlus = 1, Offset16 = 2, Full256 = 3, Undefined = 4 };
Q_ENUM_NS(ImageType)

enum class Direction {
    None = 0,
    North = 1,
    NorthEast = 2,
    East = 3,
    SouthEast = 4,
    South = 5,
    SouthWest = 6,
    West = 7,
    NorthWest = 8
};
Q_ENUM_NS(Direction)

/// Where a popover stands beside the widget that it belongs to.
enum class DialogPosition {
    TopCentre = 0,
    RightOf = 1,
    LeftOf = 2,
    Above = 3,
    Below = 4,
    Default = TopCentre
};
Q_ENUM_NS(DialogPosition)

} // namespace Ui
} // namespace Tessaril

/// How Project::createPalette() fills a new palette.
enum CreateAction {
    CreateEmpty = 0, ///< as CreateBlank
    CreateCopy = 1,
    CreateDefault = 2,
    CreateBlank = 3
};
