#include "editors/SpriteViewFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

class tst_SpriteEditorView : public QObject, private SpriteViewFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void startsWithoutAnAnimation();
    void theListKeepsItsPlace();
    void listsTheBanksAnimations();
    void selectingFillsTheToolBar();
    void addingSelectsANewAnimation();
    void cloningCopiesFramesAndDelay();
    void deletingSelectsTheNext();
    void deletingTheLastOneDisables();
    void theToolBarEditsTheAnimation();
    void changedSpritesAreDrawnAnew();
    void coloursOfAnotherPaletteAreFollowed();
    void anAnimationDeletedElsewhereLeavesTheView();
    void aBankThatDiesEmptiesTheView();
    void theEditMenuCopiesCells();
    void theSecondPaneHoldsTheEditor();
    void clearingTheOnlySpriteIsDrawn();
    void manyChangedSpritesDrawTheIconsOnce();
    void anUndoEmptiesAnAnimationMadeSince();
    void aDeletedAnimationIsDetachedFirst();

private:
    /// Of the first sprite in the first icon.
    QColor iconColour() const
    {
        return items()->item(0)->icon().pixmap(48).toImage().pixelColor(4, 4);
    }
};

void tst_SpriteEditorView::startsWithoutAnAnimation()
{
    QCOMPARE(m_view->orientation(), Qt::Horizontal);
    QCOMPARE(m_view->widget(0), list());
    QVERIFY(!child<ToolPalette>()->isEnabled());
    QVERIFY(!controls()->isEnabled());
    QVERIFY(!frames()->isEnabled());
    QVERIFY(frames()->isHidden());
    QVERIFY(!child<SpriteEditor::ToolBar>()->isEnabled());
    QVERIFY(!timer()->isActive());
    for (const Tool flag : {Tool::RotateCW, Tool::Flip, Tool::Mirror})
        QVERIFY(tool(flag)->isCheckable());
    QVERIFY(!tool(Tool::ZoomIn)->isCheckable());
    QCOMPARE(spin("Width in sprites")->maximum(), 16);
    QCOMPARE(spin("Height in sprites")->minimum(), 1);
    QCOMPARE(spin("Delay")->maximum(), 50);
    QCOMPARE(child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>()->placeholderText(),
             QString("Enter a name..."));
}

void tst_SpriteEditorView::theListKeepsItsPlace()
{
    QVERIFY(list()->width() < m_view->width() / 3);
    const int atFirst = list()->width();
    m_view->resize(1200, 500);
    QCOMPARE(list()->width(), atFirst); // the editor takes the room

    m_view->setSizes({0, 1200});

    QVERIFY(list()->width() >= 130);
}

void tst_SpriteEditorView::listsTheBanksAnimations()
{
    QCOMPARE(list()->count(), 1);
    QCOMPARE(items()->item(0)->text(), QString("Walk\n1 frame(s) [4x1]"));
    m_project->sprites->createAnimation();
    QCOMPARE(list()->count(), 2);
    QCOMPARE(list()->currentAnimation(), nullptr);
}

void tst_SpriteEditorView::selectingFillsTheToolBar()
{
    m_project->animation->setDelay(3);
    tool(Tool::Flip)->setChecked(true);

    QTest::mouseClick(items()->viewport(), Qt::LeftButton, {},
                      items()->visualItemRect(items()->item(0)).center());

    QCOMPARE(child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>()->text(), QString("Walk"));
    QCOMPARE(spin("Width in sprites")->value(), 4);
    QCOMPARE(spin("Height in sprites")->value(), 1);
    QCOMPARE(spin("Delay")->value(), 3);
    QVERIFY(!tool(Tool::Flip)->isChecked());
    QVERIFY(child<ToolPalette>()->isEnabled() && controls()->isEnabled());
    QCOMPARE(frames()->animation(), m_project->animation);
    QVERIFY(frames()->isVisible());
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_SpriteEditorView::addingSelectsANewAnimation()
{
    QTest::mouseClick(list()->findChild<QPushButton *>(), Qt::LeftButton);

    QCOMPARE(m_project->sprites->animations().size(), 2);
    QCOMPARE(list()->count(), 2);
    QVERIFY(list()->currentAnimation() != m_project->animation);
    QCOMPARE(frames()->animation(), list()->currentAnimation());
    QCOMPARE(list()->currentAnimation()->name(), QString("New Sprite"));
}

void tst_SpriteEditorView::cloningCopiesFramesAndDelay()
{
    SpriteAnim *walk = m_project->animation;
    walk->setDelay(7);
    walk->addFrame()->setCell({2, 0}, {.index = 3, .flip = true});

    emit list()->cloneRequested(walk);

    const Animation *copy = list()->currentAnimation();
    QVERIFY(copy && copy != walk);
    QCOMPARE(copy->name(), QString("Walk (copy)"));
    QCOMPARE(copy->state(), walk->state());
    QVERIFY(copy->id() != walk->id());
    QCOMPARE(m_project->sprites->animations().size(), 2);
    QCOMPARE(items()->currentItem()->text(), QString("Walk (copy)\n2 frame(s) [4x1]"));
}

void tst_SpriteEditorView::deletingSelectsTheNext()
{
    SpriteAnim *other = m_project->sprites->createAnimation();
    select(m_project->animation);
    timer()->start();

    QTest::mouseClick(list()->findChildren<QPushButton *>().at(1), Qt::LeftButton);

    QVERIFY(!timer()->isActive());
    QVERIFY(!m_project->animation);
    QCOMPARE(m_project->sprites->animations().size(), 1);
    QCOMPARE(list()->currentAnimation(), other);
    QCOMPARE(frames()->animation(), other);
    QVERIFY(frames()->isEnabled());
}

void tst_SpriteEditorView::deletingTheLastOneDisables()
{
    m_view->deleteAnimation(); // without a selection
    QVERIFY(m_project->animation);
    select(m_project->animation);

    m_view->deleteAnimation();

    QVERIFY(m_project->sprites->animations().isEmpty());
    QCOMPARE(list()->count(), 0);
    QVERIFY(!frames()->isEnabled() && !controls()->isEnabled());
    QVERIFY(!child<SpriteEditor::ToolBar>()->isEnabled());
}

void tst_SpriteEditorView::theToolBarEditsTheAnimation()
{
    select(m_project->animation);
    auto *name = child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>();
    QSignalSpy delayed(child<SpriteEditor::ToolBar>(), &SpriteEditor::ToolBar::delayChanged);
    name->clear();

    QTest::keyClicks(name, "Run");
    QTest::keyClick(spin("Width in sprites"), Qt::Key_Up);
    QTest::keyClick(spin("Height in sprites"), Qt::Key_Up);
    QTest::keyClick(spin("Delay"), Qt::Key_Up);

    QCOMPARE(m_project->animation->name(), QString("Run"));
    QCOMPARE(m_project->animation->size(), QSize(5, 2));
    QCOMPARE(m_project->animation->delay(), 1);
    QCOMPARE(delayed.count(), 1);
    QCOMPARE(delayed.at(0).at(0).toInt(), 1);
    QCOMPARE(timer()->interval(), 40);
    QCOMPARE(items()->item(0)->text(), QString("Run\n1 frame(s) [5x2]"));
}

void tst_SpriteEditorView::changedSpritesAreDrawnAnew()
{
    select(m_project->animation);
    frames()->grab();

    QImage sprite = m_project->sprites->sprite(0);
    sprite.fill(30);
    m_project->sprites->setImage(0, sprite);

    QCOMPARE(shownColour(0), colour(30));
    QTRY_COMPARE(iconColour(), colour(30));
    m_project->palette->setColour(30, Qt::white, false);
    QCOMPARE(shownColour(0), QColor(Qt::white));
    QTRY_COMPARE(iconColour(), QColor(Qt::white));
    m_project->sprites->deleteSprite(0);
    QCOMPARE(shownColour(0), colour(21));
    QTRY_COMPARE(iconColour(), colour(21));
}

void tst_SpriteEditorView::coloursOfAnotherPaletteAreFollowed()
{
    Palette *other = m_project->project.createPalette(CreateDefault, "Other");
    select(m_project->animation);
    m_project->sprites->setPalette(other);
    emit m_project->sprites->imageChanged(0);
    frames()->grab();

    other->setColour(20, Qt::white, false);

    QCOMPARE(frames()->grab().toImage().pixelColor(64, 64), QColor(Qt::white));
}

void tst_SpriteEditorView::anAnimationDeletedElsewhereLeavesTheView()
{
    SpriteAnim *other = m_project->sprites->createAnimation();
    select(m_project->animation);

    m_project->sprites->removeAnimation(m_project->animation->id());

    QCOMPARE(list()->currentAnimation(), other);
    QCOMPARE(frames()->animation(), other);
    QVERIFY(frames()->isEnabled());
    QCOMPARE(child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>()->text(),
             QString("New Sprite"));
}

void tst_SpriteEditorView::aBankThatDiesEmptiesTheView()
{
    m_project->sprites->createAnimation();
    select(m_project->animation);
    click(Action::Play);

    m_project->project.deleteSpriteBank(m_project->sprites->id());

    QCOMPARE(list()->count(), 0);
    QVERIFY(!frames()->isEnabled());
    m_view->grab();
    m_view->addAnimation();
    m_view->cloneAnimation(nullptr);
    m_view->deleteAnimation();
    m_view->animate();
    m_view->copy();
    m_view->updatePalette(0, Qt::red, false);
    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorView::theEditMenuCopiesCells()
{
    select(m_project->animation);
    selectCell({3, 0});

    m_view->copy();
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasImage());
    selectCell({0, 0});
    m_view->paste();
    const AnimationFrame::Cell pasted{.index = 3, .offset = 2, .mirror = true};
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), pasted);
    m_view->cut();
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), AnimationFrame::Cell());
    m_view->selectNone();
    QCOMPARE(frames()->selectedCell().x(), -1);
    m_view->paste();
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), AnimationFrame::Cell());
}

void tst_SpriteEditorView::theSecondPaneHoldsTheEditor()
{
    QCOMPARE(m_view->count(), 2);
    const auto *layout = qobject_cast<QVBoxLayout *>(m_view->widget(1)->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(2, 2, 2, 2));
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), child<SpriteEditor::ToolBar>());
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::AlignTop);
    QCOMPARE(layout->stretch(1), 10);
    QCOMPARE(layout->itemAt(2)->widget(), controls());

    const auto *row = qobject_cast<QHBoxLayout *>(layout->itemAt(1)->layout());
    QVERIFY(row);
    QCOMPARE(row->itemAt(0)->widget(), child<ToolPalette>());
    QCOMPARE(row->itemAt(0)->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QVERIFY(row->itemAt(1)->widget()->isAncestorOf(frames()));
    QCOMPARE(row->stretch(1), 1);
}

void tst_SpriteEditorView::clearingTheOnlySpriteIsDrawn()
{
    SpriteBank *bank = m_project->sprites;
    while (bank->count() > 1)
        bank->deleteSprite(1);
    select(m_project->animation);
    QCOMPARE(shownColour(0), colour(20));
    QTRY_COMPARE(iconColour(), colour(20));

    emit bank->structureAboutToChange();
    bank->deleteSprite(0); // clears it, and the bank does not tell
    emit bank->structureChanged("Delete Sprite");

    QCOMPARE(shownColour(0), colour(0));
    QTRY_COMPARE(iconColour(), colour(0));
}

void tst_SpriteEditorView::manyChangedSpritesDrawTheIconsOnce()
{
    int drawn = 0;
    list()->setIconRenderer([&drawn](const Animation *animation, QSize size) {
        ++drawn;
        return animation->thumbnail(size);
    });
    drawn = 0;

    for (int sprite = 0; sprite < 4; ++sprite)
        m_project->sprites->setImage(sprite, m_project->sprites->sprite(0));
    m_project->palette->setColour(20, Qt::white, false);

    QTRY_COMPARE(drawn, 1);
    QTRY_COMPARE(iconColour(), QColor(Qt::white));
    QCOMPARE(drawn, 1);
}

void tst_SpriteEditorView::anUndoEmptiesAnAnimationMadeSince()
{
    emit m_project->sprites->structureAboutToChange();
    m_project->sprites->addSprite();
    emit m_project->sprites->structureChanged("Add Sprite");
    m_view->addAnimation();
    const QPointer<Animation> made = list()->currentAnimation();
    selectCell({0, 0});
    click(Action::Play);

    stack()->undo();

    QCOMPARE(made->frameCount(), 0);
    QCOMPARE(label(), QString("Frame 0 of 0"));
    m_view->animate();
    tool(Tool::Flip)->trigger();
    QVERIFY(!m_view->grab().isNull());
    click(Action::Delete);
    QCOMPARE(made->frameCount(), 0);
    click(Action::Add);
    QCOMPARE(made->frameCount(), 1);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_SpriteEditorView::aDeletedAnimationIsDetachedFirst()
{
    select(m_project->animation);
    QList<const Animation *> shown;
    connect(m_project->sprites, &SpriteBank::animationsChanged, this, [&] {
        shown.append(frames()->animation());
        QCOMPARE(list()->count(), 0);
    });

    m_view->deleteAnimation();

    QCOMPARE(shown, QList<const Animation *>{nullptr});
}

QTEST_MAIN(tst_SpriteEditorView)
#include "tst_SpriteEditorView.moc"
