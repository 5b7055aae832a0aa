#include "editors/SpriteDrag.h"

#include <QDataStream>
#include <QMimeData>

namespace SpriteDrag {

QString mimeType()
{
    return QStringLiteral("tessaril/sprite-drag-anim");
}

std::unique_ptr<QMimeData> mimeData(int index)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(index);
    auto data = std::make_unique<QMimeData>();
    data->setData(mimeType(), bytes);
    return data;
}

std::optional<int> index(const QMimeData *data)
{
    if (!data || !data->hasFormat(mimeType()))
        return std::nullopt;

    QDataStream stream(data->data(mimeType()));
    qint32 index = -1;
    stream >> index;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    return index;
}

} // namespace SpriteDrag
