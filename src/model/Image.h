#pragma once

#include "model/Enums.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QUuid>

class Palette;

/// A document: one full-screen picture, 8-bit indexed, bound to a palette. Data only; the editor
/// keeps its colour table current.
class Image : public QObject
{
    Q_OBJECT

public:
    /// A picture of the mode's size, all pixels 0, without a colour table; @p parent is the
    /// project.
    explicit Image(Tessaril::ImageMode mode, QObject *parent = nullptr);

    /// The size of a mode in pixels; that of the first mode for a value that is none.
    static QSize sizeOf(Tessaril::ImageMode mode);

    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    QString name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    Tessaril::ImageMode mode() const { return m_mode; }
    void setMode(Tessaril::ImageMode mode) { m_mode = mode; }
    QPointer<Palette> palette() const { return m_palette; }
    const QImage &image() const { return m_image; }

    /// Binds a palette; a valid one gives the picture its colour table.
    void setPalette(const QPointer<Palette> &palette);
    /// Takes over the pixels. A bound palette's colours win over the picture's own table. A picture
    /// that is not QImage::Format_Indexed8 changes nothing.
    void setImage(const QImage &image);

private:
    QString m_name;
    QUuid m_id;
    QPointer<Palette> m_palette;
    QImage m_image;
    Tessaril::ImageMode m_mode;
};
