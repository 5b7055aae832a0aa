#include "editors/AnimationListWidget.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "tour/MapDesk.h"
#include "tour/MapPicture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>

using Tool = MapDesk::Tool;

namespace {

const QString PlaceSprite = QStringLiteral("Place Sprite");
const QString SpriteStep = QStringLiteral("Sprite Properties");
constexpr int PlayMs = 5000; // at most, until an animation has gone round

QPointer<SpriteBank> bankNamed(const Project &project, const QString &name)
{
    for (const auto &bank : project.spriteBanks()) {
        if (bank->name() == name)
            return bank;
    }
    return nullptr;
}

/// An animation of two sprites side by side in three frames.
QPointer<SpriteAnim> makeAnimation(SpriteBank &bank)
{
    const auto animation = bank.createAnimation();
    animation->setName(QStringLiteral("look"));
    animation->setSize({2, 1});
    animation->setDelay(8);
    animation->addFrame();
    animation->addFrame();
    for (int frame = 0; frame < 3; ++frame) {
        animation->frame(frame)->setCell({0, 0}, {.index = 1 + frame});
        animation->frame(frame)->setCell({1, 0}, {.index = 4 + frame, .mirror = true});
    }
    animation->notifyContentChanged();
    return animation;
}

void placeSprites(MapDesk &desk, const SpriteBank &bank, const SpriteAnim &animation)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("sprite"));
    desk.press(Tool::PlaceSprite);
    MapSpritesWindow *const dock = tour.views().mapSprites;
    tour.check(dock->isVisible(), QStringLiteral("the dock of sprites shows"));
    dock->findChild<QComboBox *>()->setCurrentText(bank.name());
    clickRow(dock->findChild<QListWidget *>(QStringLiteral("sprites")), 3);
    desk.moveTo(desk.pixelPoint({60, 60}));
    tour.pictures(QStringLiteral("map-07-sprite"));
    desk.step(PlaceSprite, QStringLiteral("a click places it"), [&desk] {
        desk.clickPixel({101, 63});
    });
    desk.setField(QStringLiteral("Snap"), 2);
    desk.step(PlaceSprite, QStringLiteral("another one, with snap"), [&desk] {
        desk.clickPixel({77, 125});
    });
    desk.setField(QStringLiteral("Snap"), 1);
    clickRow(dock->findChild<AnimationEditor::AnimationListWidget *>()->findChild<QListWidget *>(),
             0);
    desk.step(PlaceSprite, QStringLiteral("an animation"), [&desk] { desk.clickPixel({36, 24}); });

    const QList<Map::PlacedSprite> &sprites = desk.map().sprites();
    tour.check(sprites.size() == 3 && sprites.at(0).bank == bank.id() &&
                   sprites.at(0).sprite == 3 && sprites.at(0).x == 101 && sprites.at(0).y == 63,
               QStringLiteral("the first is at the pixel"));
    tour.check(sprites.at(1).x == 64 && sprites.at(1).y == 112,
               QStringLiteral("the second is on a cell"));
    tour.check(sprites.at(2).animation == animation.id(), QStringLiteral("the third is animated"));
    desk.step(QStringLiteral("Move Sprite"), QStringLiteral("a drag moves it"), [&desk] {
        desk.dragPixels({105, 70}, {115, 91});
    });
    tour.check(sprites.at(0).x == 111 && sprites.at(0).y == 84, QStringLiteral("by its way"));
}

void editSprite(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("popover"));
    MapEditor::SpritePropertiesPopover *const popover = desk.view().spritePopover();
    desk.changesNothing(QStringLiteral("a click opens it and changes nothing"), [&desk] {
        desk.clickPixel({41, 29});
    });
    if (!tour.check(popover->isVisible(), QStringLiteral("is open")))
        return;
    tour.pictures(QStringLiteral("map-08-popover"), popover);
    desk.step(SpriteStep, QStringLiteral("a name"), [popover] {
        auto *const name = popover->findChild<QLineEdit *>(QStringLiteral("name"));
        name->setFocus();
        QTest::keyClicks(name, QStringLiteral("guard"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    for (const QString &box : QStringList{"mirror", "flip", "rotate"})
        desk.step(SpriteStep, box, [popover, box] {
            QTest::mouseClick(popover->findChild<QCheckBox *>(box), Qt::LeftButton, {}, {8, 8});
        });
    for (const QString &field :
         QStringList{"startFrame", "initialDelay", "repeatDelay", "paletteOffset"})
        desk.step(SpriteStep, field,
                  [popover, field] { typeValue(popover->findChild<QSpinBox *>(field), 2); });
    const Map::PlacedSprite &sprite = desk.map().sprites().at(2);
    tour.check(sprite.name == QStringLiteral("guard") && sprite.mirror && sprite.flip &&
                   sprite.rotate && sprite.startFrame == 2 && sprite.initialDelay == 2 &&
                   sprite.repeatDelay == 2 && sprite.paletteOffset == 2,
               QStringLiteral("all is in the sprite"));

    desk.clickPixel({115, 90});
    tour.check(popover->isVisible() && desk.grid().selectedSprite() == 0,
               QStringLiteral("follows to another sprite"));
    QTest::keyClick(popover, Qt::Key_Escape);
    tour.check(!popover->isVisible(), QStringLiteral("Escape closes it"));
    desk.clickPixel({115, 90});
    QTest::mouseClick(tour.views().projectWindow->tree()->viewport(), Qt::LeftButton, {}, {4, 200});
    tour.check(!popover->isVisible(), QStringLiteral("a click elsewhere closes it"));
}

void playSprites(MapDesk &desk, const SpriteAnim &animation)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("play"));
    const Map::PlacedSprite sprite = desk.map().sprites().at(2);
    QList<int> frames;
    bool isRight = true;
    desk.hover({16, 16}); // off the sprite that is outlined
    desk.press(Tool::AnimPlay);
    const bool isPlayed = QTest::qWaitFor(
        [&] {
            const int frame = MapPicture::frameAt(sprite, animation.frameCount(), animation.delay(),
                                                  desk.view().animator().ticks());
            if (frames.isEmpty() || frame != frames.last()) {
                frames.append(frame);
                isRight &= desk.looksRight();
            }
            return frames.size() > 4;
        },
        PlayMs);
    desk.press(Tool::AnimPlay);
    tour.check(isPlayed && isRight, QStringLiteral("sprites show frame after frame"));
}

void deleteSprites(MapDesk &desk)
{
    WindowTour &tour = desk.tour();
    tour.setSubject(QStringLiteral("delete"));
    const auto remove = [&desk](QPoint pixel, Qt::Key key) {
        desk.moveTo(desk.pixelPoint(pixel));
        desk.key(key);
    };
    desk.view().setFocus();
    desk.step(QStringLiteral("Delete Sprite"), QStringLiteral("Delete takes the sprite"), [&] {
        remove({70, 118}, Qt::Key_Delete);
    });
    desk.step(QStringLiteral("Delete Sprite"), QStringLiteral("Backspace takes one too"), [&] {
        remove({115, 90}, Qt::Key_Backspace);
    });
    tour.check(desk.map().sprites().size() == 1 &&
                   desk.map().sprites().first().name == QStringLiteral("guard"),
               QStringLiteral("the other one is left"));
    tour.undo();
    tour.undo();
    tour.check(desk.map().sprites().size() == 3, QStringLiteral("both come back"));
}

} // namespace

void mapSpriteChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("Sprites are placed"));
    const QPointer<Map> map = levelMap(tour);
    if (!map)
        return;
    MapDesk desk(tour, map->id());
    tour.setSubject(QStringLiteral("sprites"));
    const auto bank = bankNamed(*tour.project(), QStringLiteral("eyes"));
    if (!tour.check(bank && bank->count() > 6, QStringLiteral("are in the project")))
        return;
    const auto animation = makeAnimation(*bank);
    placeSprites(desk, *bank, *animation);
    editSprite(desk);
    playSprites(desk, *animation);
    deleteSprites(desk);
}
