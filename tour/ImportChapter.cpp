#include "tour/Tour.h"

#include "formats/NxImage.h"
#include "formats/PictureImport.h"
#include "formats/SpriteImport.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"

namespace {

using Result = PictureImport::Result;

const QString Tecnoballz = QStringLiteral("/usr/share/games/tecnoballz/lores/");
const QString TecnoballzPackage = QStringLiteral("tecnoballz-data");
const QString Kobo = QStringLiteral("/usr/share/kobo-deluxe/gfx/");
const QString KoboPackage = QStringLiteral("kobodeluxe-data");

struct LevelPicture
{
    RealPicture picture;
    Result expected;
};

QList<LevelPicture> levelPictures()
{
    return {
        {{"shop", Tecnoballz + "shop.png", TecnoballzPackage, {0, 0, 256, 128}}, Result::Done},
        {{"plates", Tecnoballz + "tilesmap.png", TecnoballzPackage, {0, 0, 320, 160}},
         Result::Done},
        {{"gigablitz", Tecnoballz + "gigablitz.png", TecnoballzPackage, {0, 0, 64, 564}},
         Result::Done},
        // More colours than 16 banks of 16 take: told, and done as far as it goes.
        {{"sprites", Tecnoballz + "all_sprites.png", TecnoballzPackage, {0, 0, 320, 96}},
         Result::PaletteFull},
        {{"pipes", Kobo + "tiles-green.png", KoboPackage, {0, 0, 256, 96}}, Result::PaletteFull},
        {{"loading", Kobo + "loading3.png", KoboPackage, {0, 0, 500, 189}}, Result::TooManyTiles},
    };
}

QJsonObject described(const RealPicture &picture)
{
    const QRect &part = picture.part;
    return {{"name", picture.name},
            {"source", picture.file},
            {"part", QJsonArray{part.x(), part.y(), part.width(), part.height()}}};
}

void importLevel(Tour &tour, const LevelPicture &level, QJsonArray *manifest)
{
    const QString file = tour.cutOut(level.picture);
    if (file.isEmpty())
        return;

    const auto before = tour.project()->palettes().size();
    PictureImport work(file);
    int steps = 0;
    QObject::connect(&work.slicer(), &ImageSlicer::processed, [&steps](int) { ++steps; });
    const PictureImport::Outcome outcome = work.run(tour.project());

    const QString &name = level.picture.name;
    tour.tell(name, QStringLiteral("%1 squares are %2 tiles").arg(steps).arg(outcome.tileCount),
              outcome.message().section(u'\n', 0, 0));
    tour.check(outcome.result == level.expected && steps == work.squareCount(), name,
               QStringLiteral("imported as expected"));
    if (!outcome.map) {
        tour.check(tour.project()->palettes().size() == before, name,
                   QStringLiteral("nothing is left of it"));
        return;
    }
    tour.levels.append(
        {name, outcome.palette->id(), outcome.tileSet->id(), outcome.map->id(), outcome.tileCount});
    QJsonObject entry = described(level.picture);
    entry["tiles"] = outcome.tileCount;
    entry["full"] = outcome.result == Result::PaletteFull;
    manifest->append(entry);
}

void importLevels(Tour &tour)
{
    QJsonArray manifest;
    for (const LevelPicture &level : levelPictures())
        importLevel(tour, level, &manifest);
    tour.manifest["levels"] = manifest;
}

void importSprites(Tour &tour)
{
    const RealPicture sheet{
        "eyes", Tecnoballz + "all_sprites.png", TecnoballzPackage, {0, 640, 320, 112}};
    const QString file = tour.cutOut(sheet);
    if (file.isEmpty())
        return;

    const auto own = SpriteImport::importSheet(tour.project(), nullptr, file,
                                               SpriteImport::ImagePalette, QUuid());
    tour.banks.append(own.bank->id());
    tour.tell(sheet.name, QStringLiteral("sprites with their own palette"),
              QString::number(own.bank->count()));
    QJsonObject entry = described(sheet);
    entry["sprites"] = own.bank->count();

    const QUuid standard = tour.project()->createPalette(CreateDefault, "standard")->id();
    const auto matched = SpriteImport::importSheet(tour.project(), nullptr, file,
                                                   SpriteImport::ProjectPalette, standard);
    matched.bank->setName(QStringLiteral("eyes matched"));
    tour.banks.append(matched.bank->id());
    tour.tell(sheet.name, QStringLiteral("sprites matched to the standard palette"),
              QString::number(matched.bank->count()));
    entry["matched"] = matched.bank->count();
    tour.manifest["sheet"] = entry;
}

void importImage(Tour &tour)
{
    const RealPicture screen{"screen", Kobo + "loading3.png", KoboPackage, {90, 0, 320, 189}};
    const QString file = tour.cutOut(screen);
    if (file.isEmpty())
        return;

    const QPointer<Palette> palette = tour.project()->createPalette(CreateDefault, "screen");
    const QPointer<Image> image = tour.project()->createImage(
        Tessaril::ImageMode::Layer2_320x256, QStringLiteral("screen"), palette->id());
    QImage page(Image::sizeOf(image->mode()), QImage::Format_RGB32);
    page.fill(Qt::black);
    const QImage picture(file);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            page.setPixel(x, y, picture.pixel(x, y));
    }
    NxImage converted;
    converted.setImage(page);
    image->setImage(converted.remap(palette));
    tour.image = image->id();
    tour.tell(screen.name, QStringLiteral("colours matched for a Layer 2 image"),
              QString::number(converted.colours().size()));
    QJsonObject entry = described(screen);
    entry["id"] = image->id().toString();
    entry["size"] = QJsonArray{page.width(), page.height()};
    tour.manifest["image"] = entry;
}

} // namespace

void importChapter(Tour &tour)
{
    tour.beginChapter(QStringLiteral("Pictures become tiles, maps, sprites and an image"));
    importLevels(tour);
    importSprites(tour);
    importImage(tour);
}
