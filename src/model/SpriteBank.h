#pragma once

#include "model/Animation.h"
#include "model/Enums.h"

#include <QColor>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QUuid>

#include <functional>

class Palette;
class SpriteAnim;

/// A document: the sprites of one colour depth, bound to one palette, and their animations.
///
/// All sprites live in one indexed strip 16 pixels wide, sprite i in rows 16 * i to 16 * i + 15.
/// The bank never has less than one. Its mutators leave the two structure signals to their caller.
class SpriteBank : public QObject
{
    Q_OBJECT

public:
    static constexpr int SpriteSide = 16;            // pixels
    static constexpr int DefaultTransparency = 0xE3; // the Next's own

    /// An undo snapshot, by value.
    struct State
    {
        QImage image;
        QHash<QUuid, Animation::State> animations;

        /// Compares indices and colour tables, not looks.
        bool operator==(const State &other) const;
    };

    /// One blank sprite; @p parent is the project.
    explicit SpriteBank(Tessaril::Sprite depth, QObject *parent = nullptr);

    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    QString name() const { return m_name; }
    /// A bank has no signal for its name.
    void setName(const QString &name) { m_name = name; }
    Tessaril::Sprite depth() const { return m_depth; }
    /// The transparent palette index; a four-bit bank compares its low nibble.
    int transparency() const { return m_transparency; }
    void setTransparency(int index) { m_transparency = index; }
    /// Stored with the bank byte for byte; nothing reads them.
    QByteArray offsets() const { return m_offsets; }
    void setOffsets(const QByteArray &offsets) { m_offsets = offsets; }

    /// The strip.
    const QImage &image() const { return m_image; }
    /// Replaces the strip; sends nothing. @p strip is indexed, 16 wide and whole sprites high.
    void setStrip(const QImage &strip) { m_image = strip; }

    int count() const { return m_image.height() / SpriteSide; }
    /// Appends @p sprites blank ones at once and sends nothing, for imports that announce each one
    /// when it is filled.
    void grow(int sprites);

    QPointer<Palette> palette() const { return m_palette; }
    /// Binds a palette; a valid one gives the strip its colours and keeps them current.
    void setPalette(Palette *palette);

    /// A copy of sprite @p index with the strip's colours; a null image out of range.
    QImage sprite(int index) const;
    /// The sprite as a screen shows it, 32-bit with transparent pixels; a null image out of range.
    QImage spriteImage(int index, int paletteOffset, bool rotate, bool flip, bool mirror) const;

    const QHash<QUuid, QPointer<SpriteAnim>> &animations() const { return m_animations; }
    /// The animation of that id, or null.
    QPointer<SpriteAnim> animation(const QUuid &id) const { return m_animations.value(id); }
    /// A new animation of one frame with one cell of sprite 0. Sends animationsChanged().
    QPointer<SpriteAnim> createAnimation();
    /// Enters @p animation, a child of the bank, under its id and sends animationsChanged().
    void addAnimation(SpriteAnim *animation);
    /// Deletes the animation of that id and sends animationsChanged(); nothing if there is none.
    void removeAnimation(const QUuid &id);

    /// Cuts a picture file into sprites matched against the palette, and appends them. Sends
    /// imageChanged() for each, then countChanged(). A file that cannot be read changes nothing and
    /// is logged.
    void importImage(const QString &filename);

    /// Moves a sprite by adjacent swaps; the cells of all animations follow, and keep their look.
    /// Sends spriteSwapped() for each, imageChanged() with every write, and spriteMoved() last.
    /// Nothing if equal or out of range.
    void moveSprite(int from, int to);
    /// Sets the pixels of one sprite to 0 and sends imageChanged().
    void clearSprite(int index);

    State state() const;
    /// Puts a snapshot back; sends countChanged(), then restored().
    void restore(const State &state);

signals:
    void imageChanged(int index);
    void countChanged();
    void spriteSwapped(int first, int second);
    void spriteMoved(int from, int to);
    void spriteDeleted(int index);
    void structureAboutToChange();
    /// @p text is the title of the undo step.
    void structureChanged(QString text);
    void animationsChanged();
    void restored();

public slots:
    /// Copies the indices of a 16 by 16 image into a sprite and sends imageChanged(). Of a larger
    /// image the top left part is taken, a smaller one leaves the rest as it was. Nothing if the
    /// image is not indexed or the index is out of range.
    void setImage(int index, QImage image);
    /// Appends a blank sprite.
    void addSprite(bool emitSignal);
    void addSprite();
    /// Takes a sprite out and renumbers the cells of all animations. The last one is only cleared,
    /// and then nothing is sent.
    void deleteSprite(int index);
    /// Takes the whole colour table from the palette; the arguments are not used.
    void updateColour(int index, QColor colour, bool priority);

private:
    bool contains(int index) const;
    /// Whether the strip is one that has sprites: indexed and 16 wide.
    bool isStripValid() const;
    /// The strip without one sprite.
    QImage stripWithout(int index) const;
    /// Gives every cell of every animation the index that @p renumbered tells. Sends nothing.
    void renumberCells(const std::function<int(int sprite)> &renumbered);

    int m_transparency = DefaultTransparency;
    QUuid m_id;
    QString m_name;
    Tessaril::Sprite m_depth;
    QByteArray m_offsets;
    QImage m_image;
    QPointer<Palette> m_palette;
    QHash<QUuid, QPointer<SpriteAnim>> m_animations;
};
