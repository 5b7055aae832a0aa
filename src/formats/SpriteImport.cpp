#include "formats/SpriteImport.h"

#include "formats/FileBytes.h"
#include "formats/ImageSlicer.h"
#include "formats/NextFormats.h"
#include "formats/PictureFile.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"

#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace {

QPointer<SpriteBank> createBank(Project *project, const QString &fileName, const QUuid &paletteId)
{
    return project->createSpriteBank(Tessaril::Sprite::EightBit, QFileInfo(fileName).baseName(),
                                     paletteId);
}

/// Writes @p added pictures into the sprites from @p first on. The bank grows once, not once for
/// each sprite, but announces them as single additions.
void writeSprites(SpriteBank *bank, int first, int added,
                  const std::function<QImage(int number)> &picture)
{
    const int before = bank->count();
    bank->grow(std::max(0, first + added - before));
    for (int number = 0; number < added; ++number) {
        if (first + number >= before)
            emit bank->countChanged();
        bank->setImage(first + number, picture(number));
    }
}

/// The picture of one raw sprite. It needs no colours: a bank takes the indices.
QImage rawSprite(const QByteArray &data, int number)
{
    QImage sprite(SpriteBank::SpriteSide, SpriteBank::SpriteSide, QImage::Format_Indexed8);
    std::copy_n(data.cbegin() + qsizetype(number) * NextFormats::SpriteBytes,
                NextFormats::SpriteBytes, sprite.bits());
    return sprite;
}

QPointer<SpriteBank> importWithOwnPalette(Project *project, const QString &fileName)
{
    const QString name = QFileInfo(fileName).baseName();
    const QPointer<Palette> palette = project->createPalette(CreateBlank, name);
    const QPointer<SpriteBank> bank = createBank(project, fileName, palette->id());

    const QImage picture = PictureFile::read(fileName);
    if (picture.isNull())
        qInfo("Failed to load image");
    ImageSlicer slicer(picture);
    slicer.sliceSprites();
    writeSprites(bank, 0, static_cast<int>(slicer.tiles().size()),
                 [&slicer](int number) { return slicer.tiles().at(number).image; });
    for (int index = 0; index < slicer.colours().size(); ++index)
        palette->setColour(index, QColor(slicer.colours().at(index)));
    return bank;
}

} // namespace

SpriteImport::Outcome SpriteImport::importSheet(Project *project, SpriteBank *current,
                                                const QString &fileName, int actions,
                                                const QUuid &paletteId)
{
    if ((actions & Append) && current) {
        current->importImage(fileName);
        return {current, false};
    }
    if (actions & ProjectPalette) {
        const QPointer<SpriteBank> bank = createBank(project, fileName, paletteId);
        bank->importImage(fileName);
        return {bank, true};
    }
    if (actions & ImagePalette)
        return {importWithOwnPalette(project, fileName), true};
    return {};
}

SpriteImport::Outcome SpriteImport::importRaw(Project *project, SpriteBank *current,
                                              const QString &fileName, int actions,
                                              const QUuid &paletteId)
{
    Outcome outcome{current, false};
    if (!(actions & AppendRaw) || !current) {
        QUuid palette = paletteId;
        if (actions & CreatePalette)
            palette = project->createPalette(CreateDefault, QStringLiteral("Default Next"))->id();
        outcome = {createBank(project, fileName, palette), true};
    }
    const QByteArray data = FileBytes::read(fileName).value_or(QByteArray());
    writeSprites(outcome.bank, outcome.bank->count(),
                 static_cast<int>(data.size() / NextFormats::SpriteBytes),
                 [&data](int number) { return rawSprite(data, number); });
    return outcome;
}
