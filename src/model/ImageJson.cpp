#include "model/ImageJson.h"

#include "model/ArchiveNames.h"
#include "model/ArchivePicture.h"
#include "model/Image.h"
#include "model/JsonValues.h"
#include "model/LoadContext.h"
#include "model/Palette.h"

using namespace Qt::StringLiterals;

namespace ImageJson {

QJsonObject write(const Image &image)
{
    return {{"id"_L1, image.id().toString()},
            {"name"_L1, image.name()},
            {"palette"_L1, JsonValues::idTextOrEmpty(image.palette())},
            {"type"_L1, static_cast<int>(image.mode())}};
}

QByteArray picture(const Image &image)
{
    // Without an open editor the document's own colours may be of before a change.
    QImage picture = image.image();
    if (image.palette())
        picture.setColorTable(image.palette()->colourTable());
    return ArchivePicture::encoded(picture);
}

bool read(const QJsonObject &object, LoadContext &context)
{
    const QUuid id = JsonValues::id(object, "id"_L1);
    const QString name = object.value("name"_L1).toString();
    const std::optional<QImage> pixels =
        ArchivePicture::decodedIndices(context.entry(ArchiveNames::image(id)));
    if (!pixels)
        return context.fail(QStringLiteral("Failed to load tile image %1").arg(name));
    if (!context.takePixels(pixels->size()))
        return false;

    using Tessaril::ImageMode;
    auto *image = new Image(JsonValues::enumerator(object, "type"_L1, ImageMode::Layer2_256x192,
                                                   ImageMode::LoRes_128x96),
                            context.project());
    image->setId(id);
    image->setName(name);
    if (const QPointer<Palette> palette =
            context.project()->palette(JsonValues::id(object, "palette"_L1)))
        image->setPalette(palette);
    image->setImage(*pixels);
    context.project()->addImage(image);
    return true;
}

} // namespace ImageJson
