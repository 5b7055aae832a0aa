#include "Sweep.h"

#include "history/MapEditCommand.h"
#include "history/PixelEditCommand.h"
#include "model/Image.h"
#include "support/ModelBytes.h"
#include "support/RecordedProject.h"

#include <QRandomGenerator>
#include <QTest>

#include <functional>

/// Any sequence of edits of every kind of document, with steps back and forth between them, undone
/// and redone, gives the same archive and the same model. A sequence that does not is shortened to
/// the steps that it takes, and told.
class tst_UndoProperty : public QObject
{
    Q_OBJECT

private slots:
    void everyKindOfStepCounts_data();
    void everyKindOfStepCounts();
    void sequencesUndoAndRedoWholly();
    void aFailureIsShortened();
};

namespace {

/// An edit: which, and what decides its places and values.
struct Step
{
    int kind;
    quint32 seed;
};
using Steps = QList<Step>;

const QStringList KindNames{"insert a tile",
                            "delete a tile",
                            "copy a tile",
                            "draw on a tile",
                            "scroll a tile",
                            "add a sprite",
                            "delete a sprite",
                            "move a sprite",
                            "copy a sprite",
                            "change a cell of a frame",
                            "resize an animation",
                            "delay an animation",
                            "add or take out a frame",
                            "change the kind of a block",
                            "paint a map",
                            "resize a map",
                            "place or move sprites",
                            "place blocks",
                            "change a colour",
                            "draw on an image",
                            "draw on the scratch image",
                            "go back",
                            "go forth"};
enum Kind {
    InsertTile,
    DeleteTile,
    CopyTile,
    DrawTile,
    ScrollTile,
    AddSprite,
    DeleteSprite,
    MoveSprite,
    CopySprite,
    ChangeCell,
    ResizeAnimation,
    DelayAnimation,
    ChangeFrames,
    ChangeType,
    PaintMap,
    ResizeMap,
    PlaceSprites,
    PlaceBlocks,
    ChangeColour,
    DrawImage,
    DrawScratch,
    GoBack,
    GoForth,
    KindCount
};

/// One document of each kind, and one stack for all.
struct Documents : RecordedProject
{
    Documents()
        : image(project.createImage(Tessaril::ImageMode::LoRes_128x96, QStringLiteral("Title"),
                                    palette->id()))
        , stack(stackOf(QUuid()))
    {
        stacks.setActive(QUuid());
        // As the open editor of the image does.
        QObject::connect(palette, &Palette::colourChanged, image.data(),
                         [this] { image->setImage(image->image()); });
        project.setScratchImage(QImage(16, 16, QImage::Format_Indexed8));
        clear(&project);
    }

    static void clear(Project *project)
    {
        QImage scratch = project->scratchImage();
        scratch.setColorCount(256);
        scratch.fill(1);
        project->setScratchImage(scratch);
    }

    QPointer<Image> image;
    QUndoStack *stack;
};

void changeMap(Documents &set, const std::function<void(Map *)> &change)
{
    const Map::State before = set.map->state();
    change(set.map);
    set.stacks.recordingStack(set.map->id())
        ->push(new MapEditCommand(QStringLiteral("Draw"), set.map, before, set.map->state()));
}

void changeSprites(Documents &set, const std::function<void(SpriteBank *)> &change)
{
    emit set.sprites->structureAboutToChange();
    change(set.sprites);
    emit set.sprites->structureChanged(QStringLiteral("Sprites"));
}

/// Changes a pixel as a canvas does, or scrolls, which merges.
void draw(Documents &set, QImage before, const PixelEditCommand::Apply &apply, int key,
          PixelEditCommand::Kind kind, QRandomGenerator &random)
{
    QImage after = before;
    for (int count = random.bounded(1, 4); count > 0; --count)
        after.setPixel(random.bounded(before.width()), random.bounded(before.height()),
                       random.bounded(256));
    apply(after);
    set.stack->push(new PixelEditCommand(QStringLiteral("Draw"), before, after, apply, key, kind));
}

AnimationFrame::Cell anyCell(QRandomGenerator &random)
{
    return {random.bounded(-2, 12), random.bounded(16), random.bounded(2) == 0,
            random.bounded(2) == 0, random.bounded(2) == 0};
}

void changeCell(Animation *animation, QRandomGenerator &random)
{
    if (animation->frameCount() == 0 || animation->size().isEmpty())
        return;
    AnimationFrame *frame = animation->frame(random.bounded(animation->frameCount()));
    frame->setCell(
        {random.bounded(animation->size().width()), random.bounded(animation->size().height())},
        anyCell(random));
    frame->notifyChanged();
}

void paint(Map *map, QRandomGenerator &random)
{
    const auto layer = random.bounded(2) ? map->tileLayer() : map->objectLayer();
    if (layer->rect().isEmpty())
        return;
    for (int count = random.bounded(1, 9); count > 0; --count) {
        layer->setCell({random.bounded(layer->width()), random.bounded(layer->height())},
                       {random.bounded(9), random.bounded(2) == 0, false, random.bounded(2) == 0,
                        random.bounded(16), random.bounded(2) == 0});
    }
}

void editTiles(Documents &set, int kind, QRandomGenerator &random)
{
    TileSet *tiles = set.tileSet;
    const int tile = random.bounded(std::max(1, tiles->count()));
    if (kind == InsertTile)
        tiles->insertTile(random.bounded(tiles->count() + 1));
    else if (kind == DeleteTile && tiles->count() > 3)
        tiles->deleteTile(tile);
    else if (kind == CopyTile)
        tiles->copyTile(tile, random.bounded(tiles->count()));
    else
        draw(
            set, tiles->tile(tile)->image(),
            [tiles = set.tileSet, tile](const QImage &image) {
                tiles->tile(tile)->setImage(image);
            },
            tile,
            kind == ScrollTile ? PixelEditCommand::Kind::Scroll : PixelEditCommand::Kind::Edit,
            random);
}

void editSprites(Documents &set, int kind, QRandomGenerator &random)
{
    const int value = random.bounded(1'000);
    changeSprites(set, [kind, value](SpriteBank *bank) {
        const int sprite = value % bank->count();
        if (kind == AddSprite)
            bank->addSprite();
        else if (kind == DeleteSprite)
            bank->deleteSprite(sprite);
        else if (kind == MoveSprite)
            bank->moveSprite(sprite, value / 7 % bank->count());
        else
            bank->setImage(sprite, bank->sprite(value / 7 % bank->count()));
    });
}

void editAnimations(Documents &set, int kind, QRandomGenerator &random)
{
    Animation *animation = random.bounded(2) ? static_cast<Animation *>(set.animation)
                                             : static_cast<Animation *>(set.block);
    if (kind == ChangeCell)
        changeCell(animation, random);
    else if (kind == ResizeAnimation)
        animation->setSize({random.bounded(1, 5), random.bounded(1, 5)});
    else if (kind == DelayAnimation)
        animation->setDelay(random.bounded(30));
    else if (kind == ChangeType)
        set.block->setMapObjectType(MapObjectType(random.bounded(3)));
    else if (random.bounded(2) || animation->frameCount() < 2) {
        animation->addFrame();
        animation->notifyContentChanged();
    } else {
        animation->removeFrame(random.bounded(animation->frameCount()));
    }
}

void placeSprites(Documents &set, QRandomGenerator &random)
{
    QList<Map::PlacedSprite> &sprites = set.map->sprites();
    const int what = random.bounded(3);
    if (what == 0 && !sprites.isEmpty())
        sprites.removeAt(random.bounded(sprites.size()));
    else if (what == 1 && !sprites.isEmpty())
        sprites[random.bounded(sprites.size())].x = random.bounded(-50, 400);
    else
        sprites.append({set.sprites->id(), random.bounded(2) ? QUuid() : set.animation->id(),
                        random.bounded(set.sprites->count()), random.bounded(400),
                        random.bounded(300), random.bounded(2) == 0, false, true, random.bounded(5),
                        random.bounded(9), random.bounded(9), random.bounded(16),
                        QString::number(random.bounded(100))});
}

void placeBlocks(Documents &set, QRandomGenerator &random)
{
    const QPoint at(random.bounded(6), random.bounded(4));
    set.map->addAnimation({set.block->id(), QRect(at, set.block->size()), random.bounded(9),
                           random.bounded(9), random.bounded(3)});
    set.map->stampAnimation(set.block, at);
}

void editMap(Documents &set, int kind, QRandomGenerator &random)
{
    changeMap(set, [&](Map *map) {
        if (kind == PaintMap)
            paint(map, random);
        else if (kind == ResizeMap)
            map->resize({random.bounded(1, 12), random.bounded(1, 12)}, Qt::AlignCenter);
        else if (kind == PlaceSprites)
            placeSprites(set, random);
        else
            placeBlocks(set, random);
    });
}

void editPictures(Documents &set, int kind, QRandomGenerator &random)
{
    const auto pixels =
        random.bounded(2) ? PixelEditCommand::Kind::Scroll : PixelEditCommand::Kind::Edit;
    if (kind == DrawImage) {
        draw(
            set, set.image->image(),
            [image = set.image](const QImage &picture) { image->setImage(picture); }, -1, pixels,
            random);
    } else {
        draw(
            set, set.project.scratchImage(),
            [project = &set.project](const QImage &picture) { project->setScratchImage(picture); },
            -2, pixels, random);
    }
}

void apply(Documents &set, const Step &step)
{
    QRandomGenerator random(step.seed);
    set.wait(random.bounded(400));
    if (step.kind <= ScrollTile)
        editTiles(set, step.kind, random);
    else if (step.kind <= CopySprite)
        editSprites(set, step.kind, random);
    else if (step.kind <= ChangeType)
        editAnimations(set, step.kind, random);
    else if (step.kind <= PlaceBlocks)
        editMap(set, step.kind, random);
    else if (step.kind == ChangeColour)
        set.palette->setColour(random.bounded(256), QColor::fromRgb(random.generate()),
                               random.bounded(4) == 0);
    else if (step.kind <= DrawScratch)
        editPictures(set, step.kind, random);
    else
        set.stack->setIndex(set.stack->index() +
                            (step.kind == GoBack ? -1 : 1) * random.bounded(1, 6));
}

struct Whole
{
    QByteArray model;
    QMap<QString, QByteArray> archive;

    bool operator==(const Whole &) const = default;
};

Whole wholeOf(const Documents &set)
{
    return {modelBytes(set.project), set.project.archiveEntries(false)};
}

/// Whether all edits undone are the beginning, and redone the end, twice.
bool holds(const Steps &steps)
{
    Documents set;
    QUndoStack *stack = set.stack;
    const Whole before = wholeOf(set);
    for (const Step &step : steps)
        apply(set, step);
    const Whole after = wholeOf(set);
    const int end = stack->index();
    for (int round = 0; round < 2; ++round) {
        stack->setIndex(0);
        if (!(wholeOf(set) == before))
            return false;
        stack->setIndex(end);
        if (!(wholeOf(set) == after))
            return false;
    }
    return true;
}

/// The steps without those that a failure does not need.
Steps shrunk(Steps steps, const std::function<bool(const Steps &)> &isGood)
{
    for (qsizetype i = steps.size() - 1; i >= 0; --i) {
        Steps fewer = steps;
        fewer.removeAt(i);
        if (!isGood(fewer))
            steps = fewer;
    }
    return steps;
}

QString textOf(const Steps &steps)
{
    QStringList texts;
    for (const Step &step : steps)
        texts += QStringLiteral("{%1, %2u}").arg(step.kind).arg(step.seed);
    return texts.join(QStringLiteral(", "));
}

} // namespace

void tst_UndoProperty::everyKindOfStepCounts_data()
{
    QTest::addColumn<int>("kind");
    QCOMPARE(KindNames.size(), qsizetype(KindCount));
    for (int kind = 0; kind < KindCount; ++kind)
        QTest::newRow(qPrintable(KindNames.at(kind))) << kind;
}

/// Of each kind some step changes the project, or a step of it would test nothing.
void tst_UndoProperty::everyKindOfStepCounts()
{
    QFETCH(int, kind);
    int changes = 0;
    for (quint32 seed = 0; seed < 10; ++seed) {
        Documents set;
        apply(set, {PaintMap, 1});
        if (kind == GoForth)
            set.stack->setIndex(0);
        const Whole before = wholeOf(set);
        apply(set, {kind, seed});
        changes += wholeOf(set) == before ? 0 : 1;
        QVERIFY(holds({{PaintMap, 1}, {kind, seed}}));
    }
    QVERIFY(changes > 0);
}

void tst_UndoProperty::sequencesUndoAndRedoWholly()
{
    const int sequences = Sweep::count(25, 2000);
    qint64 edits = 0;
    for (quint32 seed = 1; seed <= quint32(sequences); ++seed) {
        QRandomGenerator random(seed);
        Steps steps;
        for (int count = random.bounded(1, 60); count > 0; --count)
            steps.append({random.bounded(KindCount), random.generate()});
        edits += steps.size();
        QVERIFY2(holds(steps), qPrintable(textOf(shrunk(steps, holds))));
    }
    Sweep::report(
        QStringLiteral("Undo: %1 sequences of %2 edits, all equal").arg(sequences).arg(edits));
}

void tst_UndoProperty::aFailureIsShortened()
{
    Steps steps;
    for (int i = 0; i < 40; ++i)
        steps.append({i % KindCount, quint32(i)});
    // As if a deleted tile could not be brought back after the map was resized.
    const auto isGood = [](const Steps &some) {
        bool isDeleted = false;
        for (const Step &step : some) {
            isDeleted = isDeleted || step.kind == DeleteTile;
            if (isDeleted && step.kind == ResizeMap)
                return false;
        }
        return true;
    };

    const Steps fewest = shrunk(steps, isGood);

    QCOMPARE(fewest.size(), 2);
    QCOMPARE(fewest.first().kind, int(DeleteTile));
    QCOMPARE(fewest.last().kind, int(ResizeMap));
}

QTEST_GUILESS_MAIN(tst_UndoProperty)
#include "tst_UndoProperty.moc"
