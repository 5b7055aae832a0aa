#include "uikit/UndoKeys.h"

#include <QKeyEvent>
#include <QWidget>

namespace {

class KeyFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::ShortcutOverride)
            return false;
        const auto *const key = static_cast<QKeyEvent *>(event);
        if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
            return false;
        event->ignore();
        return true;
    }
};

} // namespace

void UndoKeys::leaveToMenu(QWidget *field)
{
    field->installEventFilter(new KeyFilter(field));
}
