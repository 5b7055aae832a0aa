#include "support/Screen.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QMainWindow>
#include <QRegion>
#include <QScreen>
#include <QWidget>

#include <cstring>

namespace {

constexpr int Rounds = 3; // what is put off can put off more, and a paint ask for another one

/// No timer ticks between the last paint and the look at it.
void finishPaints()
{
    for (int i = 0; i < Rounds; ++i)
        QApplication::processEvents();
    for (int i = 0; i < Rounds; ++i)
        QApplication::sendPostedEvents();
}

QImage onScreen(const QWidget *window)
{
    return window->screen()->grabWindow(window->winId()).toImage();
}

/// The rows in which the maps of a window tell the time of their paint, which differs each time.
QRegion timesOfPaints(const QWidget *window)
{
    constexpr int Baseline = 10; // pixels
    QRegion rows;
    for (const QWidget *widget : window->findChildren<QWidget *>()) {
        if (widget->isVisible() && widget->inherits("MapEditor::MapGrid"))
            rows += QRect(widget->mapTo(window, QPoint()),
                          QSize(widget->width(), Baseline + widget->fontMetrics().descent() + 1));
    }
    return rows;
}

/// What is blended on the screen is rounded otherwise.
bool isSame(QRgb one, QRgb other)
{
    constexpr int Rounding = 2;
    return qAbs(qRed(one) - qRed(other)) <= Rounding &&
           qAbs(qGreen(one) - qGreen(other)) <= Rounding &&
           qAbs(qBlue(one) - qBlue(other)) <= Rounding;
}

/// Where the screen shows something else than a fresh paint, which is opaque there: behind the rest
/// other windows shine through.
QRect differingPart(const QImage &shown, const QImage &fresh, const QRegion &leftOut)
{
    QRect part;
    for (int y = 0; y < shown.height(); ++y) {
        const auto *first = reinterpret_cast<const QRgb *>(shown.constScanLine(y));
        const auto *second = reinterpret_cast<const QRgb *>(fresh.constScanLine(y));
        if (std::memcmp(first, second, static_cast<size_t>(shown.width()) * sizeof(QRgb)) == 0)
            continue;
        for (int x = 0; x < shown.width(); ++x) {
            if (!isSame(first[x], second[x]) && qAlpha(second[x]) == 255 &&
                !leftOut.contains(QPoint(x, y)))
                part |= QRect(x, y, 1, 1);
        }
    }
    return part;
}

/// The innermost widget that holds all of @p part.
QString nameOfHolder(const QWidget *window, const QRect &part)
{
    const QWidget *holder = window;
    for (const QWidget *child = window->childAt(part.center()); child && child != window;
         child = child->parentWidget()) {
        if (QRect(child->mapTo(window, QPoint()), child->size()).contains(part)) {
            holder = child;
            break;
        }
    }
    return QStringLiteral("%1 \"%2\"")
        .arg(QString::fromLatin1(holder->metaObject()->className()),
             holder->accessibleName().isEmpty() ? holder->objectName() : holder->accessibleName());
}

/// Saves what differs if the environment names a folder for it.
void keepPictures(const QImage &shown, const QImage &fresh)
{
    static int number = 0;
    const QString folder = qEnvironmentVariable("TESSARIL_LOOKS");
    if (folder.isEmpty())
        return;
    ++number;
    shown.save(QDir(folder).filePath(QStringLiteral("%1-shown.png").arg(number)));
    fresh.save(QDir(folder).filePath(QStringLiteral("%1-fresh.png").arg(number)));
}

QString stalePart(QWidget *window)
{
    const QImage shown = onScreen(window);
    const QImage fresh = window->grab().toImage();
    if (shown.size() != fresh.size())
        return QStringLiteral("%1: the screen has another size").arg(window->objectName());
    const QRect part = differingPart(shown, fresh, timesOfPaints(window));
    if (part.isNull())
        return {};
    keepPictures(shown, fresh);
    return QStringLiteral("%1 at %2,%3 %4x%5")
        .arg(nameOfHolder(window, part))
        .arg(part.x())
        .arg(part.y())
        .arg(part.width())
        .arg(part.height());
}

} // namespace

void Screen::holdStill()
{
    QApplication::setCursorFlashTime(0);
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *const window = qobject_cast<QMainWindow *>(widget))
            window->setAnimated(false);
    }
}

QStringList Screen::staleParts()
{
    finishPaints();
    QStringList parts;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (!widget->isVisible() || widget->inherits("QTipLabel"))
            continue;
        if (const QString part = stalePart(widget); !part.isEmpty())
            parts += part;
    }
    return parts;
}
