#include "history/EditRecorder.h"
#include "history/MapEditCommand.h"
#include "history/PixelEditCommand.h"

#include "support/ModelBytes.h"
#include "support/RecordedProject.h"

#include <QRandomGenerator>
#include <QTest>

#include <functional>

namespace {

using Edit = std::function<void(RecordedProject &)>;

struct NamedEdit
{
    const char *name;
    Edit edit;
};

/// The model and what a save would write of it.
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

// As the sprite window does around every change of the bank.
Edit sprites(const char *text, const std::function<void(SpriteBank *)> &change)
{
    return [text, change](RecordedProject &set) {
        emit set.sprites->structureAboutToChange();
        change(set.sprites);
        emit set.sprites->structureChanged(QString::fromLatin1(text));
    };
}

// As the map view does around every batch.
Edit map(const std::function<void(RecordedProject &)> &change)
{
    return [change](RecordedProject &set) {
        const Map::State before = set.map->state();
        change(set);
        set.stacks.recordingStack(set.map->id())
            ->push(new MapEditCommand(QStringLiteral("Draw"), set.map, before, set.map->state()));
    };
}

// As the tile window does after a stroke; @p tile counts from the end if it is negative.
Edit stroke(int tile, int value, PixelEditCommand::Kind kind)
{
    return [tile, value, kind](RecordedProject &set) {
        const int index = tile < 0 ? set.tileSet->count() + tile : tile;
        const QImage before = set.tileSet->tile(index)->image();
        QImage after = before;
        after.setPixel(index % Tile::Side, 3, static_cast<uint>(value));
        const auto apply = [tiles = set.tileSet, index](const QImage &image) {
            tiles->tile(index)->setImage(image);
        };
        apply(after);
        set.stacks.recordingStack(set.tileSet->id())
            ->push(new PixelEditCommand(QStringLiteral("Draw"), before, after, apply, index, kind));
    };
}

Edit moveTile(int from, int to)
{
    return [from, to](RecordedProject &set) {
        TileSet *tiles = set.tileSet;
        emit tiles->structureAboutToChange();
        const int step = from < to ? 1 : -1;
        for (int place = from; place != to; place += step) {
            const QImage lifted = tiles->tile(place)->image();
            tiles->tile(place)->setImage(tiles->tile(place + step)->image());
            tiles->tile(place + step)->setImage(lifted);
            emit tiles->tileSwapped(place, place + step);
        }
        emit tiles->structureChanged(QStringLiteral("Move Tile"));
    };
}

Edit cell(bool block, AnimationFrame::Cell content)
{
    return [block, content](RecordedProject &set) {
        Animation *animation = block ? static_cast<Animation *>(set.block) : set.animation;
        AnimationFrame *frame = animation->frame(0);
        frame->setCell({0, 0}, content);
        frame->notifyChanged();
    };
}

void paint(RecordedProject &set, TileMap *layer, QRect rect, int index)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            layer->setCell({x, y}, {index, true, false, true, set.map->sprites().size() > 2, true});
    }
}

QList<NamedEdit> paletteEdits()
{
    return {
        {"colour", [](auto &set) { set.palette->setColour(3, Qt::magenta, false); }},
        {"colour with priority", [](auto &set) { set.palette->setColour(200, Qt::red, true); }},
        {"priority alone",
         [](auto &set) { set.palette->setColour(0, set.palette->colour(0), true); }},
        {"level six, which cannot be set again",
         [](auto &set) { set.palette->setColour(0xDB, Qt::black, false); }},
        {"colour by an import", [](auto &set) { set.palette->setColour(17, QColor(1, 99, 180)); }},
        {"sixteen colours at once",
         [](auto &set) {
             for (int index = 16; index < 32; ++index)
                 set.palette->setColour(index, QColor(index * 7, 20, 90), false);
         }},
    };
}

QList<NamedEdit> tileEdits()
{
    return {
        {"insert the first tile", [](auto &set) { set.tileSet->insertTile(0); }},
        {"insert a tile", [](auto &set) { set.tileSet->insertTile(3); }},
        {"insert behind the last tile",
         [](auto &set) { set.tileSet->insertTile(set.tileSet->count()); }},
        {"delete the first tile", [](auto &set) { set.tileSet->deleteTile(0); }},
        {"delete a tile", [](auto &set) { set.tileSet->deleteTile(2); }},
        {"delete the last tile",
         [](auto &set) { set.tileSet->deleteTile(set.tileSet->count() - 1); }},
        {"copy a tile", [](auto &set) { set.tileSet->copyTile(1, 4); }},
        {"move a tile up", moveTile(0, 3)},
        {"move a tile down", moveTile(5, 2)},
        {"draw on a tile", stroke(1, 9, PixelEditCommand::Kind::Edit)},
        {"scroll a tile", stroke(-1, 11, PixelEditCommand::Kind::Scroll)},
    };
}

QList<NamedEdit> spriteEdits()
{
    return {
        {"add a sprite", sprites("Add Sprite", [](auto *bank) { bank->addSprite(); })},
        {"delete the first sprite",
         sprites("Delete Sprite", [](auto *bank) { bank->deleteSprite(0); })},
        {"delete a sprite", sprites("Delete Sprite", [](auto *bank) { bank->deleteSprite(1); })},
        {"delete the last sprite",
         sprites("Delete Sprite", [](auto *bank) { bank->deleteSprite(bank->count() - 1); })},
        {"clear a sprite", sprites("Clear Sprite", [](auto *bank) { bank->clearSprite(0); })},
        {"copy a sprite",
         sprites("Copy Sprite",
                 [](auto *bank) { bank->setImage(0, bank->sprite(bank->count() - 1)); })},
        {"move a sprite up",
         sprites("Move Sprite", [](auto *bank) { bank->moveSprite(0, bank->count() - 1); })},
        {"move a sprite down",
         sprites("Move Sprite", [](auto *bank) { bank->moveSprite(bank->count() - 1, 0); })},
    };
}

QList<NamedEdit> animationEdits()
{
    return {
        {"cell of a sprite animation", cell(false, {1, 5, true, true, false})},
        {"cell of a block", cell(true, {6, 3, false, false, true})},
        {"size of a sprite animation",
         [](auto &set) {
             set.animation->setSize({2, 3});
         }},
        {"size of a block",
         [](auto &set) {
             set.block->setSize({1, 2});
         }},
        {"delay of a sprite animation", [](auto &set) { set.animation->setDelay(9); }},
        {"delay of a block", [](auto &set) { set.block->setDelay(4); }},
        {"type of a block",
         [](auto &set) { set.block->setMapObjectType(MapObjectType::HorizontalPlatform); }},
        {"frame added",
         [](auto &set) {
             set.animation->addFrame();
             set.animation->notifyContentChanged();
         }},
        {"frame removed", [](auto &set) { set.block->removeFrame(0); }},
        {"frames of another animation",
         [](auto &set) {
             set.animation->copyFrom(set.block, true);
             set.animation->notifyContentChanged();
         }},
    };
}

QList<NamedEdit> mapEdits()
{
    return {
        {"draw on the map", map([](auto &set) {
             paint(set, set.map->tileLayer(), {1, 0, 2, 1}, 6);
         })},
        {"draw on the object layer", map([](auto &set) {
             paint(set, set.map->objectLayer(), {0, 0, 1, 1}, 2);
         })},
        {"fill the map",
         map([](auto &set) { set.map->tileLayer()->fill(set.map->tileLayer()->rect(), false); })},
        {"grow the map", map([](auto &set) {
             set.map->resize({9, 7}, Qt::AlignCenter);
         })},
        {"shrink the map", map([](auto &set) {
             set.map->resize({2, 2}, Qt::AlignTop);
         })},
        {"place a block", map([](auto &set) {
             set.map->addAnimation({set.block->id(), {0, 0, 2, 1}});
         })},
        {"remove a block", map([](auto &set) { set.map->animatedBlocks()->clear(); })},
        {"remove a placed sprite", map([](auto &set) { set.map->sprites().clear(); })},
    };
}

QList<NamedEdit> allEdits()
{
    return paletteEdits() + tileEdits() + spriteEdits() + animationEdits() + mapEdits();
}

} // namespace

Q_DECLARE_METATYPE(Edit)

class tst_EditRoundTrip : public QObject
{
    Q_OBJECT

private slots:
    void anEditIsUndoneAndRedoneWholly_data();
    void anEditIsUndoneAndRedoneWholly();
    void allEditsInARowAreUndoneStepByStep();
    void randomEditsAreUndoneStepByStep_data();
    void randomEditsAreUndoneStepByStep();
};

void tst_EditRoundTrip::anEditIsUndoneAndRedoneWholly_data()
{
    QTest::addColumn<Edit>("edit");
    const QList<NamedEdit> edits = allEdits();
    QVERIFY(edits.size() >= 30);
    for (const NamedEdit &edit : edits)
        QTest::newRow(edit.name) << edit.edit;
}

void tst_EditRoundTrip::anEditIsUndoneAndRedoneWholly()
{
    QFETCH(Edit, edit);
    RecordedProject set;
    QUndoStack *stack = set.stackOf(QUuid());
    set.stacks.setActive(QUuid());
    const Whole before = wholeOf(set);

    edit(set);
    const Whole after = wholeOf(set);

    QVERIFY(before.model != after.model);
    QCOMPARE(stack->count(), 1);
    stack->undo();
    QVERIFY(wholeOf(set) == before);
    stack->redo();
    QVERIFY(wholeOf(set) == after);
    stack->undo();
    QVERIFY(wholeOf(set) == before);
    QCOMPARE(stack->count(), 1);
}

void tst_EditRoundTrip::allEditsInARowAreUndoneStepByStep()
{
    RecordedProject set;
    QUndoStack *stack = set.stackOf(QUuid());
    set.stacks.setActive(QUuid());
    QList<Whole> states{wholeOf(set)};

    for (const NamedEdit &edit : allEdits()) {
        set.wait(500);
        edit.edit(set);
        states.resize(stack->index() + 1);
        states.last() = wholeOf(set);
    }

    for (int index = stack->count(); index >= 0; --index) {
        stack->setIndex(index);
        QVERIFY2(wholeOf(set) == states.at(index), qPrintable(stack->text(index)));
    }
    for (int index = 0; index <= stack->count(); ++index) {
        stack->setIndex(index);
        QVERIFY2(wholeOf(set) == states.at(index), qPrintable(stack->text(index - 1)));
    }
}

void tst_EditRoundTrip::randomEditsAreUndoneStepByStep_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 5; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

// The edits come in any order and time, so that they merge, repeat and change nothing at times.
void tst_EditRoundTrip::randomEditsAreUndoneStepByStep()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const QList<NamedEdit> edits = allEdits();
    RecordedProject set;
    QUndoStack *stack = set.stackOf(QUuid());
    set.stacks.setActive(QUuid());
    QList<QByteArray> states{modelBytes(set.project)};

    for (int count = 0; count < 300; ++count) {
        set.wait(random.bounded(300));
        edits.at(random.bounded(static_cast<int>(edits.size()))).edit(set);
        if (set.tileSet->count() < 7)
            set.tileSet->insertTile(1);
        states.resize(stack->index() + 1);
        states.last() = modelBytes(set.project);
    }

    QVERIFY(stack->count() > 100);
    for (int index = stack->count(); index >= 0; --index) {
        stack->setIndex(index);
        if (!states.at(index).isEmpty())
            QVERIFY2(modelBytes(set.project) == states.at(index), qPrintable(stack->text(index)));
    }
    stack->setIndex(stack->count());
    QVERIFY(modelBytes(set.project) == states.last());
}

QTEST_GUILESS_MAIN(tst_EditRoundTrip)
#include "tst_EditRoundTrip.moc"
