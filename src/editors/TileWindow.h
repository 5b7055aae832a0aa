#pragma once

#include "history/EditTarget.h"
#include "history/PixelEditCommand.h"
#include "uikit/DockWidget.h"

#include <QImage>
#include <QPointer>
#include <QUuid>

#include <functional>

class Canvas;
class ColourSelector;
class NumberRange;
class Palette;
class PaletteEditor;
class QSpinBox;
class QUndoStack;
class QVBoxLayout;
class Tile;
class TileSet;
class TileSheet;
class ToolPalette;

/// The dock in which one tile of a set is drawn and given its palette offset and attributes.
///
/// Tiles count from 1 here, as the user sees them, and so do palette offsets. The canvas shows a
/// tile's pixels in the bank of 16 colours of its offset; the tile keeps them without it.
class TileWindow : public DockWidget, public EditTarget
{
    Q_OBJECT

public:
    using StackFor = std::function<QUndoStack *(const QUuid &)>;

    explicit TileWindow(QWidget *parent = nullptr);

    /// Gives the undo stack of the tile set with an id; without it edits are not recorded.
    void setStackFor(const StackFor &stackFor) { m_stackFor = stackFor; }

    QPointer<TileSet> tileSet() const { return m_tileSet; }
    /// Null shows the placeholder. The number of the tile stays as far as the set has it.
    void setTileSet(const QPointer<TileSet> &tileSet);
    using QWidget::setPalette;
    void setPalette(const QPointer<Palette> &palette);
    /// The tile on display.
    int tileNumber() const;

    void cut() override;
    void copy() override;
    void paste() override;
    void selectAll() override;
    void selectNone() override;

signals:
    /// A tile set came where none was, or the other way round.
    void activeStateChanged(bool enabled);

public slots:
    /// Takes the canvas's picture over into the tile and sends its tileChanged() with the tile's
    /// number, which counts from 1.
    void imageChanged();
    /// Shows a tile, also if it is on display already.
    void setTileIndex(int index);
    /// Gives the tile another palette offset, which counts from 1.
    void paletteOffsetChanged(int offset);
    void foreColourChanged(int index);
    void backColourChanged(int index);
    /// The set has another number of tiles than before.
    void tileCountChanged(int index);

private:
    QWidget *makeContent();
    void addTools();
    void addFields(QVBoxLayout *layout);
    void addSections(QVBoxLayout *layout);
    void connectContent();
    void showTitle();

    Tile *shownTile() const;
    void setTile(int number);
    void showOffset(int bank);
    void refreshTile();
    void pushEdit(const QString &text, const QImage &before, const QImage &after,
                  PixelEditCommand::Kind kind);

    QPointer<TileSet> m_tileSet;
    StackFor m_stackFor;
    QImage m_shownPicture;    // the tile's, as last shown or written
    QImage m_recordedPicture; // the tile's, as of the last undo step
    bool m_isActive = false;
    bool m_isWriting = false;

    Canvas *m_canvas;
    ToolPalette *m_tools;
    ColourSelector *m_colours;
    NumberRange *m_tileRange;
    QSpinBox *m_offset;
    TileSheet *m_sheet;
    PaletteEditor *m_paletteEditor;
};
