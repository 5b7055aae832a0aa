#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QUuid>

class TileAnimation;
class TileSet;

/// A document: the block list, a set of tile animations over one tile set.
class MapObjects : public QObject
{
    Q_OBJECT

public:
    /// Named "Empty"; @p parent is the project.
    explicit MapObjects(QObject *parent = nullptr);

    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    QString name() const { return m_name; }
    QPointer<TileSet> tileSet() const { return m_tileSet; }

    const QHash<QUuid, QPointer<TileAnimation>> &animations() const { return m_animations; }
    /// The animation of that id, or null.
    QPointer<TileAnimation> animation(const QUuid &id) const { return m_animations.value(id); }
    /// Enters @p animation, a child of the list, under its id and sends animationsChanged().
    void addAnimation(TileAnimation *animation);
    /// Deletes the animation of that id and sends animationsChanged(); nothing if there is none.
    void removeAnimation(const QUuid &id);

signals:
    void nameChanged(QString name);
    void animationsChanged();

public slots:
    /// A new animation without frames and tile set; the caller adds them. Sends
    /// animationsChanged().
    QPointer<TileAnimation> createTileAnimation(QString name);
    void setName(QString name);
    /// Binds a set and enters the list there. What an earlier set holds stays.
    void setTileSet(QPointer<TileSet> tiles);
    /// Swaps two tile indices in every cell of every frame; sends nothing.
    void swapTiles(int first, int second);

private:
    QUuid m_id;
    QString m_name;
    QPointer<TileSet> m_tileSet;
    QHash<QUuid, QPointer<TileAnimation>> m_animations;
};
