#include "tour/PaintDesk.h"

#include "model/Palette.h"
#include "model/PictureEquality.h"
#include "uikit/ToolPalette.h"

#include <QToolButton>
#include <QTreeWidgetItemIterator>
#include <QUndoStack>

namespace {

using PictureEquality::haveEqualIndices;

/// The smallest rectangle that holds every pixel in which two pictures of one size differ.
QRect changedArea(const QImage &before, const QImage &after)
{
    QRect area;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixelIndex(x, y) != after.pixelIndex(x, y))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

} // namespace

PaintDesk::PaintDesk(WindowTour &tour, Canvas *canvas, ToolPalette *tools, QUndoStack *stack)
    : m_tour(tour)
    , m_canvas(canvas)
    , m_tools(tools)
    , m_stack(stack)
{
}

QPoint PaintDesk::at(QPoint pixel) const
{
    return m_canvas->cellRect({pixel, QSize(1, 1)}).center();
}

void PaintDesk::send(QEvent::Type type, QPoint pixel, Qt::MouseButton button, Qt::MouseButtons held)
{
    const QPoint point = at(pixel);
    QMouseEvent event(type, point, m_canvas->mapToGlobal(point), button, held, Qt::NoModifier);
    QApplication::sendEvent(m_canvas, &event);
}

void PaintDesk::hover(QPoint pixel)
{
    send(QEvent::MouseMove, pixel, Qt::NoButton, Qt::NoButton);
}

void PaintDesk::press(QPoint pixel, Qt::MouseButton button)
{
    QTest::mousePress(m_canvas, button, {}, at(pixel));
}

void PaintDesk::release(QPoint pixel, Qt::MouseButton button)
{
    QTest::mouseRelease(m_canvas, button, {}, at(pixel));
}

void PaintDesk::click(QPoint pixel, Qt::MouseButton button)
{
    press(pixel, button);
    release(pixel, button);
}

void PaintDesk::draw(const QList<QPoint> &pixels, Qt::MouseButton button)
{
    press(pixels.first(), button);
    for (const QPoint &pixel : pixels)
        send(QEvent::MouseMove, pixel, Qt::NoButton, button);
    release(pixels.last(), button);
}

void PaintDesk::drag(QPoint from, QPoint to)
{
    draw({from, (from + to) / 2, to});
}

void PaintDesk::wheel(int notches, Qt::KeyboardModifiers modifiers)
{
    const QPoint point = m_canvas->viewRect().center();
    QWheelEvent event(point, m_canvas->mapToGlobal(point), {}, QPoint(0, 120 * notches),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_canvas, &event);
}

void PaintDesk::zoomTo(int zoom)
{
    while (m_canvas->zoomLevel() > zoom)
        wheel(-1, Qt::ControlModifier);
    while (m_canvas->zoomLevel() < zoom)
        wheel(1, Qt::ControlModifier);
}

void PaintDesk::choose(Tool tool)
{
    const QAction *const action = m_tools->action(tool);
    for (auto *const button : m_tools->findChildren<QToolButton *>()) {
        if (action && button->defaultAction() == action && button->isEnabled()) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    m_tour.check(false, QStringLiteral("has the tool %1").arg(static_cast<int>(tool)));
}

bool PaintDesk::step(const QString &text, const QRect &area, const Edit &edit)
{
    const QImage before = image();
    const int index = m_stack->index();
    edit();
    const QImage after = image();
    const QRect changed = changedArea(before, after);
    bool holds = m_stack->index() == index + 1 && m_stack->undoText() == text && looksRight() &&
                 !changed.isEmpty() && area.contains(changed);
    m_tour.undo();
    holds &= haveEqualIndices(image(), before) && looksRight();
    m_tour.redo();
    holds &= haveEqualIndices(image(), after) && looksRight();
    return m_tour.check(holds, QStringLiteral("%1 is a step in its place").arg(text));
}

bool PaintDesk::changesNothing(const QString &what, const Edit &edit)
{
    const QImage before = image();
    const int index = m_stack->index();
    edit();
    return m_tour.check(haveEqualIndices(image(), before) && m_stack->index() == index, what);
}

void PaintDesk::undoAll(const QImage &before)
{
    const QImage after = image();
    const int steps = m_stack->index();
    while (m_stack->canUndo() && m_tour.undo()) {
    }
    m_tour.check(haveEqualIndices(image(), before) && looksRight(),
                 QStringLiteral("is as it was, %1 steps back").arg(steps));
    while (m_stack->canRedo() && m_tour.redo()) {
    }
    m_tour.check(haveEqualIndices(image(), after) && m_stack->index() == steps,
                 QStringLiteral("and again as it became"));
}

bool PaintDesk::looksRight()
{
    const QImage shown = m_canvas->grab().toImage();
    const QRect visible = m_canvas->visiblePixels();
    const QImage &picture = image();
    for (int y = visible.top(); y <= visible.bottom(); ++y) {
        for (int x = visible.left(); x <= visible.right(); ++x) {
            const QColor colour = m_canvas->palette()->colour(picture.pixelIndex(x, y));
            if (shown.pixelColor(at({x, y})).rgb() != colour.rgb())
                return false;
        }
    }
    return !visible.isEmpty();
}

void openInTree(WindowTour &tour, const QUuid &id)
{
    ProjectTree *const tree = tour.views().projectWindow->tree();
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if (ProjectTree::idOf(*it) != id)
            continue;
        tree->scrollToItem(*it);
        const QPoint place = tree->visualItemRect(*it).center();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
        return;
    }
    tour.check(false, QStringLiteral("is in the tree"));
}
