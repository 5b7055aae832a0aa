#include "canvas/ToolBar.h"

#include "canvas/Canvas.h"
#include "uikit/ThemedIcon.h"
#include "uikit/ToolPalette.h"

#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

using namespace ImageEditor;
using Tool = Tessaril::Ui::ToolButton;

ToolBar::ToolBar(Canvas *canvas, QWidget *owner, QWidget *parent)
    : QWidget(parent)
    , m_toolPalette(new ToolPalette(this))
{
    m_toolPalette->addButtons(
        {Tool::Draw,   Tool::Line,     Tool::Rectangle, Tool::RectangleFill, Tool::Circle,
         Tool::Fill,   Tool::Pick,     Tool::Select,    Tool::ZoomIn,        Tool::ZoomOut,
         Tool::MoveUp, Tool::MoveDown, Tool::MoveLeft,  Tool::MoveRight,     Tool::Flip,
         Tool::Mirror, Tool::Cut,      Tool::Copy,      Tool::Paste,         Tool::Open,
         Tool::Save},
        owner);
    m_toolPalette->setState(Tool::Draw);

    auto *const menu = new QMenu(this);
    QAction *const lines = menu->addAction(tr("Lines"));
    lines->setCheckable(true);
    connect(lines, &QAction::toggled, canvas, &Canvas::setGridLinesVisible);
    QAction *const checkers = menu->addAction(tr("Checkers"));
    checkers->setCheckable(true);
    connect(checkers, &QAction::toggled, canvas,
            [canvas](bool checked) { canvas->setMode(Tool::Grid, checked); });

    auto *const grid = new QToolButton(this);
    grid->setText(tr("Grid"));
    grid->setIcon(themedIcon(QStringLiteral(":/Grid")));
    grid->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    grid->setPopupMode(QToolButton::InstantPopup);
    grid->setAutoRaise(true);
    grid->setMenu(menu);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_toolPalette);
    layout->addWidget(grid, 0, Qt::AlignHCenter);
}
