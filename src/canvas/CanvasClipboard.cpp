#include "canvas/CanvasClipboard.h"

#include "canvas/Canvas.h"
#include "model/Palette.h"

#include <QAction>
#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>

QString CanvasClipboard::mimeType()
{
    return QStringLiteral("tessaril/canvas-anim");
}

void CanvasClipboard::write(const Clip &clip, QMimeData *data)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << clip.offset << clip.type << clip.paletteId;
    clip.image.save(stream.device(), "png");
    data->setData(mimeType(), bytes);
}

bool CanvasClipboard::read(const QMimeData *data, Clip *clip)
{
    if (!data || !data->hasFormat(mimeType()))
        return false;
    const QByteArray bytes = data->data(mimeType());
    if (bytes.isEmpty())
        return false;

    Clip found;
    QDataStream stream(bytes);
    stream >> found.offset >> found.type >> found.paletteId;
    if (stream.status() != QDataStream::Ok || !found.image.load(stream.device(), "png"))
        return false;
    if (found.image.format() == QImage::Format_Grayscale8) {
        // A picture whose colours are a grey ramp comes back as grey; its values are the indices.
        found.image.reinterpretAsFormat(QImage::Format_Indexed8);
        found.image.setColorCount(256);
    }
    if (found.image.format() != QImage::Format_Indexed8)
        return false;
    *clip = found;
    return true;
}

CanvasClipboard::CanvasClipboard(Canvas *canvas)
    : QObject(canvas)
    , m_parent(canvas)
    , m_canvas(canvas)
{
}

void CanvasClipboard::copyToClipboard()
{
    if (!m_parent)
        return;

    const QImage &whole = m_canvas->image();
    Clip clip;
    clip.image = m_canvas->hasSelection() ? whole.copy(m_canvas->selection()) : whole.copy();
    clip.offset = m_canvas->imageOffset();
    clip.type = static_cast<qint32>(m_canvas->imageType());
    if (m_canvas->palette())
        clip.paletteId = m_canvas->palette()->id();

    auto *data = new QMimeData;
    write(clip, data);
    data->setImageData(clip.image);
    QGuiApplication::clipboard()->setMimeData(data);

    const auto *const action = qobject_cast<QAction *>(sender());
    if (action && action->text() == QLatin1String("Cut"))
        emit copied(true);
    emit copied(false);
}

bool CanvasClipboard::pasteFromClipboard()
{
    Clip clip;
    if (!read(QGuiApplication::clipboard()->mimeData(), &clip))
        return false;

    m_offset = clip.offset;
    m_imageType = static_cast<Tessaril::Ui::ImageType>(clip.type);
    m_image = clip.image;
    emit pasted(clip.paletteId);
    return true;
}
