#include "editors/TilePickerGrid.h"

#include "model/TileSet.h"
#include "uikit/CellPoint.h"

#include <QActionGroup>
#include <QApplication>
#include <QContextMenuEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace {

constexpr int TileSide = 8;   // pixels
constexpr int EmptyCells = 2; // the height without a set
constexpr int TileNumber = 1; // what is added to an index that counts from 0

} // namespace

TilePickerGrid::TilePickerGrid(QWidget *parent)
    : QWidget(parent)
    , m_zoomGroup(new QActionGroup(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAcceptDrops(true);
    setMouseTracking(true);
    // A click leaves the focus in the editor that draws with the tile.
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Tiles"));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    makeContextMenu();
    // A tile picked on a map is told through the grid's signal.
    connect(this, &TilePickerGrid::selectedIndexChanged, this, &TilePickerGrid::setSelectedIndex);
}

void TilePickerGrid::makeContextMenu()
{
    const auto zoomBy = [this](int step) { setMagnification(m_magnification + step); };
    connect(m_contextMenu.addAction(tr("Zoom In")), &QAction::triggered, this,
            [zoomBy] { zoomBy(1); });
    connect(m_contextMenu.addAction(tr("Zoom Out")), &QAction::triggered, this,
            [zoomBy] { zoomBy(-1); });
    m_contextMenu.addSeparator();
    m_zoomGroup->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const int magnification : {1, 2, 4, 8, 16}) {
        QAction *const zoom = m_contextMenu.addAction(tr("%1x").arg(magnification));
        zoom->setCheckable(true);
        zoom->setData(magnification);
        m_zoomGroup->addAction(zoom);
    }
    connect(m_zoomGroup, &QActionGroup::triggered, this,
            [this](const QAction *zoom) { setMagnification(zoom->data().toInt()); });
    m_zoomActions = m_contextMenu.actions();

    m_contextMenu.addSeparator();
    m_contextMenu.addAction(tr("Clear"), this, &TilePickerGrid::clearTile);
    m_contextMenu.addAction(tr("Copy Image"), this, [this] { m_copiedIndex = m_menuIndex; });
    m_contextMenu.addAction(tr("Paste Image"), this, &TilePickerGrid::pasteImage);
    m_contextMenu.addAction(tr("Insert"), this, &TilePickerGrid::insertTile);
    m_contextMenu.addAction(tr("Delete"), this, &TilePickerGrid::deleteTile);
}

void TilePickerGrid::setTileSet(const QPointer<TileSet> &tileSet)
{
    if (m_tileSet)
        m_tileSet->disconnect(this);
    m_tileSet = tileSet;
    if (m_tileSet) {
        connect(m_tileSet, &TileSet::tileChanged, this, &TilePickerGrid::tilesChanged);
        connect(m_tileSet, &TileSet::structureChanged, this, &TilePickerGrid::layOutAgain);
        connect(m_tileSet, &TileSet::restored, this, &TilePickerGrid::reset);
    }
    m_pictures.setTileSet(m_tileSet);
    reset();
}

void TilePickerGrid::reset()
{
    m_hoverIndex = -1;
    m_selectedIndex = -1;
    m_dropIndex = -1;
    m_menuIndex = -1;
    m_copiedIndex = -1;
    setToolTip({});
    layOutAgain();
}

/// After a change of the number of tiles or of their size.
void TilePickerGrid::layOutAgain()
{
    m_picturesAreOld = true;
    updateGeometry();
    resize(sizeHint());
    update();
}

void TilePickerGrid::tilesChanged()
{
    m_picturesAreOld = true;
    // A change of many tiles is told tile by tile; and a hidden grid looks when it is shown.
    if (m_refreshIsQueued || !isVisible())
        return;
    m_refreshIsQueued = true;
    QMetaObject::invokeMethod(this, &TilePickerGrid::refreshPictures, Qt::QueuedConnection);
}

void TilePickerGrid::refreshPictures()
{
    m_refreshIsQueued = false;
    if (!m_picturesAreOld)
        return;
    m_picturesAreOld = false;
    const QList<int> changed = m_pictures.refresh();
    for (const int index : changed)
        updateCell(index);
}

void TilePickerGrid::updateCell(int index)
{
    if (index >= 0)
        update(markRect(index));
}

/// The marks are drawn with a wide pen.
QRect TilePickerGrid::markRect(int index) const
{
    return cellRect(index).adjusted(-1, -1, 1, 1);
}

int TilePickerGrid::count() const
{
    return m_tileSet ? m_tileSet->count() : 0;
}

int TilePickerGrid::cellSide() const
{
    return m_magnification * TileSide;
}

int TilePickerGrid::columns() const
{
    return std::max(1, width() / cellSide());
}

int TilePickerGrid::indexAt(QPoint position) const
{
    if (position.x() < 0 || position.y() < 0)
        return -1;
    const int column = position.x() / cellSide();
    const int index = position.y() / cellSide() * columns() + column;
    return column < columns() && contains(index) ? index : -1;
}

QRect TilePickerGrid::cellRect(int index) const
{
    const int side = cellSide();
    return {index % columns() * side, index / columns() * side, side, side};
}

int TilePickerGrid::heightForWidth(int width) const
{
    const int side = cellSide();
    if (!m_tileSet || width / side == 0)
        return m_magnification * TileSide * EmptyCells;
    return side * (count() / (width / side) + 1);
}

QSize TilePickerGrid::sizeHint() const
{
    return {width(), heightForWidth(width())};
}

void TilePickerGrid::setMagnification(int magnification)
{
    const int bounded = std::clamp(magnification, MinMagnification, MaxMagnification);
    const bool isOther = bounded != m_magnification;
    m_magnification = bounded;
    showZoomChecked(); // also if it is the same: its entry may just have been unchecked
    if (isOther)
        layOutAgain();
}

void TilePickerGrid::showZoomChecked()
{
    const QList<QAction *> zooms = m_zoomGroup->actions();
    for (QAction *zoom : zooms)
        zoom->setChecked(zoom->data().toInt() == m_magnification);
}

void TilePickerGrid::setSelectedIndex(int index)
{
    const int selected = contains(index) ? index : -1;
    if (selected == m_selectedIndex)
        return;
    updateCell(m_selectedIndex);
    m_selectedIndex = selected;
    updateCell(m_selectedIndex);
    tellChange(this);
}

void TilePickerGrid::pick(int index)
{
    if (!contains(index) || index == m_selectedIndex)
        return;
    setSelectedIndex(index);
    emit selectedIndexChanged(index);
}

void TilePickerGrid::setHoverIndex(int index)
{
    if (index == m_hoverIndex)
        return;
    updateCell(m_hoverIndex);
    m_hoverIndex = index;
    updateCell(m_hoverIndex);
    setToolTip(
        index < 0
            ? QString()
            : tr("Index: %1\nPalette Offset: %2").arg(index).arg(m_tileSet->tileOffset(index)));
}

void TilePickerGrid::mousePressEvent(QMouseEvent *event)
{
    m_buttons = event->buttons();
    m_pressPos = cellPoint(event->position());
}

void TilePickerGrid::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = cellPoint(event->position());
    const bool isHeld = (event->buttons() & m_buttons).testFlag(Qt::LeftButton);
    const int pressed = indexAt(m_pressPos);
    if (isHeld && pressed >= 0 &&
        (position - m_pressPos).manhattanLength() >= QApplication::startDragDistance()) {
        startDrag(pressed);
        return;
    }
    setHoverIndex(indexAt(position));
}

void TilePickerGrid::mouseReleaseEvent(QMouseEvent *event)
{
    m_buttons = event->buttons();
    const int index = indexAt(cellPoint(event->position()));
    if (event->button() == Qt::LeftButton)
        pick(index);
    else if (event->button() == Qt::RightButton && index >= 0)
        openContextMenu(index, event->globalPosition().toPoint());
}

void TilePickerGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    const int index = indexAt(cellPoint(event->position()));
    if (index >= 0)
        emit itemDoubleClicked(index + TileNumber);
}

void TilePickerGrid::wheelEvent(QWheelEvent *event)
{
    const int delta = event->angleDelta().y();
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QWidget::wheelEvent(event);
        return;
    }
    if (delta != 0)
        setMagnification(m_magnification + (delta > 0 ? 1 : -1));
    event->accept();
}

void TilePickerGrid::leaveEvent(QEvent *)
{
    setHoverIndex(-1);
}

int TilePickerGrid::steppedIndex(int key) const
{
    const int last = count() - 1;
    switch (key) {
    case Qt::Key_Left:
        return std::max(m_selectedIndex - 1, 0);
    case Qt::Key_Right:
        return std::min(m_selectedIndex + 1, last);
    case Qt::Key_Up:
        return m_selectedIndex < columns() ? std::max(m_selectedIndex, 0)
                                           : m_selectedIndex - columns();
    case Qt::Key_Down:
        return m_selectedIndex < 0 ? 0 : std::min(m_selectedIndex + columns(), last);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return -1;
    }
}

void TilePickerGrid::keyPressEvent(QKeyEvent *event)
{
    const int stepped = steppedIndex(event->key());
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (stepped >= 0)
        pick(stepped);
    else if (isReturn && contains(m_selectedIndex))
        emit itemDoubleClicked(m_selectedIndex + TileNumber);
    else
        QWidget::keyPressEvent(event);
}

void TilePickerGrid::contextMenuEvent(QContextMenuEvent *event)
{
    // The mouse opens the menu on release, of a tile.
    if (event->reason() == QContextMenuEvent::Keyboard && contains(m_selectedIndex))
        openContextMenu(m_selectedIndex, mapToGlobal(cellRect(m_selectedIndex).center()));
}

void TilePickerGrid::openContextMenu(int index, QPoint globalPosition)
{
    m_menuIndex = index;
    m_contextMenu.popup(globalPosition);
}

void TilePickerGrid::clearTile()
{
    if (contains(m_menuIndex))
        m_tileSet->clearImage(m_menuIndex);
}

void TilePickerGrid::pasteImage()
{
    if (m_copiedIndex >= 0 && m_tileSet)
        m_tileSet->copyTile(m_menuIndex, m_copiedIndex);
}

void TilePickerGrid::insertTile()
{
    if (contains(m_menuIndex))
        m_tileSet->insertTile(m_menuIndex);
    update();
}

void TilePickerGrid::deleteTile()
{
    if (contains(m_menuIndex))
        m_tileSet->deleteTile(m_menuIndex);
    update();
}
