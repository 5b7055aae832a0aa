#include "tour/AnimationDesk.h"

#include "support/DialogDriver.h"
#include "support/DragEvents.h"
#include "uikit/ToolPalette.h"

#include <QDrag>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>

using AnimationEditor::AnimationListWidget;
using AnimationEditor::FrameEditorWidget;

namespace {

constexpr int SpriteSide = 16; // pixels
constexpr int TileSide = 8;
constexpr int PlayMs = 10000; // at most
constexpr int TickMs = 20;    // of the preview's pace

/// Presses the button that shows @p action.
bool pressButton(const QWidget *parent, const QAction *action)
{
    for (auto *const button : parent->findChildren<QToolButton *>()) {
        if (action && button->defaultAction() == action && button->isEnabled()) {
            QTest::mouseClick(button, Qt::LeftButton);
            return true;
        }
    }
    return false;
}

} // namespace

std::unique_ptr<QMimeData> dragOff(QWidget *source, QPoint from)
{
    QTest::mousePress(source, Qt::LeftButton, {}, from);
    const QPoint away = from + QPoint(QApplication::startDragDistance(), 0);
    QMouseEvent move(QEvent::MouseMove, away, source->mapToGlobal(away), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(source, &move);
    const auto *const drag = source->findChild<QDrag *>();
    if (!drag)
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    for (const QString &format : drag->mimeData()->formats())
        data->setData(format, drag->mimeData()->data(format));
    // The drag has ended and is to die with the next turn of the event loop.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return data;
}

AnimationDesk::AnimationDesk(WindowTour &tour, QWidget *view, const QTimer &timer, const Look &look)
    : m_tour(tour)
    , m_view(view)
    , m_timer(timer)
    , m_look(look)
    , m_editor(view->findChild<FrameEditorWidget *>())
    , m_list(view->findChild<AnimationListWidget *>())
    , m_controls(view->findChild<AnimationControlWidget *>())
{
}

void AnimationDesk::pressListButton(const QString &toolTip)
{
    for (auto *const button : m_list->findChildren<QPushButton *>()) {
        if (button->toolTip() == toolTip && button->isEnabled()) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    m_tour.check(false, QStringLiteral("has a button: ") + toolTip);
}

void AnimationDesk::chooseInList(const QString &entry)
{
    auto *const list = m_list->findChild<QListWidget *>();
    const QPoint place = list->visualItemRect(list->currentItem()).center();
    const bool done = m_tour.chooseInPopup(entry, [list, place] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                list->viewport()->mapToGlobal(place));
        QApplication::sendEvent(list->viewport(), &event);
    });
    m_tour.check(done, QStringLiteral("has %1 in its menu").arg(entry));
}

void AnimationDesk::press(Action action)
{
    if (!pressButton(m_controls, m_controls->action(action)))
        m_tour.check(false, QStringLiteral("has the button %1").arg(action));
}

void AnimationDesk::pressTool(Tessaril::Ui::ToolButton tool)
{
    const auto *const tools = m_view->findChild<ToolPalette *>();
    if (!pressButton(tools, tools->action(tool)))
        m_tour.check(false, QStringLiteral("has the tool %1").arg(static_cast<int>(tool)));
}

void AnimationDesk::typeName(const QString &name)
{
    auto *const field = DialogDriver::field<QLineEdit>(*m_view, QStringLiteral("Name"));
    field->selectAll();
    QTest::keyClicks(field, name);
}

void AnimationDesk::typeNumber(const QString &name, int value)
{
    auto *const field = DialogDriver::field<QSpinBox>(*m_view, name);
    field->selectAll();
    QTest::keyClicks(field, QString::number(value));
    QTest::keyClick(field, Qt::Key_Return);
}

QPoint AnimationDesk::middle(QPoint cell) const
{
    const int side = (animation()->isSprite() ? SpriteSide : TileSide) * m_editor->scale();
    return cell * side + QPoint(side / 2, side / 2);
}

void AnimationDesk::click(QPoint cell)
{
    QTest::mouseClick(m_editor, Qt::LeftButton, {}, middle(cell));
}

void AnimationDesk::drop(QWidget *source, QPoint from, QPoint cell)
{
    const auto data = dragOff(source, from);
    m_tour.check(data && DragEvents::drop(m_editor, middle(cell), data.get()) && looksRight(),
                 QStringLiteral("a frame takes what is dropped"));
}

bool AnimationDesk::looksRight()
{
    const int scale = m_editor->scale();
    const int unit = animation()->isSprite() ? SpriteSide : TileSide;
    const QImage shown = m_editor->grab().toImage();
    if (shown.size() != animation()->size() * unit * scale)
        return false;
    for (int y = 0; y < shown.height() / scale; ++y) {
        for (int x = 0; x < shown.width() / scale; ++x) {
            const QPoint at(x / unit, y / unit);
            const QColor wanted =
                m_look(cell(m_editor->currentFrame(), at)).pixelColor(x % unit, y % unit);
            const QColor found = shown.pixelColor(x * scale + scale / 2, y * scale + scale / 2);
            if (found.rgb() != (wanted.alpha() == 0 ? QColor(Qt::black) : wanted).rgb())
                return false;
        }
    }
    return true;
}

void AnimationDesk::checkPlayback()
{
    const int count = animation()->frameCount();
    QList<int> frames;
    bool right = true;
    QObject watch;
    QObject::connect(m_editor, &FrameEditorWidget::currentFrameChanged, &watch, [&](int frame) {
        frames.append(frame);
        right &= looksRight();
    });
    press(Action::Play);
    m_tour.check(m_timer.isActive() && m_timer.interval() == TickMs * (animation()->delay() + 1),
                 QStringLiteral("plays at the pace of its delay"));
    const bool done = QTest::qWaitFor([&] { return frames.size() >= 2 * count + 1; }, PlayMs);
    press(Action::Stop);
    m_tour.check(done && !m_timer.isActive(), QStringLiteral("and stops"));
    bool inOrder = true;
    for (qsizetype i = 1; i < frames.size(); ++i)
        inOrder &= frames.at(i) == (frames.at(i - 1) + 1) % count;
    m_tour.check(inOrder && right,
                 QStringLiteral("showing %1 frames in turn as they are").arg(count));
}
