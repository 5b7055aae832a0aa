#pragma once

#include <QSize>
#include <QToolBar>

class QAction;
class QLabel;
class QSpinBox;

namespace MapEditor {

/// The main window's tool bar of the active map view: layers, viewport, background, transparency,
/// snap and the map's size.
class ToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// What the bar shows of a view.
    struct Values
    {
        bool tilesVisible = true;
        bool objectsVisible = true;
        bool spritesVisible = true;
        QSize viewport{40, 32};     ///< cells
        int backgroundTile = -1;    ///< -1 for none
        int transparencyIndex = -1; ///< -1 for off
        int snap = 1;               ///< cells; 1 for off
        QString sizeText;
    };

    explicit ToolBar(QWidget *parent = nullptr);

    /// Shows @p values without sending a signal.
    void setValues(const Values &values);
    void setSizeText(const QString &text);

signals:
    void transparencyIndexChanged(int index);
    void snapToValueChanged(int size);
    void mapVisibilityChanged(bool visible);
    void objectVisibilityChanged(bool visible);
    void spriteVisibilityChanged(bool visible);
    void backgroundTileIndexChanged(int index);
    /// Both values, whichever of them changed.
    void viewPortChanged(QSize size);

private:
    QAction *addLayer(const QString &text, const QString &icon, const QString &toolTip);
    QLabel *addLabel(const QString &text);
    QSpinBox *addSpin(int minimum, int maximum, int value, const QString &name,
                      const QString &toolTip, const QString &special = {});
    QSize viewport() const;

    QAction *m_tiles;
    QAction *m_objects;
    QAction *m_sprites;
    QSpinBox *m_viewportWidth;
    QSpinBox *m_viewportHeight;
    QSpinBox *m_background;
    QSpinBox *m_transparency;
    QSpinBox *m_snap;
    QLabel *m_size;
};

} // namespace MapEditor
