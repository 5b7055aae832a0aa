#include "editors/TileDrag.h"

#include <QDataStream>
#include <QMimeData>

namespace TileDrag {

QString mimeType()
{
    return QStringLiteral("tessaril/tile-drag-anim");
}

std::unique_ptr<QMimeData> mimeData(const Content &content)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(content.index) << qint32(content.offset);
    auto data = std::make_unique<QMimeData>();
    data->setData(mimeType(), bytes);
    return data;
}

std::optional<Content> content(const QMimeData *data)
{
    if (!data || !data->hasFormat(mimeType()))
        return std::nullopt;

    QDataStream stream(data->data(mimeType()));
    qint32 index = -1;
    qint32 offset = 0;
    stream >> index >> offset;
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return std::nullopt;
    return Content{index, offset};
}

} // namespace TileDrag
