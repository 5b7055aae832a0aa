#include "mapeditor/SpriteAnimSelector.h"

#include "editors/AnimationListWidget.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "support/TestSprites.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using AnimationEditor::AnimationListWidget;

Q_DECLARE_METATYPE(QPointer<SpriteAnim>)

class tst_SpriteAnimSelector : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void withoutBanksItSaysSo();
    void aBankShowsItsAnimationsAndSprites();
    void aBankWithoutAnimationsSaysSo();
    void anotherBankShowsItsOwn();
    void theChosenBankStaysWhenTheListChanges();
    void aRemovedBankLeavesTheFirst();
    void bankSignalsRefreshTheLists();
    void otherColoursAreShownAndKeepWhatIsChosen();
    void refreshingKeepsTheRowAndSendsNothing();
    void choosingASpriteUnchoosesTheAnimation();
    void choosingAnAnimationUnchoosesTheSprite();
    void pressingWhatIsChosenSendsItAgain();
    void gettingTheFocusChoosesNothing();
    void aMarkedSpriteKeepsItsColours();
    void aBankThatDiesLeavesTheCombo();

private:
    QComboBox *combo() const { return m_selector->findChild<QComboBox *>(); }
    QListWidget *sprites() const { return m_selector->findChild<QListWidget *>("sprites"); }
    AnimationListWidget *list() const { return m_selector->findChild<AnimationListWidget *>(); }
    QLabel *label(const QString &text) const;
    void clickSprite(int row) const;
    void clickFirstAnimation() const;

    Palette m_palette;
    std::unique_ptr<SpriteBank> m_heroes; // 3 sprites, 1 animation
    std::unique_ptr<SpriteBank> m_bats;   // 1 sprite
    std::unique_ptr<SpriteAnimSelector> m_selector;
};

void tst_SpriteAnimSelector::init()
{
    m_heroes = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_heroes->setName(QStringLiteral("Heroes"));
    m_palette.setDefaultColours();
    m_heroes->setPalette(&m_palette);
    TestSprites::fill(*m_heroes, 3);
    m_heroes->createAnimation();
    m_bats = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_bats->setName(QStringLiteral("Bats"));
    m_selector = std::make_unique<SpriteAnimSelector>();
    m_selector->show();
}

void tst_SpriteAnimSelector::cleanup()
{
    m_selector.reset();
    m_heroes.reset();
    m_bats.reset();
}

QLabel *tst_SpriteAnimSelector::label(const QString &text) const
{
    for (QLabel *label : m_selector->findChildren<QLabel *>()) {
        if (label->text() == text)
            return label;
    }
    return nullptr;
}

void tst_SpriteAnimSelector::clickSprite(int row) const
{
    const QRect rect = sprites()->visualItemRect(sprites()->item(row));
    QTest::mouseClick(sprites()->viewport(), Qt::LeftButton, {}, rect.center());
}

void tst_SpriteAnimSelector::clickFirstAnimation() const
{
    auto *view = list()->findChild<QListWidget *>();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualItemRect(view->item(0)).center());
}

void tst_SpriteAnimSelector::withoutBanksItSaysSo()
{
    QVERIFY(label("No sprite banks")->isVisible());
    QVERIFY(!label("Animations")->isVisible());
    QVERIFY(!label("Sprites")->isVisible());
    QVERIFY(!list()->isVisible());
    QVERIFY(!sprites()->isVisible());
    QCOMPARE(m_selector->layout()->contentsMargins(), QMargins());
    QCOMPARE(m_selector->layout()->sizeConstraint(), QLayout::SetFixedSize);
}

void tst_SpriteAnimSelector::aBankShowsItsAnimationsAndSprites()
{
    m_selector->setBanks({m_heroes.get(), m_bats.get()});

    QCOMPARE(combo()->count(), 2);
    QCOMPARE(combo()->currentIndex(), 0);
    QCOMPARE(combo()->itemText(0), QStringLiteral("Heroes"));
    QCOMPARE(combo()->itemData(1).toUuid(), m_bats->id());
    QCOMPARE(list()->count(), 1);
    QVERIFY(list()->isVisible());
    QVERIFY(label("Animations")->isVisible());
    QVERIFY(label("Sprites")->isVisible());
    QVERIFY(!label("No animations in this bank")->isVisible());
    QCOMPARE(sprites()->count(), 3);
    QCOMPARE(sprites()->item(2)->text(), QStringLiteral("2"));
    QCOMPARE(sprites()->iconSize(), QSize(32, 32));
    QCOMPARE(sprites()->viewMode(), QListView::IconMode);
    QCOMPARE(sprites()->movement(), QListView::Static);
    QCOMPARE(sprites()->resizeMode(), QListView::Adjust);
}

void tst_SpriteAnimSelector::aBankWithoutAnimationsSaysSo()
{
    m_selector->setBanks({m_bats.get()});

    const QLabel *const notice = label("No animations in this bank");
    QVERIFY(notice->isVisible());
    QVERIFY(label("Animations")->isVisible());
    QTRY_VERIFY(notice->y() > label("Animations")->y());
    QVERIFY(notice->geometry().bottom() < label("Sprites")->y());
    QVERIFY(!list()->isVisible());
    QVERIFY(sprites()->isVisible());
}

void tst_SpriteAnimSelector::anotherBankShowsItsOwn()
{
    m_selector->setBanks({m_heroes.get(), m_bats.get()});

    QTest::keyClick(combo(), Qt::Key_Down);

    QCOMPARE(combo()->currentIndex(), 1);
    QCOMPARE(sprites()->count(), 1);
    QCOMPARE(list()->count(), 0);
}

void tst_SpriteAnimSelector::theChosenBankStaysWhenTheListChanges()
{
    m_selector->setBanks({m_heroes.get(), m_bats.get()});
    combo()->setCurrentIndex(1);

    m_selector->setBanks({m_bats.get(), m_heroes.get()});

    QCOMPARE(combo()->currentText(), QStringLiteral("Bats"));
    QCOMPARE(sprites()->count(), 1);
}

void tst_SpriteAnimSelector::aRemovedBankLeavesTheFirst()
{
    m_selector->setBanks({m_heroes.get(), m_bats.get()});
    combo()->setCurrentIndex(1);

    m_selector->setBanks({m_heroes.get()});
    QCOMPARE(combo()->currentIndex(), 0);
    QCOMPARE(sprites()->count(), 3);

    m_selector->setBanks({});
    QVERIFY(label("No sprite banks")->isVisible());
    QCOMPARE(sprites()->count(), 0);
}

void tst_SpriteAnimSelector::bankSignalsRefreshTheLists()
{
    m_selector->setBanks({m_heroes.get(), m_bats.get()});

    m_heroes->createAnimation();
    QCOMPARE(list()->count(), 2);
    m_heroes->addSprite();
    QCOMPARE(sprites()->count(), 4);
    const auto pixels = [this] {
        return sprites()->item(0)->icon().pixmap(32, 32).toImage().pixel(4, 4);
    };
    const QRgb before = pixels();
    m_heroes->setImage(0, TestSprites::filled(200));
    QVERIFY(pixels() != before);
    const auto state = m_heroes->state();
    m_heroes->grow(2);
    emit m_heroes->restored();
    QCOMPARE(sprites()->count(), 6);
    m_heroes->restore(state);
    QCOMPARE(sprites()->count(), 4);

    m_selector->setBanks({m_bats.get()});
    m_heroes->addSprite();
    QCOMPARE(sprites()->count(), 1);
}

void tst_SpriteAnimSelector::otherColoursAreShownAndKeepWhatIsChosen()
{
    m_heroes->setImage(0, TestSprites::filled(9));
    m_selector->setBanks({m_heroes.get()});
    auto *const animations = list()->findChild<QListWidget *>();
    animations->setCurrentRow(0);
    const auto colours = [&] {
        QList<QRgb> found;
        for (const QListWidgetItem *item : {sprites()->item(0), animations->item(0)})
            found << item->icon().pixmap(32, 32).toImage().pixel(4, 4);
        return found;
    };
    QSignalSpy chosen(m_selector.get(), &SpriteAnimSelector::selectionChanged);

    m_palette.setColour(9, Qt::white);
    QTRY_COMPARE(colours(), QList<QRgb>(2, qRgb(255, 255, 255)));
    Palette other;
    m_heroes->setPalette(&other);
    emit m_heroes->imageChanged(0);
    animations->setCurrentRow(0);
    chosen.clear();
    other.setColour(9, Qt::red);

    QTRY_COMPARE(colours(), QList<QRgb>(2, qRgb(255, 0, 0)));
    QCOMPARE(animations->currentRow(), 0);
    QCOMPARE(chosen.count(), 0);
    m_heroes->setPalette(&m_palette);
}

void tst_SpriteAnimSelector::refreshingKeepsTheRowAndSendsNothing()
{
    m_selector->setBanks({m_heroes.get()});
    clickSprite(2);
    QSignalSpy sprite(m_selector.get(), &SpriteAnimSelector::spriteChosen);

    m_heroes->setImage(0, TestSprites::filled(9));
    QCOMPARE(sprites()->currentRow(), 2);
    m_heroes->deleteSprite(0);

    QCOMPARE(sprites()->count(), 2);
    QCOMPARE(sprite.count(), 0);
}

void tst_SpriteAnimSelector::choosingASpriteUnchoosesTheAnimation()
{
    m_selector->setBanks({m_heroes.get()});
    clickFirstAnimation();
    QVERIFY(list()->currentAnimation());
    QSignalSpy sprite(m_selector.get(), &SpriteAnimSelector::spriteChosen);
    QSignalSpy animation(m_selector.get(), &SpriteAnimSelector::selectionChanged);

    clickSprite(1);

    QCOMPARE(sprite.count(), 1);
    QCOMPARE(sprite.at(0).at(0).toUuid(), m_heroes->id());
    QCOMPARE(sprite.at(0).at(1).toInt(), 1);
    QCOMPARE(animation.count(), 0);
    QVERIFY(!list()->currentAnimation());
}

void tst_SpriteAnimSelector::choosingAnAnimationUnchoosesTheSprite()
{
    m_selector->setBanks({m_heroes.get()});
    clickSprite(1);
    QSignalSpy sprite(m_selector.get(), &SpriteAnimSelector::spriteChosen);
    QSignalSpy animation(m_selector.get(), &SpriteAnimSelector::selectionChanged);

    clickFirstAnimation();

    QCOMPARE(animation.count(), 1);
    QCOMPARE(animation.at(0).at(0).value<QPointer<SpriteAnim>>(),
             m_heroes->animations().cbegin().value());
    QCOMPARE(sprite.count(), 0);
    QCOMPARE(sprites()->currentRow(), -1);
}

void tst_SpriteAnimSelector::pressingWhatIsChosenSendsItAgain()
{
    m_selector->setBanks({m_heroes.get()});
    QSignalSpy sprite(m_selector.get(), &SpriteAnimSelector::spriteChosen);
    QSignalSpy animation(m_selector.get(), &SpriteAnimSelector::selectionChanged);

    clickSprite(1);
    QCOMPARE(sprite.count(), 1);
    clickSprite(1);
    QCOMPARE(sprite.count(), 2);
    QVERIFY(sprite.at(0) == sprite.at(1));
    clickFirstAnimation();
    QCOMPARE(animation.count(), 1);
    clickFirstAnimation();

    QCOMPARE(animation.count(), 2);
    QVERIFY(animation.at(0) == animation.at(1));
    QCOMPARE(sprite.count(), 2);
}

void tst_SpriteAnimSelector::gettingTheFocusChoosesNothing()
{
    m_selector->setBanks({m_heroes.get()});
    QSignalSpy sprite(m_selector.get(), &SpriteAnimSelector::spriteChosen);
    QSignalSpy animation(m_selector.get(), &SpriteAnimSelector::selectionChanged);

    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(sprites(), &in);
    QApplication::sendEvent(list()->findChild<QListWidget *>(), &in);

    QCOMPARE(sprite.count(), 0);
    QCOMPARE(animation.count(), 0);
    QCOMPARE(sprites()->currentRow(), -1);
}

void tst_SpriteAnimSelector::aMarkedSpriteKeepsItsColours()
{
    m_selector->setBanks({m_heroes.get()});

    const QIcon icon = sprites()->item(1)->icon();
    const auto picture = [&icon](QIcon::Mode mode) {
        return icon.pixmap(QSize(32, 32), mode).toImage().convertToFormat(QImage::Format_RGB32);
    };

    QCOMPARE(picture(QIcon::Selected), picture(QIcon::Normal));
    QCOMPARE(picture(QIcon::Normal).size(), QSize(32, 32) * m_selector->devicePixelRatioF());
    QCOMPARE(picture(QIcon::Normal).pixelColor(16, 16), m_palette.colour(2));
}

void tst_SpriteAnimSelector::aBankThatDiesLeavesTheCombo()
{
    m_selector->setBanks({m_heroes.get(), m_bats.get(), nullptr});
    combo()->setCurrentIndex(1);

    m_bats.reset();

    QCOMPARE(combo()->count(), 1);
    QCOMPARE(combo()->currentIndex(), 0);
    QCOMPARE(sprites()->count(), 3);
}

QTEST_MAIN(tst_SpriteAnimSelector)

#include "tst_SpriteAnimSelector.moc"
