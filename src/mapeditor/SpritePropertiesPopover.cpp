#include "mapeditor/SpritePropertiesPopover.h"

#include "mapeditor/SpriteProperties.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

using namespace MapEditor;

namespace {

constexpr int FormMargin = 10; // pixels, of the form itself
constexpr int PanelMargin = 4; // pixels, around the form within the panel

} // namespace

SpritePropertiesPopover::SpritePropertiesPopover(QWidget *parent)
    : Popover(parent)
    , m_form(new SpriteProperties(this))
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    m_form->setContentsMargins(FormMargin, FormMargin, FormMargin, FormMargin);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(marginsWithPointer(PanelMargin));
    layout->addWidget(m_form);
    connect(m_form, &SpriteProperties::spriteEdited, this, &SpritePropertiesPopover::spriteEdited);
}

const Map::PlacedSprite &SpritePropertiesPopover::sprite() const
{
    return m_form->sprite();
}

void SpritePropertiesPopover::showFor(const Map::PlacedSprite &sprite, const QRect &area)
{
    m_form->setSprite(sprite);
    adjustSize();
    place(area);
    if (isVisible())
        return;
    show();
    raise();
    activateWindow();
}

void SpritePropertiesPopover::place(const QRect &area)
{
    const int middle = area.top() + area.height() / 2;
    const QPoint leftAnchor(area.left(), middle);
    const QPoint rightAnchor(area.right() + 1, middle);
    placeBeside(leftAnchor, rightAnchor);
    layout()->setContentsMargins(marginsWithPointer(PanelMargin));
}

void SpritePropertiesPopover::showEvent(QShowEvent *event)
{
    qApp->installEventFilter(this);
    Popover::showEvent(event);
}

void SpritePropertiesPopover::hideEvent(QHideEvent *event)
{
    qApp->removeEventFilter(this);
    Popover::hideEvent(event);
}

bool SpritePropertiesPopover::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        const QPoint position = static_cast<QMouseEvent *>(event)->globalPosition().toPoint();
        if (!frameGeometry().contains(position) && !(m_keepOpen && m_keepOpen(position)))
            hide();
    }
    return false;
}

void SpritePropertiesPopover::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape) {
        Popover::keyPressEvent(event);
        return;
    }
    hide();
    event->accept();
}
