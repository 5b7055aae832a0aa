#include "Sweep.h"

#include "history/MapEditCommand.h"
#include "history/PixelEditCommand.h"
#include "support/ModelBytes.h"
#include "support/RecordedProject.h"

#include <QRandomGenerator>
#include <QTest>

#include <functional>

/// Any sequence of edits, undone and redone, gives the same archive and the same model. A sequence
/// that does not is shortened to the steps that it takes, and told.
class tst_UndoProperty : public QObject
{
    Q_OBJECT

private slots:
    void sequencesUndoAndRedoWholly();
};

namespace {

/// An edit: which, and what decides its places and values.
struct Step
{
    int kind;
    quint32 seed;
};
using Steps = QList<Step>;

constexpr int KindCount = 15;

void changeMap(RecordedProject &set, const std::function<void(Map *)> &change)
{
    const Map::State before = set.map->state();
    change(set.map);
    set.stacks.recordingStack(set.map->id())
        ->push(new MapEditCommand(QStringLiteral("Draw"), set.map, before, set.map->state()));
}

void changeSprites(RecordedProject &set, const std::function<void(SpriteBank *)> &change)
{
    emit set.sprites->structureAboutToChange();
    change(set.sprites);
    emit set.sprites->structureChanged(QStringLiteral("Sprites"));
}

void draw(RecordedProject &set, int tile, uint value)
{
    const QImage before = set.tileSet->tile(tile)->image();
    QImage after = before;
    after.setPixel(int(value % 8), int(value / 8 % 8), value % 256);
    const auto apply = [tiles = set.tileSet, tile](const QImage &image) {
        tiles->tile(tile)->setImage(image);
    };
    apply(after);
    set.stacks.recordingStack(set.tileSet->id())
        ->push(new PixelEditCommand(QStringLiteral("Draw"), before, after, apply, tile,
                                    PixelEditCommand::Kind::Edit));
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

void editTiles(RecordedProject &set, int kind, QRandomGenerator &random)
{
    TileSet *tiles = set.tileSet;
    const int tile = random.bounded(std::max(1, tiles->count()));
    if (kind == 0)
        tiles->insertTile(random.bounded(tiles->count() + 1));
    else if (kind == 1 && tiles->count() > 3)
        tiles->deleteTile(tile);
    else if (kind == 2)
        tiles->copyTile(tile, random.bounded(tiles->count()));
    else
        draw(set, tile, random.generate());
}

void editSprites(RecordedProject &set, int kind, QRandomGenerator &random)
{
    const int value = random.bounded(1'000);
    changeSprites(set, [kind, value](SpriteBank *bank) {
        const int sprite = value % bank->count();
        if (kind == 4)
            bank->addSprite();
        else if (kind == 5)
            bank->deleteSprite(sprite);
        else if (kind == 6)
            bank->moveSprite(sprite, value / 7 % bank->count());
        else
            bank->setImage(sprite, bank->sprite(value / 7 % bank->count()));
    });
}

void editAnimations(RecordedProject &set, int kind, QRandomGenerator &random)
{
    Animation *animation = random.bounded(2) ? static_cast<Animation *>(set.animation)
                                             : static_cast<Animation *>(set.block);
    if (kind == 8)
        changeCell(animation, random);
    else if (kind == 9)
        animation->setSize({random.bounded(1, 5), random.bounded(1, 5)});
    else if (kind == 10)
        animation->setDelay(random.bounded(30));
    else if (random.bounded(2) || animation->frameCount() < 2) {
        animation->addFrame();
        animation->notifyContentChanged();
    } else {
        animation->removeFrame(random.bounded(animation->frameCount()));
    }
}

void apply(RecordedProject &set, const Step &step)
{
    QRandomGenerator random(step.seed);
    set.wait(random.bounded(400));
    if (step.kind < 4)
        editTiles(set, step.kind, random);
    else if (step.kind < 8)
        editSprites(set, step.kind, random);
    else if (step.kind < 12)
        editAnimations(set, step.kind, random);
    else if (step.kind == 12)
        changeMap(set, [&random](Map *map) { paint(map, random); });
    else if (step.kind == 13)
        changeMap(set, [&random](Map *map) {
            map->resize({random.bounded(1, 12), random.bounded(1, 12)}, Qt::AlignCenter);
        });
    else
        set.palette->setColour(random.bounded(256), QColor::fromRgb(random.generate()), false);
}

struct Whole
{
    QByteArray model;
    QMap<QString, QByteArray> archive;

    bool operator==(const Whole &) const = default;
};

Whole wholeOf(const RecordedProject &set)
{
    return {modelBytes(set.project), set.project.archiveEntries(false)};
}

/// Whether all edits undone are the beginning, and redone the end, twice.
bool holds(const Steps &steps)
{
    RecordedProject set;
    QUndoStack *stack = set.stackOf(QUuid());
    set.stacks.setActive(QUuid());
    const Whole before = wholeOf(set);
    for (const Step &step : steps)
        apply(set, step);
    const Whole after = wholeOf(set);
    for (int round = 0; round < 2; ++round) {
        stack->setIndex(0);
        if (!(wholeOf(set) == before))
            return false;
        stack->setIndex(stack->count());
        if (!(wholeOf(set) == after))
            return false;
    }
    return true;
}

/// The steps without those that a failure does not need.
Steps shrunk(Steps steps)
{
    for (qsizetype i = steps.size() - 1; i >= 0; --i) {
        Steps fewer = steps;
        fewer.removeAt(i);
        if (!holds(fewer))
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

void tst_UndoProperty::sequencesUndoAndRedoWholly()
{
    const int sequences = Sweep::count(15, 5000);
    qint64 edits = 0;
    for (quint32 seed = 1; seed <= quint32(sequences); ++seed) {
        QRandomGenerator random(seed);
        Steps steps;
        for (int count = random.bounded(1, 60); count > 0; --count)
            steps.append({random.bounded(KindCount), random.generate()});
        edits += steps.size();
        QVERIFY2(holds(steps), qPrintable(textOf(shrunk(steps))));
    }
    Sweep::report(
        QStringLiteral("Undo: %1 sequences of %2 edits, all equal").arg(sequences).arg(edits));
}

QTEST_GUILESS_MAIN(tst_UndoProperty)
#include "tst_UndoProperty.moc"
