#pragma once

#include <QByteArray>
#include <QIconEngine>
#include <QString>

/// Draws an SVG whose artwork says `currentColor` in a colour of the application palette.
///
/// The colour is taken at each paint: ButtonText of the active group, ButtonText of the disabled
/// group for QIcon::Disabled, HighlightedText for QIcon::Selected. On and off look the same.
/// Pixmaps are kept in QPixmapCache under their colour, so a change of the palette needs no
/// invalidation.
class ThemedIconEngine : public QIconEngine
{
public:
    explicit ThemedIconEngine(const QString &path);
    ~ThemedIconEngine() override;

    /// Draws into @p rect, stretched to it; nothing if the file cannot be read.
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QString key() const override;
    QIconEngine *clone() const override;
    /// Whether the file is missing, unreadable or empty.
    bool isNull() override;
    /// A pixmap of @p size times @p scale pixels, with @p scale as its device pixel ratio.
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override;

private:
    void loadSource();

    QString m_path;      // of the SVG, usually a resource
    QByteArray m_source; // the SVG's text, empty until first needed
};
