#pragma once

#include "editors/SpriteSheet.h"
#include "uikit/Spoken.h"

#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QWidget>

class Palette;
class SpriteBank;

namespace SpriteEditor {

/// All sprites of a bank, to pick from, to move about and to drag into frames, with one more cell
/// behind the last that adds a sprite.
///
/// Sprites count from 0. A cell is a sprite's sixteen pixels times the magnification, in widget
/// pixels; the cells stand in rows, the block of them in the middle. The list reads the bank and
/// does not own it. It asks by its signals for every change but pasting.
class SpriteList : public QWidget, public Spoken
{
    Q_OBJECT

public:
    static constexpr int DefaultMagnification = 3;

    explicit SpriteList(QWidget *parent = nullptr);

    QPointer<SpriteBank> sprites() const { return m_sprites; }
    /// Null shows nothing. Forgets what was picked and hovered.
    void setSprites(const QPointer<SpriteBank> &sprites);

    int magnification() const { return m_magnification; }
    /// At least 1.
    void setMagnification(int magnification);

    int selectedIndex() const { return m_selectedIndex; }
    /// Marks a sprite; -1 for none. Emits nothing.
    void setSelectedIndex(int index);
    int hoverIndex() const { return m_hoverIndex; }
    int dropIndex() const { return m_dropIndex; }

    int columns() const;
    /// The cell at a position, the one that adds a sprite included; -1 between and beyond them.
    int indexAt(QPoint position) const;
    QRect cellRect(int index) const;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// The selected sprite, counted from 1.
    QString spokenValue() const override;

public slots:
    /// Puts the sprite under the latest press on the clipboard.
    void copyImage();
    /// Writes the clipboard's picture over that sprite as one undo step: the indices of a copy made
    /// here or on a canvas, the nearest colours of any other picture.
    void pasteImage();
    /// Draws all sprites anew and makes room for them.
    void refresh();

signals:
    /// The user has picked a sprite.
    void indexChanged(int index);
    void copySprite(int source, int dest);
    void moveSprite(int source, int dest);
    void addSprite();
    void deleteRequested(int index);
    void clearRequested(int index);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    int cellSide() const;
    int count() const;
    bool contains(int index) const { return index >= 0 && index < count(); }
    int spriteAt(QPoint position) const;

    void makeContextMenu();
    void openContextMenu(QPoint globalPosition);
    void pick(int index);
    void updateCell(int index);
    void spriteChanged(int index);
    void followPalette();
    void setHoverIndex(int index);
    void setDropIndex(int index);
    void startDrag(int index);
    QImage clipboardPicture() const;
    void paintMarks(QPainter *painter) const;

    QPointer<SpriteBank> m_sprites;
    QPointer<Palette> m_palette; // whose colours are shown
    int m_magnification = DefaultMagnification;
    int m_selectedIndex = -1;
    int m_hoverIndex = -1;
    int m_dropIndex = -1; // under a drag
    QPoint m_pressPos;
    Qt::MouseButtons m_buttons = Qt::NoButton;
    QIcon m_addIcon;
    QMenu m_contextMenu;
    SpriteSheet m_sheet;
};

} // namespace SpriteEditor
