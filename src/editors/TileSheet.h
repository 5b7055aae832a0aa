#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

class CheckList;
class QCheckBox;
class QSpinBox;
class Tile;
class TileSet;

/// The form of a tile's attributes and value, which a game reads.
///
/// What the user changes goes straight into the tile; none of it is an undo step.
class TileSheet : public QWidget
{
    Q_OBJECT

public:
    explicit TileSheet(QWidget *parent = nullptr);

    /// Shows a tile of a set; without one the form is disabled.
    void setTile(const QPointer<TileSet> &tileSet, const QPointer<Tile> &tile);

public slots:
    /// Sets or clears the bit of the sending check box.
    void updateAttributes(bool state);
    /// Takes over the four edges; @p checked is the state of the whole list.
    void solidStateChanged(int checked);

private:
    void addAttribute(const QString &name, int attribute, const QString &toolTip);
    void setAttribute(int attribute, bool isSet);
    void fill();

    QPointer<TileSet> m_tileSet;
    QPointer<Tile> m_tile;
    CheckList *m_edges;
    QList<QCheckBox *> m_boxes;
    QSpinBox *m_value;
};
