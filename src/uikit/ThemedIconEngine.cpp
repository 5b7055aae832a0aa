#include "uikit/ThemedIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

QColor tint(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return palette.color(QPalette::Active, QPalette::ButtonText);
}

QString cacheKey(const QString &path, QSize pixels, QColor colour)
{
    return QStringLiteral("themed:%1:%2x%3:%4")
        .arg(path, QString::number(pixels.width()), QString::number(pixels.height()),
             QString::number(colour.rgba()));
}

} // namespace

ThemedIconEngine::ThemedIconEngine(const QString &path)
    : m_path(path)
{
}

ThemedIconEngine::~ThemedIconEngine() = default;

void ThemedIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
                             QIcon::State state)
{
    Q_UNUSED(state)
    loadSource();
    if (m_source.isEmpty())
        return;

    QByteArray tinted = m_source;
    tinted.replace("currentColor", tint(mode).name().toLatin1());
    QSvgRenderer renderer(tinted);
    renderer.render(painter, QRectF(rect));
}

QSize ThemedIconEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    Q_UNUSED(mode)
    Q_UNUSED(state)
    return size;
}

QPixmap ThemedIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1.0);
}

QString ThemedIconEngine::key() const
{
    return QStringLiteral("ThemedIconEngine");
}

QIconEngine *ThemedIconEngine::clone() const
{
    return new ThemedIconEngine(*this);
}

bool ThemedIconEngine::isNull()
{
    loadSource();
    return m_source.isEmpty();
}

QPixmap ThemedIconEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state,
                                       qreal scale)
{
    const QSize pixels(qRound(size.width() * scale), qRound(size.height() * scale));
    const QString key = cacheKey(m_path, pixels, tint(mode));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) {
        // 48 by 48 at scale 1 and 24 by 24 at scale 2 are one entry.
        pixmap.setDevicePixelRatio(scale);
        return pixmap;
    }

    pixmap = QPixmap(pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, pixmap.rect(), mode, state);
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void ThemedIconEngine::loadSource()
{
    if (!m_source.isEmpty())
        return;

    QFile file(m_path);
    if (file.open(QIODevice::ReadOnly))
        m_source = file.readAll();
}
