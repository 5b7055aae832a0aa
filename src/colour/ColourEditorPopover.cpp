#include "colour/ColourEditorPopover.h"

#include "colour/ColourEditor.h"

#include <QHideEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace {

constexpr int Margin = 12; // pixels between the editor and the panel's edge

} // namespace

ColourEditorPopover::ColourEditorPopover(QWidget *parent)
    : Popover(parent)
    , m_editor(new ColourEditor)
{
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(marginsWithPointer(Margin));
    layout->addWidget(m_editor);
    connect(m_editor, &ColourEditor::colourChanged, this,
            &ColourEditorPopover::confirmColourChanged);
    connect(m_editor, &ColourEditor::cancelled, this, &ColourEditorPopover::cancelled);
}

void ColourEditorPopover::openFor(const QWidget *owner, const QRect &cell, const QColor &colour,
                                  bool priority)
{
    m_editor->setColour(colour, priority);
    adjustSize();
    const int middle = cell.center().y();
    placeBeside(owner->mapToGlobal(QPoint(cell.left(), middle)),
                owner->mapToGlobal(QPoint(cell.right() + 1, middle)));
    fitToSide();
    show();
    m_editor->setFocus(Qt::PopupFocusReason);
}

void ColourEditorPopover::confirmColourChanged(QColor colour, bool priority)
{
    emit colourChanged(colour, priority);
    close();
}

void ColourEditorPopover::cancelled()
{
    close();
}

void ColourEditorPopover::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        close();
    else
        Popover::keyPressEvent(event);
}

void ColourEditorPopover::hideEvent(QHideEvent *event)
{
    Popover::hideEvent(event);
    if (!event->spontaneous())
        emit closed();
}

void ColourEditorPopover::resizeEvent(QResizeEvent *event)
{
    Popover::resizeEvent(event);
    fitToSide();
}

void ColourEditorPopover::fitToSide()
{
    layout()->setContentsMargins(marginsWithPointer(Margin));
}
