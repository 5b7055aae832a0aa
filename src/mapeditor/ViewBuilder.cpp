#include "mapeditor/ViewBuilder.h"

#include "dialogs/ResizeMapDialog.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/MapToolPalette.h"
#include "mapeditor/View.h"
#include "uikit/ColumnArea.h"
#include "uikit/ScrollBar.h"
#include "uikit/ThemedIcon.h"

#include <QAction>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QMenu>
#include <QToolButton>

using namespace MapEditor;

namespace {

constexpr int GridStretch = 10000;
constexpr int MainStretch = 1000;
constexpr int CornerSide = 17; // pixels, within the thickness of the scroll bars

} // namespace

ViewBuilder::ViewBuilder(View *view)
    : m_view(view)
{
}

void ViewBuilder::build()
{
    layOut();
    connect(&m_view->m_animator, &MapAnimator::framesAdvanced, m_view.data(), &View::advanceFrames);
    connect(m_view->m_toolPalette, &MapToolPalette::actionActivated, m_view.data(),
            qOverload<MapToolPalette::ToolButton, bool>(&View::toolPaletteClicked));
    connectActions();
    connectGrid();
    connectScrollBars();
    connect(m_view->m_resizeDialog, &QDialog::accepted, m_view.data(), &View::resizeMap);
    connectSprites();
    m_view->m_toolPalette->setShowGridChecked(false);
    m_view->m_toolPalette->setMode(Tessaril::Ui::ToolButton::Draw);
}

void ViewBuilder::layOut()
{
    auto *const area = new QWidget;
    auto *const grid = new QGridLayout(area);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    grid->addWidget(m_view->m_grid, 0, 0);
    grid->addWidget(m_view->m_verticalScrollBar, 0, 1);
    grid->addWidget(m_view->m_horizontalScrollBar, 1, 0);
    grid->addWidget(makeCorner(), 1, 1, Qt::AlignCenter);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(0, 1);

    auto *const box = new QWidget;
    auto *const row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(area, GridStretch);
    row->addWidget(new ColumnArea(m_view->m_toolPalette)); // low windows cannot hold all tools

    auto *const inner = new QSplitter(Qt::Vertical, m_view);
    inner->addWidget(box);
    m_view->addWidget(inner);
    m_view->setStretchFactor(0, MainStretch);
    m_view->setStretchFactor(1, 1);
    m_view->setFocusPolicy(Qt::ClickFocus);
    m_view->setAccessibleName(View::tr("Map"));
    m_view->m_grid->setFocusProxy(m_view);
    m_view->m_grid->takeKeysOf(m_view);
    m_view->m_toolPalette->setFocusProxy(m_view);
}

/// Where the buttons that add and remove rows and columns meet: what is done to the whole map.
QToolButton *ViewBuilder::makeCorner()
{
    using Tool = Tessaril::Ui::ToolButton;
    auto *const corner = new QToolButton;
    corner->setIcon(themedIcon(QStringLiteral(":/Resize")));
    corner->setIconSize({CornerSide, CornerSide});
    corner->setFixedSize(CornerSide, CornerSide);
    corner->setAutoRaise(true);
    corner->setToolTip(View::tr("Resize or export the map"));
    corner->setAccessibleName(View::tr("Map actions"));

    auto *const menu = new QMenu(corner);
    const auto add = [this, menu](const QString &text, Tool tool) {
        connect(menu->addAction(text), &QAction::triggered, m_view.data(),
                [view = m_view.data(), tool] { view->toolPaletteClicked(tool); });
    };
    add(View::tr("Resize Map"), Tool::Resize);
    add(View::tr("Export Map Data"), Tool::Save);
    connect(corner, &QToolButton::clicked, menu,
            [corner, menu] { menu->popup(corner->mapToGlobal(QPoint())); });
    return corner;
}

QAction *ViewBuilder::addAction(const QString &text, const QList<QKeySequence> &keys)
{
    auto *const action = new QAction(text, m_view);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_view->addAction(action);
    return action;
}

void ViewBuilder::connectActions()
{
    connect(addAction(View::tr("Cancel"), {QKeySequence(Qt::Key_Escape)}), &QAction::triggered,
            m_view.data(), &View::cancel);
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Delete);
    keys.append(QKeySequence(Qt::Key_Backspace));
    connect(addAction(View::tr("Delete"), keys), &QAction::triggered, m_view->m_grid,
            &MapGrid::deleteHovered);
    // The palette's shortcuts work wherever the view has the focus, not only on its own buttons.
    for (QAction *const action : m_view->m_toolPalette->findChildren<QAction *>()) {
        if (!action->shortcuts().isEmpty())
            m_view->addAction(action);
    }
}

void ViewBuilder::connectGrid()
{
    MapGrid *const grid = m_view->m_grid;
    connect(grid, &MapGrid::scrollDeltaChanged, m_view.data(), &View::updateScrollValues);
    connect(grid, &MapGrid::scrollPositionChanged, m_view.data(), &View::updateScrollBars);
    connect(grid, &MapGrid::tilePicked, m_view.data(), &View::setSelectedTile);
    connect(grid, &MapGrid::modeChanged, m_view->m_toolPalette, &MapToolPalette::setMode);
    connect(grid, &MapGrid::modeChanged, m_view.data(), &View::announceMode);
    connect(grid, &MapGrid::createMapFromSelection, m_view.data(), &View::createMapFromSelection);
}

void ViewBuilder::connectScrollBars()
{
    MapGrid *const grid = m_view->m_grid;
    ScrollBar *const vertical = m_view->m_verticalScrollBar;
    connect(vertical, &ScrollBar::valueChanged, grid, &MapGrid::setVerticalScrollPosition);
    connect(vertical, &ScrollBar::add, m_view.data(), &View::addRow);
    connect(vertical, &ScrollBar::remove, m_view.data(), &View::removeRow);
    ScrollBar *const horizontal = m_view->m_horizontalScrollBar;
    connect(horizontal, &ScrollBar::valueChanged, grid, &MapGrid::setHorizontalScrollPosition);
    connect(horizontal, &ScrollBar::add, m_view.data(), &View::addColumn);
    connect(horizontal, &ScrollBar::remove, m_view.data(), &View::removeColumn);
}

void ViewBuilder::connectSprites()
{
    MapGrid *const grid = m_view->m_grid;
    SpritePropertiesPopover *const popover = &m_view->m_spritePopover;
    connect(grid, &MapGrid::selectedSpriteChanged, m_view.data(), &View::followSelectedSprite);
    connect(grid, &MapGrid::spriteClicked, m_view.data(), &View::showSpriteProperties);
    connect(popover, &SpritePropertiesPopover::spriteEdited, grid, &MapGrid::applySpriteEdit);
    const QPointer<View> view = m_view;
    popover->setKeepOpen([view](QPoint position) { return view && view->isOverSprite(position); });
}
