#include "editors/AnimationListWidget.h"

#include "model/SpriteAnim.h"
#include "support/TestSprites.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <memory>

using AnimationEditor::AnimationListWidget;

namespace {

constexpr int PlainMode = 0;
constexpr int BlockMode = AnimationListWidget::WithButtons | AnimationListWidget::WithMenu;
constexpr int SpriteMode = BlockMode | AnimationListWidget::WithText;

} // namespace

class tst_AnimationListWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void showsNameFramesAndSizeBesideTheIcon();
    void namesWithPlaceholdersAreShownAsTheyAre();
    void listsWithoutTextKeepTheNameAsToolTip();
    void itemsHoldTheIdOfTheirAnimation();
    void sortsByText();
    void addingTwiceKeepsOneItem();
    void followsChangesOfItsAnimations();
    void addingSelectedMakesCurrentAndReports();
    void addingUnselectedReportsNothing();
    void removingTheCurrentItemReportsTheNextOne();
    void removingTheLastItemReportsNull();
    void removingAnotherItemReportsNothing();
    void clearingReportsNullOnce();
    void clearingTheSelectionReportsNothing();
    void anAnimationThatDiesLeavesTheList();
    void aBankThatDiesEmptiesTheList();
    void modesShowTheirButtons();
    void deleteNeedsACurrentItem();
    void buttonsAskTheOwner();
    void theMenuDeletesAndClones();
    void plainListsHaveNoMenu();
    void narrowListsAreSlim();
    void drawsIconsThroughTheOwner();
    void anEmptyListSaysSo();
    void clickingAnItemReportsIt();
    void theFocusAlonePicksNothing();
    void toolTipsShowNamesAsPlainText();
    void longNamesNeedNoScrolling();
    void addingSelectedScrollsToIt();
    void whatHasLeftIsNotFollowed();

private:
    SpriteAnim *addNamed(AnimationListWidget &list, const QString &name, bool select = false);
    static QListWidget *items(const AnimationListWidget &list);
    static void askForMenu(const AnimationListWidget &list, QPoint position);
    static QPushButton *button(const AnimationListWidget &list, const QString &toolTip);

    std::unique_ptr<SpriteBank> m_bank;
};

void tst_AnimationListWidget::initTestCase()
{
    qRegisterMetaType<Animation *>();
}

void tst_AnimationListWidget::init()
{
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    TestSprites::fill(*m_bank, 4);
}

void tst_AnimationListWidget::cleanup()
{
    m_bank.reset();
}

SpriteAnim *tst_AnimationListWidget::addNamed(AnimationListWidget &list, const QString &name,
                                              bool select)
{
    SpriteAnim *animation = m_bank->createAnimation();
    animation->setName(name);
    list.addAnimation(animation, select);
    return animation;
}

QListWidget *tst_AnimationListWidget::items(const AnimationListWidget &list)
{
    return list.findChild<QListWidget *>();
}

QPushButton *tst_AnimationListWidget::button(const AnimationListWidget &list,
                                             const QString &toolTip)
{
    for (QPushButton *one : list.findChildren<QPushButton *>()) {
        if (one->toolTip() == toolTip)
            return one;
    }
    return nullptr;
}

void tst_AnimationListWidget::showsNameFramesAndSizeBesideTheIcon()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = m_bank->createAnimation();
    walk->setName("Walk");
    walk->setSize({3, 2});
    walk->addFrame();

    list.addAnimation(walk, false);

    QCOMPARE(items(list)->item(0)->text(), QString("Walk\n2 frame(s) [3x2]"));
    QCOMPARE(items(list)->iconSize(), QSize(48, 48));
}

void tst_AnimationListWidget::namesWithPlaceholdersAreShownAsTheyAre()
{
    AnimationListWidget list(SpriteMode);

    addNamed(list, "%2 %4");

    QCOMPARE(items(list)->item(0)->text(), QString("%2 %4\n1 frame(s) [1x1]"));
}

void tst_AnimationListWidget::listsWithoutTextKeepTheNameAsToolTip()
{
    AnimationListWidget list(PlainMode);

    addNamed(list, "Walk");

    QCOMPARE(items(list)->item(0)->text(), QString());
    QCOMPARE(items(list)->item(0)->data(3).toString(), QString("Walk"));
    QVERIFY(!items(list)->item(0)->icon().isNull());
}

void tst_AnimationListWidget::itemsHoldTheIdOfTheirAnimation()
{
    AnimationListWidget list(PlainMode);

    const SpriteAnim *walk = addNamed(list, "Walk");

    QCOMPARE(items(list)->item(0)->data(256).toUuid(), walk->id());
}

void tst_AnimationListWidget::sortsByText()
{
    for (const int mode : {SpriteMode, PlainMode}) {
        AnimationListWidget list(mode);
        for (const char *name : {"Walk", "Jump", "Run"})
            addNamed(list, name);

        QStringList names;
        for (int i = 0; i < list.count(); ++i)
            names.append(items(list)->item(i)->toolTip());
        QCOMPARE(names, QStringList({"Jump", "Run", "Walk"}));
    }
}

void tst_AnimationListWidget::addingTwiceKeepsOneItem()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = addNamed(list, "Walk");

    list.addAnimation(walk, true);
    list.addAnimation(nullptr, true);

    QCOMPARE(list.count(), 1);
    QCOMPARE(list.currentAnimation(), walk);
}

void tst_AnimationListWidget::followsChangesOfItsAnimations()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = addNamed(list, "Walk");
    int drawn = 0;
    list.setIconRenderer([&drawn](const Animation *animation, QSize size) {
        ++drawn;
        return animation->thumbnail(size);
    });
    drawn = 0;

    walk->setName("Run");
    QCOMPARE(items(list)->item(0)->text(), QString("Run\n1 frame(s) [1x1]"));
    walk->setSize({2, 1});
    QCOMPARE(items(list)->item(0)->text(), QString("Run\n1 frame(s) [2x1]"));
    walk->addFrame();
    walk->notifyContentChanged();
    QCOMPARE(items(list)->item(0)->text(), QString("Run\n2 frame(s) [2x1]"));
    QCOMPARE(items(list)->item(0)->toolTip(), QString("Run"));
    QCOMPARE(drawn, 3);
    walk->frame(1)->notifyChanged();
    QCOMPARE(drawn, 4);
}

void tst_AnimationListWidget::addingSelectedMakesCurrentAndReports()
{
    AnimationListWidget list(SpriteMode);
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    SpriteAnim *walk = addNamed(list, "Walk", true);

    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<Animation *>(), walk);
    QCOMPARE(list.currentAnimation(), walk);
}

void tst_AnimationListWidget::addingUnselectedReportsNothing()
{
    AnimationListWidget list(SpriteMode);
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    addNamed(list, "Walk");

    QCOMPARE(selected.count(), 0);
    QCOMPARE(list.currentAnimation(), nullptr);
}

void tst_AnimationListWidget::removingTheCurrentItemReportsTheNextOne()
{
    AnimationListWidget list(SpriteMode);
    const SpriteAnim *first = addNamed(list, "A", true);
    SpriteAnim *second = addNamed(list, "B");
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    list.removeAnimation(first->id());

    QCOMPARE(list.count(), 1);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<Animation *>(), second);
    QCOMPARE(list.currentAnimation(), second);
}

void tst_AnimationListWidget::removingTheLastItemReportsNull()
{
    AnimationListWidget list(SpriteMode);
    const SpriteAnim *only = addNamed(list, "A", true);
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    list.removeAnimation(only->id());

    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<Animation *>(), nullptr);
    QVERIFY(!button(list, "Delete the selected animation")->isEnabled());
}

void tst_AnimationListWidget::removingAnotherItemReportsNothing()
{
    AnimationListWidget list(SpriteMode);
    const SpriteAnim *other = addNamed(list, "A");
    addNamed(list, "B", true);
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    list.removeAnimation(other->id());
    list.removeAnimation(QUuid::createUuid());

    QCOMPARE(selected.count(), 0);
    QCOMPARE(list.count(), 1);
}

void tst_AnimationListWidget::clearingReportsNullOnce()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = addNamed(list, "A", true);
    addNamed(list, "B");
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    list.clear();
    walk->setName("after it left");

    QCOMPARE(list.count(), 0);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<Animation *>(), nullptr);
    QVERIFY(!button(list, "Delete the selected animation")->isEnabled());
}

void tst_AnimationListWidget::clearingTheSelectionReportsNothing()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = addNamed(list, "A", true);
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    list.clearSelection();

    QCOMPARE(selected.count(), 0);
    QCOMPARE(list.currentAnimation(), nullptr);
    QVERIFY(items(list)->selectedItems().isEmpty());
    QVERIFY(!button(list, "Delete the selected animation")->isEnabled());
    list.addAnimation(walk, true);
    QCOMPARE(selected.count(), 1);
}

void tst_AnimationListWidget::anAnimationThatDiesLeavesTheList()
{
    AnimationListWidget list(SpriteMode);
    const SpriteAnim *dying = addNamed(list, "A", true);
    SpriteAnim *other = addNamed(list, "B");

    m_bank->removeAnimation(dying->id());

    QCOMPARE(list.count(), 1);
    QCOMPARE(list.currentAnimation(), other);
}

void tst_AnimationListWidget::aBankThatDiesEmptiesTheList()
{
    AnimationListWidget list(SpriteMode);
    addNamed(list, "A", true);
    addNamed(list, "B");

    m_bank.reset();

    QCOMPARE(list.count(), 0);
    QCOMPARE(list.currentAnimation(), nullptr);
}

void tst_AnimationListWidget::modesShowTheirButtons()
{
    const AnimationListWidget sprites(SpriteMode);
    const AnimationListWidget plain(PlainMode);

    QCOMPARE(plain.findChildren<QPushButton *>().size(), 0);
    QCOMPARE(sprites.findChildren<QPushButton *>().size(), 2);
    for (const QString text : {"Add a new animation", "Delete the selected animation"}) {
        const QPushButton *one = button(sprites, text);
        QVERIFY(one);
        QCOMPARE(one->iconSize(), QSize(32, 32));
        QVERIFY(!one->icon().pixmap(32).isNull());
        QCOMPARE(one->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
        QCOMPARE(one->accessibleName(), text);
    }
}

void tst_AnimationListWidget::deleteNeedsACurrentItem()
{
    AnimationListWidget list(BlockMode);
    const QPushButton *remove = button(list, "Delete the selected animation");

    addNamed(list, "A");
    QVERIFY(!remove->isEnabled());
    addNamed(list, "B", true);
    QVERIFY(remove->isEnabled());
}

void tst_AnimationListWidget::buttonsAskTheOwner()
{
    AnimationListWidget list(BlockMode);
    addNamed(list, "A", true);
    QSignalSpy added(&list, &AnimationListWidget::addRequested);
    QSignalSpy removed(&list, &AnimationListWidget::removeRequested);

    QTest::mouseClick(button(list, "Add a new animation"), Qt::LeftButton);
    QCOMPARE(added.count(), 1);
    QCOMPARE(removed.count(), 0);
    QTest::mouseClick(button(list, "Delete the selected animation"), Qt::LeftButton);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(list.count(), 1);
}

/// As the window system does after a right press.
void tst_AnimationListWidget::askForMenu(const AnimationListWidget &list, QPoint position)
{
    QWidget *view = items(list)->viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, view->mapToGlobal(position));
    QCoreApplication::sendEvent(view, &event);
}

void tst_AnimationListWidget::theMenuDeletesAndClones()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = addNamed(list, "A", true);
    auto *menu = list.findChild<QMenu *>();
    QSignalSpy removed(&list, &AnimationListWidget::removeRequested);
    QSignalSpy cloned(&list, &AnimationListWidget::cloneRequested);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));

    const QPoint below(10, items(list)->viewport()->height() - 5);
    askForMenu(list, below);
    QVERIFY(!menu->isVisible());
    askForMenu(list, {10, 10});
    QTRY_VERIFY(menu->isVisible());
    QCOMPARE(menu->actions().size(), 2);
    QCOMPARE(menu->actions().at(0)->text(), QString("Delete"));
    QCOMPARE(menu->actions().at(1)->text(), QString("Clone"));
    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().at(1)).center());
    QCOMPARE(cloned.count(), 1);
    QCOMPARE(cloned.at(0).at(0).value<Animation *>(), walk);
    menu->actions().at(0)->trigger();
    QCOMPARE(removed.count(), 1);
}

void tst_AnimationListWidget::plainListsHaveNoMenu()
{
    const AnimationListWidget list(PlainMode);

    QVERIFY(!list.findChild<QMenu *>());
}

void tst_AnimationListWidget::narrowListsAreSlim()
{
    const AnimationListWidget list(AnimationListWidget::Narrow);

    QCOMPARE(items(list)->spacing(), 1);
    QVERIFY(items(list)->uniformItemSizes());
    QCOMPARE(list.minimumWidth(), 72);
    QCOMPARE(list.maximumWidth(), 72);
}

void tst_AnimationListWidget::drawsIconsThroughTheOwner()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = addNamed(list, "A");
    QColor colour = Qt::red;
    QList<const Animation *> asked;
    QList<QSize> sizes;
    list.setIconRenderer([&](const Animation *animation, QSize size) {
        asked.append(animation);
        sizes.append(size);
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    });
    QCOMPARE(asked, QList<const Animation *>{walk});
    QCOMPARE(sizes, QList<QSize>{QSize(48, 48) * list.devicePixelRatioF()});
    QCOMPARE(items(list)->item(0)->icon().pixmap(48).toImage().pixelColor(9, 9), QColor(Qt::red));

    colour = Qt::blue;
    list.updateIcons();

    QCOMPARE(items(list)->item(0)->icon().pixmap(48).toImage().pixelColor(9, 9), QColor(Qt::blue));
}

void tst_AnimationListWidget::anEmptyListSaysSo()
{
    AnimationListWidget list(SpriteMode);
    const AnimationListWidget plain(PlainMode);
    const auto isBlank = [](const AnimationListWidget &shown) {
        QWidget *const area = items(shown)->viewport();
        const QImage picture = area->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QImage blank(picture.size(), picture.format());
        blank.fill(area->palette().color(QPalette::Base));
        return picture == blank;
    };
    QVERIFY(!isBlank(list));
    QVERIFY(isBlank(plain));

    SpriteAnim *const animation = addNamed(list, "");
    list.setIconRenderer([](const Animation *, QSize) { return QImage(); });
    items(list)->item(0)->setText({});
    QVERIFY(isBlank(list));
    list.removeAnimation(animation->id());

    QVERIFY(!isBlank(list));
}

void tst_AnimationListWidget::clickingAnItemReportsIt()
{
    AnimationListWidget list(SpriteMode);
    addNamed(list, "A", true);
    SpriteAnim *second = addNamed(list, "B");
    list.resize(200, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);

    QTest::mouseClick(items(list)->viewport(), Qt::LeftButton, {},
                      items(list)->visualItemRect(items(list)->item(1)).center());

    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<Animation *>(), second);
}

void tst_AnimationListWidget::theFocusAlonePicksNothing()
{
    AnimationListWidget list(SpriteMode);
    list.clear();
    addNamed(list, "A");
    QSignalSpy selected(&list, &AnimationListWidget::selectedItemChanged);
    list.show();
    QVERIFY(QTest::qWaitForWindowActive(&list));

    items(list)->setFocus(Qt::TabFocusReason);

    QVERIFY(items(list)->hasFocus());
    QCOMPARE(selected.count(), 0);
    QCOMPARE(list.currentAnimation(), nullptr);
    QTest::keyClick(items(list), Qt::Key_Down);
    QCOMPARE(selected.count(), 1);
}

void tst_AnimationListWidget::toolTipsShowNamesAsPlainText()
{
    AnimationListWidget list(PlainMode);
    addNamed(list, "<b>bold</b>");
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QWidget *view = items(list)->viewport();
    const QPoint position = items(list)->visualItemRect(items(list)->item(0)).center();

    QHelpEvent event(QEvent::ToolTip, position, view->mapToGlobal(position));
    QCoreApplication::sendEvent(view, &event);

    QCOMPARE(QToolTip::text(), QString("<p>&lt;b&gt;bold&lt;/b&gt;</p>"));
    QToolTip::hideText();
}

void tst_AnimationListWidget::longNamesNeedNoScrolling()
{
    AnimationListWidget list(SpriteMode);
    addNamed(list, "A name of many words that is wider than the list");
    list.resize(200, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));

    QVERIFY(!items(list)->horizontalScrollBar()->isVisible());
    QVERIFY(items(list)->visualItemRect(items(list)->item(0)).right() <
            items(list)->viewport()->width());
}

void tst_AnimationListWidget::addingSelectedScrollsToIt()
{
    AnimationListWidget list(SpriteMode);
    list.resize(200, 200);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    for (int i = 0; i < 30; ++i)
        addNamed(list, QString("A%1").arg(i));
    QVERIFY(!items(list)->viewport()->rect().contains(
        items(list)->visualItemRect(items(list)->item(29)).center()));

    SpriteAnim *last = addNamed(list, "Z", true);
    QCOMPARE(items(list)->currentItem()->toolTip(), QString("Z"));
    const auto isInSight = [&list] {
        return items(list)->viewport()->rect().contains(
            items(list)->visualItemRect(items(list)->currentItem()).center());
    };
    QVERIFY(isInSight());

    items(list)->scrollToTop();
    QVERIFY(!isInSight());
    list.addAnimation(last, true); // is current already
    QVERIFY(isInSight());
}

void tst_AnimationListWidget::whatHasLeftIsNotFollowed()
{
    AnimationListWidget list(SpriteMode);
    SpriteAnim *walk = addNamed(list, "A");
    int drawn = 0;
    list.setIconRenderer([&drawn](const Animation *animation, QSize size) {
        ++drawn;
        return animation->thumbnail(size);
    });
    drawn = 0;

    list.removeAnimation(walk->id());
    walk->setName("B");
    walk->frame(0)->notifyChanged();

    QCOMPARE(drawn, 0);
    QCOMPARE(list.count(), 0);
}

QTEST_MAIN(tst_AnimationListWidget)
#include "tst_AnimationListWidget.moc"
