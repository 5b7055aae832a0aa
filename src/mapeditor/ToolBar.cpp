#include "mapeditor/ToolBar.h"

#include "uikit/ThemedIcon.h"
#include "uikit/UndoKeys.h"

#include <QAction>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

using namespace MapEditor;

namespace {

constexpr int IconSide = 24; // pixels

} // namespace

ToolBar::ToolBar(QWidget *parent)
    : QToolBar(parent)
{
    setObjectName(QStringLiteral("MapToolBar"));
    setWindowTitle(tr("Map"));
    setIconSize(QSize(IconSide, IconSide));
    setToolButtonStyle(Qt::ToolButtonIconOnly);

    m_tiles = addLayer(tr("Tiles"), ":/LayerTiles", tr("Show or hide the tile layer"));
    m_objects = addLayer(tr("Objects"), ":/LayerObjects", tr("Show or hide the object layer"));
    m_sprites = addLayer(tr("Sprites"), ":/LayerSprites", tr("Show or hide the sprite layer"));
    addSeparator();
    const QString viewportTip = tr("Size in cells of the viewport");
    addLabel(tr("Viewport"))->setToolTip(viewportTip);
    m_viewportWidth = addSpin(1, 1000, 40, tr("Viewport width"), viewportTip);
    addLabel(QStringLiteral("×"));
    m_viewportHeight = addSpin(1, 1000, 32, tr("Viewport height"), viewportTip);
    addSeparator();
    addLabel(tr("Background"));
    m_background = addSpin(-1, 1024, -1, tr("Background"),
                           tr("Tile index to be used as a background"), tr("None"));
    addLabel(tr("Transparency"));
    m_transparency =
        addSpin(-1, 15, -1, tr("Transparency"),
                tr("Sets the transparency index of the tile set (0-15) or off"), tr("Off"));
    addSeparator();
    addLabel(tr("Snap"));
    m_snap = addSpin(1, 16, 1, tr("Snap"), tr("Sets the snap to grid size"), tr("Off"));
    addSeparator();
    m_size = addLabel(QString());
    m_size->setToolTip(tr("Map size in tiles and bytes"));

    connect(m_tiles, &QAction::toggled, this, &ToolBar::mapVisibilityChanged);
    connect(m_objects, &QAction::toggled, this, &ToolBar::objectVisibilityChanged);
    connect(m_sprites, &QAction::toggled, this, &ToolBar::spriteVisibilityChanged);
    const auto sendViewport = [this] { emit viewPortChanged(viewport()); };
    connect(m_viewportWidth, &QSpinBox::valueChanged, this, sendViewport);
    connect(m_viewportHeight, &QSpinBox::valueChanged, this, sendViewport);
    connect(m_background, &QSpinBox::valueChanged, this, &ToolBar::backgroundTileIndexChanged);
    connect(m_transparency, &QSpinBox::valueChanged, this, &ToolBar::transparencyIndexChanged);
    connect(m_snap, &QSpinBox::valueChanged, this, &ToolBar::snapToValueChanged);
}

QAction *ToolBar::addLayer(const QString &text, const QString &icon, const QString &toolTip)
{
    QAction *const action = addAction(themedIcon(icon), text);
    action->setCheckable(true);
    action->setChecked(true);
    action->setToolTip(toolTip);
    return action;
}

QLabel *ToolBar::addLabel(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setContentsMargins(6, 0, 4, 0);
    addWidget(label);
    return label;
}

QSpinBox *ToolBar::addSpin(int minimum, int maximum, int value, const QString &name,
                           const QString &toolTip, const QString &special)
{
    auto *spin = new QSpinBox(this);
    UndoKeys::leaveToMenu(spin);
    spin->setRange(minimum, maximum);
    spin->setValue(value);
    spin->setSpecialValueText(special);
    spin->setAccessibleName(name);
    spin->setToolTip(toolTip);
    addWidget(spin);
    return spin;
}

QSize ToolBar::viewport() const
{
    return {m_viewportWidth->value(), m_viewportHeight->value()};
}

void ToolBar::setValues(const Values &values)
{
    const QSignalBlocker blocker(this);
    m_tiles->setChecked(values.tilesVisible);
    m_objects->setChecked(values.objectsVisible);
    m_sprites->setChecked(values.spritesVisible);
    m_viewportWidth->setValue(values.viewport.width());
    m_viewportHeight->setValue(values.viewport.height());
    m_background->setValue(values.backgroundTile);
    m_transparency->setValue(values.transparencyIndex);
    m_snap->setValue(values.snap);
    setSizeText(values.sizeText);
}

void ToolBar::setSizeText(const QString &text)
{
    m_size->setText(text);
}
