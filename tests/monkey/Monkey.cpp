#include "monkey/Monkey.h"

#include "app/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QSplitterHandle>
#include <QTreeWidget>
#include <QWheelEvent>

namespace {

constexpr int DiaryLength = 60;
constexpr int Impatience = 20; // rounds of waiting after which a drag is let go

const QList<int> EditorKeys = {Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,   Qt::Key_Down,
                               Qt::Key_Delete, Qt::Key_Escape, Qt::Key_Home, Qt::Key_End,
                               Qt::Key_Plus,   Qt::Key_Minus,  Qt::Key_R,    Qt::Key_F,
                               Qt::Key_M,      Qt::Key_H,      Qt::Key_V,    Qt::Key_D,
                               Qt::Key_S,      Qt::Key_P,      Qt::Key_L,    Qt::Key_1};
const QList<int> ClipboardKeys = {Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_A};
const QList<int> CommandKeys = {Qt::Key_Z, Qt::Key_Y, Qt::Key_S, Qt::Key_W, Qt::Key_T};

/// Items that leave the program, reach the network, or wait for a file.
const QStringList Forbidden = {QStringLiteral("Quit"), QStringLiteral("Check for Updates"),
                               QStringLiteral("Open"), QStringLiteral("Licence")};
/// Items and buttons that do more than edit the document or make steps that are not recorded.
const QStringList Unrecorded = {QStringLiteral("Copy to new"),
                                QStringLiteral("Export"),
                                QStringLiteral("Save"),
                                QStringLiteral("Import"),
                                QStringLiteral("Add a new animation"),
                                QStringLiteral("Clone"),
                                QStringLiteral("Delete the selected animation"),
                                QStringLiteral("Reset")};

bool startsWithOneOf(QString text, const QStringList &beginnings)
{
    text.remove(QLatin1Char('&'));
    return std::any_of(beginnings.begin(), beginnings.end(), [&text](const QString &beginning) {
        return text.startsWith(beginning, Qt::CaseInsensitive);
    });
}

QString nameOf(const QWidget *widget)
{
    const QString kind = QString::fromLatin1(widget->metaObject()->className());
    const QString name =
        widget->objectName().isEmpty() ? widget->accessibleName() : widget->objectName();
    return name.isEmpty() ? kind : QStringLiteral("%1 \"%2\"").arg(kind, name);
}

} // namespace

Monkey::Monkey(MainWindow *window, quint32 seed, Reach reach)
    : m_window(window)
    , m_random(seed)
    , m_reach(reach)
{
    m_answering.setInterval(1);
    connect(&m_answering, &QTimer::timeout, this, &Monkey::answer);
    m_answering.start();
}

Monkey::~Monkey()
{
    // Qt forgets what it keeps of a dock's drag unless a release ends it.
    for (QDockWidget *const dock : m_window->findChildren<QDockWidget *>())
        sendMouse(dock, QEvent::MouseButtonRelease, {}, Qt::LeftButton, Qt::NoButton, {});
}

void Monkey::act()
{
    if (QWidget *const modal = QApplication::activeModalWidget()) {
        m_isActing = true; // an answer can open the next box
        m_waited = 0;
        answerDialog(modal);
        m_isActing = false;
        QApplication::processEvents();
        return;
    }
    const QList<QWidget *> widgets = targets();
    if (widgets.isEmpty())
        return;
    QWidget *const widget = widgets.at(pick(static_cast<int>(widgets.size())));
    static constexpr Gesture Gestures[] = {&Monkey::useMouse, &Monkey::useMouse, &Monkey::useMouse,
                                           &Monkey::useKeys,  &Monkey::useWheel, &Monkey::useMenu};
    m_isActing = true;
    m_waited = 0;
    (this->*Gestures[pick(std::size(Gestures))])(widget);
    m_isActing = false;
    QApplication::processEvents();
}

/// What is visible and can be used. A large kind, such as buttons, must not hide the few places
/// where one draws, so these are there more than once.
QList<QWidget *> Monkey::targets()
{
    QList<QWidget *> found;
    const auto widgets = m_window->findChildren<QWidget *>();
    for (QWidget *const widget : widgets) {
        if (!widget->isVisible() || !widget->isEnabled() || !isAllowed(widget))
            continue;
        found.append(widget);
        const bool isPlaceToDraw =
            widget->inherits("Canvas") || widget->inherits("MapEditor::MapGrid") ||
            widget->inherits("TilePickerGrid") || widget->inherits("SpriteList") ||
            widget->inherits("FrameEditorWidget");
        for (int i = 0; isPlaceToDraw && i < 20; ++i)
            found.append(widget);
    }
    return found;
}

bool Monkey::isAllowed(const QWidget *widget) const
{
    if (widget->isWindow() || qobject_cast<const QSplitterHandle *>(widget))
        return false;
    if (m_reach == Reach::Everything)
        return true;
    if (widget->objectName().startsWith(QStringLiteral("qt_dockwidget")) ||
        startsWithOneOf(widget->accessibleName(), Unrecorded))
        return false;
    const DocumentViews &views = m_window->views();
    const QWidget *const editors[] = {
        views.paletteWindow, views.tileWindow, views.spriteWindow, views.tilePicker,
        views.blockSelector, views.mapSprites, views.mapToolBar,   views.tabs->currentWidget()};
    return std::any_of(std::begin(editors), std::end(editors), [widget](const QWidget *editor) {
        return editor && editor->isAncestorOf(widget);
    });
}

bool Monkey::isAllowed(const QAction *action) const
{
    const QObject *const menu = action->parent();
    if (m_reach == Reach::Editors && menu && menu->parent() &&
        menu->parent()->inherits("AnimationEditor::AnimationListWidget"))
        return false; // Its "Delete" is not recorded, that of sprites and tiles is.
    return action->isEnabled() && action->isVisible() && !action->isSeparator() &&
           !startsWithOneOf(action->text(), Forbidden) &&
           (m_reach == Reach::Everything || !startsWithOneOf(action->text(), Unrecorded));
}

void Monkey::note(const QString &what)
{
    m_diary.append(what);
    if (m_diary.size() > DiaryLength)
        m_diary.removeFirst();
}

void Monkey::sendMouse(QWidget *widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
                       Qt::MouseButtons held, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, held, modifiers);
    QApplication::sendEvent(widget, &event);
}

void Monkey::useMouse(QWidget *widget)
{
    const QPointer<QWidget> alive(widget);
    const Qt::MouseButton button = pick(6) == 0 ? Qt::RightButton : Qt::LeftButton;
    static constexpr Qt::KeyboardModifier Modifiers[] = {
        Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
    const Qt::KeyboardModifiers modifiers = Modifiers[pick(std::size(Modifiers))];
    const auto anywhere = [this, widget] {
        return QPoint(pick(widget->width() + 8) - 4, pick(widget->height() + 8) - 4);
    };
    QPoint position = anywhere();
    const int moves = pick(3) == 0 ? pick(8) : 0;
    note(QStringLiteral("mouse %1 at %2, %3 on %4, %5 moves")
             .arg(button)
             .arg(position.x())
             .arg(position.y())
             .arg(nameOf(widget))
             .arg(moves));
    if (widget->focusPolicy() & Qt::ClickFocus)
        widget->setFocus(Qt::MouseFocusReason);
    sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, modifiers);
    if (alive)
        sendMouse(widget, QEvent::MouseButtonPress, position, button, button, modifiers);
    for (int i = 0; i < moves && alive; ++i) {
        position = anywhere();
        sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, button, modifiers);
    }
    if (alive)
        sendMouse(widget, QEvent::MouseButtonRelease, position, button, Qt::NoButton, modifiers);
    if (alive && pick(8) == 0) {
        sendMouse(widget, QEvent::MouseButtonDblClick, position, button, button, modifiers);
        if (alive)
            sendMouse(widget, QEvent::MouseButtonRelease, position, button, Qt::NoButton,
                      modifiers);
    }
}

void Monkey::useWheel(QWidget *widget)
{
    const QPoint position(pick(widget->width() + 1), pick(widget->height() + 1));
    const QPoint delta(0, pick(2) == 0 ? 120 : -120);
    note(QStringLiteral("wheel on %1").arg(nameOf(widget)));
    QWheelEvent event(position, widget->mapToGlobal(position), {}, delta, Qt::NoButton,
                      pick(3) == 0 ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(widget, &event);
}

void Monkey::useKeys(QWidget *widget)
{
    if (widget->focusPolicy() != Qt::NoFocus)
        widget->setFocus();
    const bool commands = m_reach == Reach::Everything && pick(3) == 0;
    const bool clipboard = !commands && pick(3) == 0;
    const QList<int> &keys = commands ? CommandKeys : clipboard ? ClipboardKeys : EditorKeys;
    const int key = keys.at(pick(static_cast<int>(keys.size())));
    const Qt::KeyboardModifiers modifiers =
        commands || clipboard ? Qt::ControlModifier : Qt::NoModifier;
    note(QStringLiteral("key %1 on %2")
             .arg(QKeySequence(key | modifiers).toString(), nameOf(widget)));
    const QPointer<QWidget> alive(widget);
    for (const auto type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, modifiers ? QString() : QKeySequence(key).toString());
        if (alive)
            QApplication::sendEvent(widget, &event);
    }
    // A shortcut is looked up by the window system, which has no part in sent events.
    for (QAction *const action : m_window->findChildren<QAction *>()) {
        if (action->shortcuts().contains(QKeySequence(key | modifiers)) && isAllowed(action)) {
            action->trigger();
            break;
        }
    }
}

void Monkey::useMenu(QWidget *)
{
    if (m_reach == Reach::Editors)
        return;
    QList<QAction *> actions;
    for (const QMenu *const menu : m_window->findChildren<QMenu *>()) {
        for (QAction *const action : menu->actions()) {
            if (!action->menu() && isAllowed(action))
                actions.append(action);
        }
    }
    if (actions.isEmpty())
        return;
    QAction *const action = actions.at(pick(static_cast<int>(actions.size())));
    note(QStringLiteral("menu %1").arg(action->text()));
    action->trigger();
}

/// Lets the action that runs go on: a menu is chosen from, a box is answered, a drag ends.
void Monkey::answer()
{
    if (!m_isActing)
        return;
    if (auto *const popup = QApplication::activePopupWidget()) {
        if (auto *const menu = qobject_cast<QMenu *>(popup))
            answerMenu(menu);
        else
            popup->close();
    } else if (QWidget *const modal = QApplication::activeModalWidget()) {
        answerDialog(modal);
    } else if (++m_waited > Impatience) {
        m_waited = 0;
        const QPoint position(pick(m_window->width()), pick(m_window->height()));
        note(QStringLiteral("drops at %1, %2").arg(position.x()).arg(position.y()));
        sendMouse(m_window, QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton, {});
        sendMouse(m_window, QEvent::MouseButtonRelease, position, Qt::LeftButton, Qt::NoButton, {});
    }
}

void Monkey::answerMenu(QMenu *menu)
{
    QList<QAction *> actions;
    for (QAction *const action : menu->actions()) {
        if (!action->menu() && isAllowed(action))
            actions.append(action);
    }
    if (actions.isEmpty() || pick(4) == 0) {
        menu->close();
        return;
    }
    QAction *const action = actions.at(pick(static_cast<int>(actions.size())));
    note(QStringLiteral("item %1").arg(action->text()));
    menu->setActiveAction(action);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(menu, &event);
}

void Monkey::answerDialog(QWidget *widget)
{
    auto *const dialog = qobject_cast<QDialog *>(widget);
    if (!dialog) {
        widget->close();
        return;
    }
    note(QStringLiteral("dialog %1").arg(nameOf(dialog)));
    if (qobject_cast<QFileDialog *>(dialog) || pick(3) == 0) {
        dialog->reject();
        return;
    }
    for (QLineEdit *const edit : dialog->findChildren<QLineEdit *>())
        edit->setText(QStringLiteral("name %1").arg(pick(100)));
    for (QComboBox *const combo : dialog->findChildren<QComboBox *>())
        combo->setCurrentIndex(pick(std::max(1, combo->count())));
    QList<QAbstractButton *> buttons;
    for (QAbstractButton *const button : dialog->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->isEnabled() &&
            !startsWithOneOf(button->text(), Forbidden))
            buttons.append(button);
    }
    if (buttons.isEmpty())
        dialog->reject();
    else
        buttons.at(pick(static_cast<int>(buttons.size())))->click();
}
