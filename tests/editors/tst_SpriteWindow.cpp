#include "editors/SpriteWindow.h"

#include "canvas/Canvas.h"
#include "canvas/CanvasClipboard.h"
#include "colour/ColourPalette.h"
#include "editors/SpriteDrag.h"
#include "editors/SpriteList.h"
#include "support/DragEvents.h"
#include "support/RecordedProject.h"
#include "support/SpriteBankLog.h"
#include "support/TestSprites.h"
#include "uikit/NumberRange.h"
#include "uikit/ToolPalette.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <functional>
#include <memory>

using SpriteEditor::SpriteList;
using Tool = Tessaril::Ui::ToolButton;

Q_DECLARE_METATYPE(std::function<void(SpriteEditor::SpriteList *)>)

class tst_SpriteWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsOnItsPlaceholder();
    void aBankGivesTitleAndContent();
    void anotherBankStartsAtItsFirstSprite();
    void noBankShowsThePlaceholderAgain();
    void aBankThatDiesShowsThePlaceholder();
    void theNumberChoosesTheSprite();
    void theListChoosesTheSprite();
    void paintingWritesToTheShownSprite();
    void aStrokeIsOneUndoStep();
    void undoReachesASpriteThatIsNotShown();
    void strokesGoToTheStackOfTheBank();
    void withoutStackStrokesAreNotRecorded();
    void everyBankEditIsOneUndoStep_data();
    void everyBankEditIsOneUndoStep();
    void dropsReorderTheBank();
    void deletingTheLastSpriteClearsIt();
    void deletingTheShownSpriteShowsTheNext();
    void changesFromElsewhereReachTheCanvas();
    void anotherPaletteColoursEverything();
    void fourBitBanksOfferSixteenColours();
    void coloursGoToTheCanvasAndBack();
    void aFailedPasteKeepsTheTool();
    void theEditMenuDrivesTheCanvas();
    void tabLeadsToTheColoursFirst();
    void everyToolIsInSightInASmallDock();
    void aLargeBankIsScrolledByItself();
    void theListGetsTheRestOfTheHeight();
    void aBankWithoutSpritesLeavesNothingToPaint();
    void bankEditsTellInOrder_data();
    void bankEditsTellInOrder();

private:
    template <typename Widget>
    Widget *child() const
    {
        return m_window->findChild<Widget *>();
    }
    QList<int> values() const { return TestSprites::values(*m_project->sprites); }
    QUndoStack *stack() const { return m_project->stackOf(m_project->sprites->id()); }
    void paint(QPoint pixel, int index);

    std::unique_ptr<RecordedProject> m_project; // whose sprites hold 20, 21, 22 and 23
    std::unique_ptr<SpriteWindow> m_window;
};

void tst_SpriteWindow::init()
{
    m_project = std::make_unique<RecordedProject>();
    m_window = std::make_unique<SpriteWindow>();
    m_window->setStackFor([this](const QUuid &id) { return m_project->stackOf(id); });
    m_window->setSprites(m_project->sprites);
    m_window->resize(400, 800);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void tst_SpriteWindow::cleanup()
{
    m_window.reset();
    m_project.reset();
}

/// Sets one pixel of the canvas as the user does.
void tst_SpriteWindow::paint(QPoint pixel, int index)
{
    auto *canvas = child<Canvas>();
    child<ColourPalette>()->setPrimaryColour(index);
    QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->cellRect({pixel, QSize(1, 1)}).center());
}

void tst_SpriteWindow::startsOnItsPlaceholder()
{
    const SpriteWindow window;

    QCOMPARE(window.objectName(), QString("SpriteEditor"));
    QCOMPARE(window.windowTitle(), QString("Sprite Editor"));
    QVERIFY(!window.isContentShown());
    QVERIFY(window.findChild<QLabel *>());
    QStringList texts;
    for (const QLabel *label : window.findChildren<QLabel *>())
        texts.append(label->text());
    QVERIFY(texts.contains("No sprites selected"));
    QCOMPARE(window.findChild<NumberRange *>()->minimum(), 1);
    QCOMPARE(window.findChild<NumberRange *>()->maximum(), 64);
    QCOMPARE(window.allowedAreas(), Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
}

void tst_SpriteWindow::aBankGivesTitleAndContent()
{
    QCOMPARE(m_window->windowTitle(), QString("Sprites: Heroes"));
    QVERIFY(m_window->isContentShown());
    QCOMPARE(m_window->spriteIndex(), 1);
    QCOMPARE(child<NumberRange>()->value(), 1);
    QCOMPARE(child<NumberRange>()->maximum(), 4);
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 20);
    QCOMPARE(child<Canvas>()->palette(), m_project->palette);
    QCOMPARE(child<SpriteList>()->sprites(), m_project->sprites);
    QCOMPARE(child<SpriteList>()->selectedIndex(), 0);
    QCOMPARE(stack()->count(), 0);
}

void tst_SpriteWindow::anotherBankStartsAtItsFirstSprite()
{
    child<NumberRange>()->setValue(3);
    SpriteBank other(Tessaril::Sprite::EightBit);
    TestSprites::fill(other, 2);
    other.setName("Others");

    m_window->setSprites(&other);
    m_project->sprites->setImage(0, TestSprites::filled(99));
    m_project->sprites->addSprite();

    QCOMPARE(m_window->windowTitle(), QString("Sprites: Others"));
    QCOMPARE(m_window->spriteIndex(), 1);
    QCOMPARE(child<NumberRange>()->maximum(), 2);
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 1);
    QCOMPARE(TestSprites::values(other), QList<int>({1, 2}));
    m_window->setSprites(nullptr);
}

void tst_SpriteWindow::noBankShowsThePlaceholderAgain()
{
    m_window->setSprites(nullptr);

    QCOMPARE(m_window->windowTitle(), QString("Sprite Editor"));
    QVERIFY(!m_window->isContentShown());
    QVERIFY(!child<SpriteList>()->sprites());
}

void tst_SpriteWindow::aBankThatDiesShowsThePlaceholder()
{
    m_project->project.deleteSpriteBank(m_project->sprites->id());

    QVERIFY(!m_project->sprites);
    QVERIFY(!m_window->isContentShown());
    QCOMPARE(m_window->windowTitle(), QString("Sprite Editor"));
    paint({2, 2}, 7);
    child<NumberRange>()->setValue(2);
    emit child<SpriteList>()->addSprite();
    m_window->refresh();
    m_window->copy();
}

void tst_SpriteWindow::theNumberChoosesTheSprite()
{
    QTest::keyClicks(child<NumberRange>()->findChild<QLineEdit *>(), "3\r");

    QCOMPARE(m_window->spriteIndex(), 3);
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 22);
    QCOMPARE(child<SpriteList>()->selectedIndex(), 2);
    QCOMPARE(values(), QList<int>({20, 21, 22, 23}));
}

void tst_SpriteWindow::theListChoosesTheSprite()
{
    auto *list = child<SpriteList>();

    QTest::mouseClick(list, Qt::LeftButton, {}, list->cellRect(3).center());

    QCOMPARE(child<NumberRange>()->value(), 4);
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 23);
}

void tst_SpriteWindow::paintingWritesToTheShownSprite()
{
    child<NumberRange>()->setValue(2);
    QSignalSpy changed(m_project->sprites, &SpriteBank::imageChanged);

    paint({5, 6}, 77);

    QCOMPARE(m_project->sprites->sprite(1).pixelIndex(5, 6), 77);
    QCOMPARE(m_project->sprites->sprite(1).pixelIndex(4, 6), 21);
    QCOMPARE(values(), QList<int>({20, 21, 22, 23}));
    QVERIFY(changed.count() > 0);
    for (const auto &arguments : changed)
        QCOMPARE(arguments.at(0).toInt(), 1);
}

void tst_SpriteWindow::aStrokeIsOneUndoStep()
{
    paint({5, 6}, 77);

    QCOMPARE(stack()->count(), 1);
    stack()->undo();
    QCOMPARE(m_project->sprites->sprite(0).pixelIndex(5, 6), 20);
    QCOMPARE(child<Canvas>()->image().pixelIndex(5, 6), 20);
    stack()->redo();
    QCOMPARE(m_project->sprites->sprite(0).pixelIndex(5, 6), 77);
    QCOMPARE(child<Canvas>()->image().pixelIndex(5, 6), 77);
    QCOMPARE(stack()->count(), 1);
}

void tst_SpriteWindow::undoReachesASpriteThatIsNotShown()
{
    paint({5, 6}, 77);
    child<NumberRange>()->setValue(2);

    stack()->undo();

    QCOMPARE(m_project->sprites->sprite(0).pixelIndex(5, 6), 20);
    QCOMPARE(child<Canvas>()->image().pixelIndex(5, 6), 21);
    m_window.reset();
    stack()->redo();
    QCOMPARE(m_project->sprites->sprite(0).pixelIndex(5, 6), 77);
}

void tst_SpriteWindow::strokesGoToTheStackOfTheBank()
{
    QList<QUuid> asked;
    m_window->setStackFor([&](const QUuid &id) {
        asked.append(id);
        return m_project->stackOf(id);
    });

    paint({1, 1}, 5);
    child<ToolPalette>()->action(Tool::MoveUp)->trigger();
    child<ToolPalette>()->action(Tool::MoveUp)->trigger();

    const QUuid id = m_project->sprites->id();
    QCOMPARE(asked, QList<QUuid>({id, id, id}));
    QCOMPARE(stack()->count(), 2); // scrolls in a row are one step
    QCOMPARE(stack()->text(1), QString("Scroll"));
    child<NumberRange>()->setValue(2);
    paint({0, 0}, 9);
    child<ToolPalette>()->action(Tool::MoveUp)->trigger();
    QCOMPARE(stack()->count(), 4);
}

void tst_SpriteWindow::withoutStackStrokesAreNotRecorded()
{
    m_window->setStackFor({});

    paint({1, 1}, 5);

    QCOMPARE(m_project->sprites->sprite(0).pixelIndex(1, 1), 5);
    QCOMPARE(stack()->count(), 0);
}

void tst_SpriteWindow::everyBankEditIsOneUndoStep_data()
{
    using Edit = std::function<void(SpriteList *)>;
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("after");

    QTest::newRow("add") << Edit([](SpriteList *l) { emit l->addSprite(); }) << "Add Sprite"
                         << QList<int>({20, 21, 22, 23, 0});
    QTest::newRow("delete") << Edit([](SpriteList *l) { emit l->deleteRequested(1); })
                            << "Delete Sprite" << QList<int>({20, 22, 23});
    QTest::newRow("clear") << Edit([](SpriteList *l) { emit l->clearRequested(0); })
                           << "Clear Sprite" << QList<int>({0, 21, 22, 23});
    QTest::newRow("copy") << Edit([](SpriteList *l) { emit l->copySprite(0, 2); }) << "Copy Sprite"
                          << QList<int>({20, 21, 20, 23});
    QTest::newRow("move up") << Edit([](SpriteList *l) { emit l->moveSprite(0, 2); })
                             << "Move Sprite" << QList<int>({21, 22, 20, 23});
    QTest::newRow("move down") << Edit([](SpriteList *l) { emit l->moveSprite(3, 1); })
                               << "Move Sprite" << QList<int>({20, 23, 21, 22});
}

void tst_SpriteWindow::everyBankEditIsOneUndoStep()
{
    QFETCH(std::function<void(SpriteList *)>, edit);
    QFETCH(QString, text);
    QFETCH(QList<int>, after);
    const QList<int> before{20, 21, 22, 23};
    QSignalSpy about(m_project->sprites, &SpriteBank::structureAboutToChange);
    QSignalSpy changed(m_project->sprites, &SpriteBank::structureChanged);

    edit(child<SpriteList>());

    QCOMPARE(values(), after);
    QCOMPARE(about.count(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), text);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->undoText(), text);
    QCOMPARE(child<NumberRange>()->maximum(), after.size());
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), after.first());
    stack()->undo();
    QCOMPARE(values(), before);
    QCOMPARE(child<NumberRange>()->maximum(), 4);
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 20);
    stack()->redo();
    QCOMPARE(values(), after);
}

void tst_SpriteWindow::dropsReorderTheBank()
{
    auto *list = child<SpriteList>();
    const auto sprite = SpriteDrag::mimeData(0);

    QTest::mousePress(list, Qt::LeftButton, {}, list->cellRect(0).center());
    QVERIFY(DragEvents::drop(list, list->cellRect(2).center(), sprite.get()));
    QCOMPARE(values(), QList<int>({21, 22, 20, 23}));
    QTest::mousePress(list, Qt::LeftButton, {}, list->cellRect(0).center());
    DragEvents::drop(list, list->cellRect(3).center(), sprite.get(), Qt::ShiftModifier);

    QCOMPARE(values(), QList<int>({21, 22, 20, 21}));
    QCOMPARE(stack()->count(), 2);
}

void tst_SpriteWindow::deletingTheLastSpriteClearsIt()
{
    SpriteBank *bank = m_project->sprites;
    while (bank->count() > 1)
        bank->deleteSprite(0);

    emit child<SpriteList>()->deleteRequested(0);

    QCOMPARE(values(), QList<int>({0}));
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 0);
    QCOMPARE(stack()->count(), 1);
    stack()->undo();
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 23);
}

void tst_SpriteWindow::deletingTheShownSpriteShowsTheNext()
{
    child<NumberRange>()->setValue(4);

    emit child<SpriteList>()->deleteRequested(3);

    QCOMPARE(m_window->spriteIndex(), 3);
    QCOMPARE(child<NumberRange>()->value(), 3);
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 22);
    QCOMPARE(child<SpriteList>()->selectedIndex(), 2);
}

void tst_SpriteWindow::changesFromElsewhereReachTheCanvas()
{
    m_project->sprites->setImage(0, TestSprites::filled(99));
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 99);

    m_project->sprites->setImage(1, TestSprites::filled(98));
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 99);
    QCOMPARE(values(), QList<int>({99, 98, 22, 23}));
}

void tst_SpriteWindow::anotherPaletteColoursEverything()
{
    Palette *other = m_project->project.createPalette(CreateDefault, "Other");
    other->setColour(20, Qt::red, false);
    QSignalSpy changed(m_project->sprites, &SpriteBank::imageChanged);

    m_window->setSpritePalette(other);

    QCOMPARE(m_project->sprites->palette(), other);
    QCOMPARE(child<Canvas>()->palette(), other);
    QCOMPARE(changed.count(), 1);
    const auto *list = child<SpriteList>();
    const QImage shown = child<SpriteList>()->grab().toImage();
    QCOMPARE(shown.pixelColor(list->cellRect(0).center()), QColor(Qt::red));
    QCOMPARE(values(), QList<int>({20, 21, 22, 23}));
}

void tst_SpriteWindow::fourBitBanksOfferSixteenColours()
{
    SpriteBank *bank = m_project->project.createSpriteBank(Tessaril::Sprite::FourBit, "Small",
                                                           m_project->palette->id());
    auto *colours = child<ColourPalette>();
    colours->setPrimaryColour(200);

    m_window->setSprites(bank);

    QCOMPARE(child<Canvas>()->imageType(), Tessaril::Ui::ImageType::Offset16);
    QVERIFY(colours->primaryIndex() < 16);
    QVERIFY(child<Canvas>()->ink() < 16);
    m_window->setSprites(m_project->sprites);
    QCOMPARE(child<Canvas>()->imageType(), Tessaril::Ui::ImageType::Full256);
}

void tst_SpriteWindow::coloursGoToTheCanvasAndBack()
{
    auto *colours = child<ColourPalette>();
    auto *canvas = child<Canvas>();

    colours->setPrimaryColour(12);
    colours->setSecondaryColour(13);
    QCOMPARE(canvas->ink(), 12);
    QCOMPARE(canvas->paper(), 13);
    child<ToolPalette>()->action(Tool::Pick)->trigger();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->viewRect().center());
    QTest::mouseClick(canvas, Qt::RightButton, {}, canvas->viewRect().center());
    QCOMPARE(colours->primaryIndex(), 20);
    QCOMPARE(colours->secondaryIndex(), 20);
}

void tst_SpriteWindow::aFailedPasteKeepsTheTool()
{
    auto *tools = child<ToolPalette>();
    QGuiApplication::clipboard()->setText("no picture");

    tools->action(Tool::Paste)->trigger();
    QVERIFY(tools->action(Tool::Draw)->isChecked());
    QCOMPARE(child<Canvas>()->mode(), Tool::Draw);

    m_window->copy();
    m_window->paste();
    QCOMPARE(child<Canvas>()->mode(), Tool::Paste);
    tools->action(Tool::Draw)->trigger();
    QCOMPARE(child<Canvas>()->mode(), Tool::Draw);
}

void tst_SpriteWindow::theEditMenuDrivesTheCanvas()
{
    auto *canvas = child<Canvas>();
    canvas->setPaper(9);

    m_window->selectAll();
    QVERIFY(canvas->hasSelection());
    m_window->cut();
    QCOMPARE(values().first(), 9);
    QCOMPARE(stack()->count(), 1);
    m_window->selectNone();
    QVERIFY(!canvas->hasSelection());
    m_window->paste();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->cellRect({8, 8, 1, 1}).center());
    QVERIFY(stack()->count() > 1);
    QCOMPARE(m_project->sprites->sprite(0).pixelIndex(8, 8), 20);
}

void tst_SpriteWindow::tabLeadsToTheColoursFirst()
{
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    child<Canvas>()->setFocus();

    QTest::keyClick(child<Canvas>(), Qt::Key_Tab);

    QVERIFY(child<ColourPalette>()->hasFocus());
}

void tst_SpriteWindow::everyToolIsInSightInASmallDock()
{
    m_window->resize(340, 300);
    QCoreApplication::processEvents();

    const auto *tools = child<ToolPalette>();
    for (const QToolButton *button : tools->findChildren<QToolButton *>())
        QVERIFY(tools->rect().contains(button->geometry()));
    const auto *colours = child<ColourPalette>();
    QVERIFY(colours->rect().contains(QRect(QPoint(), colours->grid().size())));
    QVERIFY(child<Canvas>()->visiblePixels().size() == QSize(16, 16));
}

void tst_SpriteWindow::aLargeBankIsScrolledByItself()
{
    m_project->sprites->grow(500);
    m_window->refresh();
    m_window->resize(400, 900);
    QCoreApplication::processEvents();

    QVERIFY(child<SpriteList>()->height() > 2000);
    QCOMPARE(m_window->scrollArea()->verticalScrollBar()->maximum(), 0);
}

void tst_SpriteWindow::theListGetsTheRestOfTheHeight()
{
    const auto *const area = child<SpriteList>()->parentWidget();
    m_window->resize(360, 680); // in a window of 900 pixels
    QTRY_COMPARE(m_window->height(), 680);

    QTRY_VERIFY(area->height() >= 250);
    QCOMPARE(m_window->scrollArea()->horizontalScrollBar()->maximum(), 0);
}

void tst_SpriteWindow::aBankWithoutSpritesLeavesNothingToPaint()
{
    SpriteBank *empty = m_project->project.createSpriteBank(Tessaril::Sprite::EightBit, "Empty",
                                                            m_project->palette->id());
    empty->setStrip(QImage());

    m_window->setSprites(empty);

    QVERIFY(child<Canvas>()->image().isNull());
    QCOMPARE(m_window->spriteIndex(), 1);
    QTest::mouseClick(child<Canvas>(), Qt::LeftButton, {}, child<Canvas>()->rect().center());
    for (const Tool tool : {Tool::Flip, Tool::RotateCW, Tool::MoveUp})
        child<ToolPalette>()->action(tool)->trigger();
    m_window->selectAll();
    m_window->cut();
    QCOMPARE(m_project->stackOf(empty->id())->count(), 0);
    QVERIFY(!m_window->grab().isNull());
    m_window->setSprites(m_project->sprites);
    QCOMPARE(child<Canvas>()->image().pixelIndex(3, 3), 20);
}

void tst_SpriteWindow::bankEditsTellInOrder_data()
{
    using Edit = std::function<void(SpriteList *)>;
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("told");

    QTest::newRow("add") << Edit([](SpriteList *l) { emit l->addSprite(); })
                         << QStringList({"about", "count", "structure Add Sprite"});
    QTest::newRow("delete") << Edit([](SpriteList *l) {
        emit l->deleteRequested(1);
    }) << QStringList({"about", "deleted 1", "count", "structure Delete Sprite"});
    QTest::newRow("clear") << Edit([](SpriteList *l) { emit l->clearRequested(2); })
                           << QStringList({"about", "image 2", "structure Clear Sprite"});
    QTest::newRow("clear none") << Edit([](SpriteList *l) { emit l->clearRequested(4); })
                                << QStringList({"about", "structure Clear Sprite"});
    QTest::newRow("copy") << Edit([](SpriteList *l) { emit l->copySprite(0, 2); })
                          << QStringList({"about", "image 2", "image 0", "structure Copy Sprite"});
    QTest::newRow("move") << Edit([](SpriteList *l) { emit l->moveSprite(3, 1); })
                          << QStringList({"about", "image 3", "swapped 3 2", "image 2",
                                          "swapped 2 1", "image 1", "swapped 1 3", "moved 3 1",
                                          "structure Move Sprite"});
}

void tst_SpriteWindow::bankEditsTellInOrder()
{
    QFETCH(std::function<void(SpriteList *)>, edit);
    QFETCH(QStringList, told);
    SpriteBankLog log(m_project->sprites);

    edit(child<SpriteList>());

    QCOMPARE(log.sent, told);
}

QTEST_MAIN(tst_SpriteWindow)
#include "tst_SpriteWindow.moc"
