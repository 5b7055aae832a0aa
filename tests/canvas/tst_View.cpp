#include "canvas/Canvas.h"
#include "canvas/View.h"
#include "colour/ColourPalette.h"
#include "model/Image.h"
#include "model/Palette.h"
#include "support/TestImages.h"
#include "uikit/ToolPalette.h"

#include <QClipboard>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QUndoStack>

using Tool = Tessaril::Ui::ToolButton;

class tst_View : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aStrokeIsOneUndoStepAndReachesTheDocument();
    void scrollsMergeAndStrokesDoNot();
    void undoPutsThePictureBackInTheDocument();
    void colourPicksSetInkAndPaper();
    void pickedPixelsReachTheColours();
    void pickedPaperReachesTheColours();
    void openAndSaveOpenTheirDialogs_data();
    void openAndSaveOpenTheirDialogs();
    void otherToolsReachTheCanvas();
    void theGridMenuTogglesBothOverlays();
    void theWideScreenHasTallPixels();
    void anExportedPictureKeepsItsColours();
    void theSaveDialogExports();
    void anExportThatFailsReportsNothing();
    void anImportReplacesPictureAndColours();
    void anImportSetsTheColoursInOrder();
    void theDocumentHasTheColoursOfThePalette();
    void anImportIsNoUndoStepByItself();
    void aFileThatIsNoPictureChangesNothing();
    void cutCopyPasteAndSelections();
    void withoutAStackNothingIsRecorded();
    void scrollsOfTwoViewsDoNotMerge();
    void startsReadyToDraw();
    void tabLeadsToTheColoursFirst();
    void theSideIsOneColumnBesideTheCanvas();
    void theFocusGoesToTheCanvas();

private:
    void click(QPoint pixel);

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<Image> m_document;
    std::unique_ptr<QUndoStack> m_stack;
    std::unique_ptr<ImageEditor::View> m_view;
};

void tst_View::init()
{
    m_view.reset();
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
    m_document = std::make_unique<Image>(Tessaril::ImageMode::LoRes_128x96);
    m_document->setPalette(m_palette.get());
    m_stack = std::make_unique<QUndoStack>();
    m_view = std::make_unique<ImageEditor::View>();
    m_view->setPalette(m_palette.get());
    m_view->setImage(m_document->image());
    m_view->setUndoStack(m_stack.get());
    connect(m_view.get(), &ImageEditor::View::imageChanged, m_document.get(), &Image::setImage);
    m_view->resize(700, 500);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void tst_View::click(QPoint pixel)
{
    Canvas *const canvas = m_view->canvas();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->cellRect({pixel, QSize(1, 1)}).center());
}

void tst_View::aStrokeIsOneUndoStepAndReachesTheDocument()
{
    m_view->colourPalette()->setPrimaryColour(9);

    click({3, 4});

    QCOMPARE(m_document->image().pixelIndex(3, 4), 9);
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_stack->undoText(), QString("Draw"));
}

void tst_View::scrollsMergeAndStrokesDoNot()
{
    m_view->colourPalette()->setPrimaryColour(9);
    click({3, 4});
    click({5, 4});
    QCOMPARE(m_stack->count(), 2);

    m_view->changeMode(Tool::MoveUp, false);
    m_view->changeMode(Tool::MoveLeft, false);
    QCOMPARE(m_stack->count(), 3);
    click({9, 9});
    m_view->changeMode(Tool::MoveUp, false);

    QCOMPARE(m_stack->count(), 5);
    QCOMPARE(m_stack->undoText(), QString("Scroll"));
}

void tst_View::undoPutsThePictureBackInTheDocument()
{
    const QImage before = m_document->image();
    m_view->colourPalette()->setPrimaryColour(9);
    click({3, 4});
    const QImage after = m_document->image();

    m_stack->undo();
    QCOMPARE(TestImages::rows(m_document->image()), TestImages::rows(before));
    m_stack->redo();

    QCOMPARE(TestImages::rows(m_document->image()), TestImages::rows(after));
    QCOMPARE(m_stack->count(), 1);
}

void tst_View::colourPicksSetInkAndPaper()
{
    m_view->colourPalette()->setPrimaryColour(200);
    m_view->colourPalette()->setSecondaryColour(100);

    QCOMPARE(m_view->canvas()->ink(), 200);
    QCOMPARE(m_view->canvas()->paper(), 100);
}

void tst_View::pickedPixelsReachTheColours()
{
    QImage picture = m_document->image();
    picture.setPixel(7, 7, 77);
    m_view->setImage(picture);
    m_view->changeMode(Tool::Pick, true);

    click({7, 7});

    QCOMPARE(m_view->colourPalette()->primaryIndex(), 77);
    QCOMPARE(m_stack->count(), 0);
}

void tst_View::pickedPaperReachesTheColours()
{
    QImage picture = m_document->image();
    picture.setPixel(7, 7, 77);
    m_view->setImage(picture);
    m_view->changeMode(Tool::Pick, true);

    Canvas *const canvas = m_view->canvas();
    QTest::mouseClick(canvas, Qt::RightButton, {}, canvas->cellRect(QRect(7, 7, 1, 1)).center());

    QCOMPARE(m_view->colourPalette()->secondaryIndex(), 77);
    QCOMPARE(m_view->colourPalette()->primaryIndex(), 0);
    QCOMPARE(canvas->paper(), 77);
}

void tst_View::openAndSaveOpenTheirDialogs_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<QFileDialog::AcceptMode>("mode");
    QTest::newRow("open") << Tool::Open << QFileDialog::AcceptOpen;
    QTest::newRow("save") << Tool::Save << QFileDialog::AcceptSave;
}

void tst_View::openAndSaveOpenTheirDialogs()
{
    QFETCH(Tool, tool);
    QFETCH(QFileDialog::AcceptMode, mode);
    const Tool before = m_view->canvas()->mode();

    m_view->changeMode(tool, false);
    m_view->changeMode(tool, false);

    const auto dialogs = m_view->findChildren<QFileDialog *>();
    QCOMPARE(dialogs.size(), 1);
    QFileDialog *const dialog = dialogs.first();
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->windowTitle(), QString("Export Image"));
    QCOMPARE(dialog->nameFilters(), QStringList({"Images (*.png *.xpm *.jpg *.bmp)"}));
    QCOMPARE(dialog->defaultSuffix(), QString("png"));
    QCOMPARE(dialog->acceptMode(), mode);
    QVERIFY(dialog->testOption(QFileDialog::DontUseNativeDialog));
    QCOMPARE(m_view->canvas()->mode(), before);
}

void tst_View::otherToolsReachTheCanvas()
{
    m_view->toolPalette()->action(Tool::Circle)->trigger();

    QCOMPARE(m_view->canvas()->mode(), Tool::Circle);
}

void tst_View::theGridMenuTogglesBothOverlays()
{
    const auto buttons = m_view->findChildren<QToolButton *>();
    const auto grid = std::find_if(buttons.begin(), buttons.end(),
                                   [](QToolButton *button) { return button->menu() != nullptr; });
    QVERIFY(grid != buttons.end());
    QCOMPARE((*grid)->text(), QString("Grid"));
    const auto actions = (*grid)->menu()->actions();
    QCOMPARE(actions.size(), 2);
    QCOMPARE(actions.at(0)->text(), QString("Lines"));
    QCOMPARE(actions.at(1)->text(), QString("Checkers"));

    actions.at(0)->trigger();
    QVERIFY(m_view->canvas()->areGridLinesVisible());
    QVERIFY(!m_view->canvas()->areCheckersVisible());
    actions.at(1)->trigger();
    QVERIFY(m_view->canvas()->areCheckersVisible());
    actions.at(0)->trigger();

    QVERIFY(!m_view->canvas()->areGridLinesVisible());
    QVERIFY(m_view->canvas()->areCheckersVisible());
}

void tst_View::theWideScreenHasTallPixels()
{
    m_view->setMode(Tessaril::ImageMode::Layer2_640x256);
    QVERIFY(m_view->canvas()->isHiRes());

    m_view->setMode(Tessaril::ImageMode::Layer2_256x192);

    QVERIFY(!m_view->canvas()->isHiRes());
}

void tst_View::anExportedPictureKeepsItsColours()
{
    const QTemporaryDir folder;
    m_view->colourPalette()->setPrimaryColour(0xE0);
    click({3, 4});

    m_view->exportImage(folder.filePath("out.png"));

    const QImage written(folder.filePath("out.png"));
    QCOMPARE(written.size(), QSize(128, 96));
    QCOMPARE(written.pixel(3, 4), qRgb(255, 0, 0));
    QCOMPARE(written.pixel(4, 4), qRgb(0, 0, 0));
}

void tst_View::theSaveDialogExports()
{
    const QTemporaryDir folder;
    m_view->changeMode(Tool::Save, false);

    emit m_view->findChild<QFileDialog *>()->fileSelected(folder.filePath("out.bmp"));

    QCOMPARE(QImage(folder.filePath("out.bmp"), "bmp").size(), QSize(128, 96));
}

void tst_View::anExportThatFailsReportsNothing()
{
    const QTemporaryDir folder;

    m_view->exportImage(folder.filePath("missing/out.png"));
    m_view->exportImage(folder.filePath("out.nonsense"));

    QVERIFY(!QFile::exists(folder.filePath("out.nonsense")));
    QVERIFY(!m_view->findChild<QMessageBox *>());
}

void tst_View::anImportReplacesPictureAndColours()
{
    const QTemporaryDir folder;
    QImage picture(10, 6, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(0, 0, 0), qRgb(255, 0, 0), qRgb(0, 255, 0)});
    picture.fill(1);
    picture.setPixel(9, 5, 2);
    QVERIFY(picture.save(folder.filePath("in.png")));

    QVERIFY(m_view->importImage(folder.filePath("in.png")));

    QCOMPARE(m_document->image().size(), QSize(10, 6));
    QCOMPARE(m_document->image().pixelIndex(0, 0), 1);
    QCOMPARE(m_document->image().pixelIndex(9, 5), 2);
    QCOMPARE(m_palette->colour(1), QColor(255, 0, 0));
    QCOMPARE(m_palette->colour(2), QColor(0, 255, 0));
}

void tst_View::anImportSetsTheColoursInOrder()
{
    const QTemporaryDir folder;
    QImage picture(10, 6, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(255, 255, 255), qRgb(255, 0, 0), qRgb(0, 255, 0)});
    picture.fill(2);
    QVERIFY(picture.save(folder.filePath("in.png")));
    QStringList order;
    connect(m_view.get(), &ImageEditor::View::imageChanged, this, [&order] { order += "image"; });
    connect(m_palette.get(), &Palette::colourEdited, this,
            [&order](int index) { order += QString::number(index); });

    m_view->changeMode(Tool::Open, false);
    emit m_view->findChild<QFileDialog *>()->fileSelected(folder.filePath("in.png"));

    QCOMPARE(order, QStringList({"image", "image", "0", "image", "1", "image", "2"}));
    QCOMPARE(m_document->image().color(2), qRgb(0, 255, 0));
    QCOMPARE(m_view->canvas()->image().color(2), qRgb(0, 255, 0));
    QVERIFY(!m_view->findChild<QMessageBox *>());
}

void tst_View::theDocumentHasTheColoursOfThePalette()
{
    Palette other;
    QSignalSpy changed(m_view.get(), &ImageEditor::View::imageChanged);

    m_palette->setColour(3, Qt::red, false);
    QCOMPARE(m_document->image().color(3), qRgb(255, 0, 0));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_stack->count(), 0);
    m_view->setPalette(&other);
    m_palette->setColour(3, Qt::white, false);
    m_view->setPalette(nullptr);
    other.setColour(3, Qt::white, false);
    QCOMPARE(changed.count(), 1);

    m_view->setPalette(&other);
    m_view->setImage(QImage());
    changed.clear();
    other.setColour(3, Qt::green, false);
    QCOMPARE(changed.count(), 0);
}

void tst_View::anImportIsNoUndoStepByItself()
{
    const QTemporaryDir folder;
    QVERIFY(m_document->image().save(folder.filePath("in.png")));
    QSignalSpy colours(m_palette.get(), &Palette::colourEdited);
    m_palette->setColour(0, Qt::red, false);

    QVERIFY(m_view->importImage(folder.filePath("in.png")));

    QCOMPARE(m_stack->count(), 0);
    QVERIFY(colours.count() >= 2);
}

void tst_View::aFileThatIsNoPictureChangesNothing()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("text.png"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    QSignalSpy changed(m_view.get(), &ImageEditor::View::imageChanged);

    QVERIFY(!m_view->importImage(file.fileName()));
    QVERIFY(!m_view->importImage(folder.filePath("missing.png")));

    QCOMPARE(changed.count(), 0);
    m_view->changeMode(Tool::Open, false);
    emit m_view->findChild<QFileDialog *>()->fileSelected(file.fileName());
    const auto *const box = m_view->findChild<QMessageBox *>();
    QVERIFY(box && box->isVisible());
    QCOMPARE(box->text(), QString("Could not read the image file"));
}

void tst_View::cutCopyPasteAndSelections()
{
    QGuiApplication::clipboard()->clear();
    m_view->colourPalette()->setPrimaryColour(9);
    m_view->colourPalette()->setSecondaryColour(5);
    m_view->selectAll();
    QVERIFY(m_view->canvas()->hasSelection());

    m_view->cut();
    QCOMPARE(m_document->image().pixelIndex(0, 0), 5);
    QCOMPARE(m_stack->undoText(), QString("Erase"));
    m_view->selectNone();
    QVERIFY(!m_view->canvas()->hasSelection());
    m_view->paste();

    QCOMPARE(m_view->canvas()->mode(), Tool::Paste);
}

void tst_View::withoutAStackNothingIsRecorded()
{
    m_view->setUndoStack(nullptr);
    m_view->colourPalette()->setPrimaryColour(9);

    click({3, 4});

    QCOMPARE(m_document->image().pixelIndex(3, 4), 9);
    QCOMPARE(m_stack->count(), 0);
}

void tst_View::scrollsOfTwoViewsDoNotMerge()
{
    ImageEditor::View other;
    other.setPalette(m_palette.get());
    other.setImage(m_document->image());
    other.setUndoStack(m_stack.get());
    for (ImageEditor::View *const view : {m_view.get(), &other}) {
        QImage picture = m_document->image();
        picture.setPixel(0, 0, 9);
        view->setImage(picture);
    }

    m_view->changeMode(Tool::MoveUp, false);
    other.changeMode(Tool::MoveUp, false);

    QCOMPARE(m_stack->count(), 2);
}

void tst_View::startsReadyToDraw()
{
    QVERIFY(m_view->toolPalette()->action(Tool::Draw)->isChecked());
    m_view->setFocus();
    QVERIFY(m_view->canvas()->hasFocus());
    // The middle button reaches the palette that the colours show.
    QTest::mouseClick(m_view->colourPalette(), Qt::MiddleButton, {}, {4, 4});
    QCOMPARE(m_palette->transparencyIndex(), 0);
}

void tst_View::tabLeadsToTheColoursFirst()
{
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_view->canvas()->setFocus();

    QTest::keyClick(m_view->canvas(), Qt::Key_Tab);
    QVERIFY(m_view->colourPalette()->hasFocus());
    QTest::keyClick(m_view->colourPalette(), Qt::Key_Backtab);

    QVERIFY(m_view->canvas()->hasFocus());
}

void tst_View::theSideIsOneColumnBesideTheCanvas()
{
    const auto *scroller = m_view->findChild<QScrollArea *>();

    QCOMPARE(scroller->width(), 190);
    QCOMPARE(scroller->geometry().right(), m_view->width() - 1);
    QCOMPARE(scroller->viewport()->width() + scroller->verticalScrollBar()->width() *
                                                 scroller->verticalScrollBar()->isVisible(),
             190); // no frame
    QCOMPARE(scroller->widget()->width(), scroller->viewport()->width());
    m_view->resize(500, 200);
    QTRY_VERIFY(scroller->verticalScrollBar()->isVisible());
    QVERIFY(!scroller->horizontalScrollBar()->isVisible());
    QVERIFY(m_view->canvas()->width() > 200);
}

void tst_View::theFocusGoesToTheCanvas()
{
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));

    m_view->setFocus();

    QVERIFY(m_view->canvas()->hasFocus());
    QCOMPARE(m_view->focusPolicy(), Qt::ClickFocus);
}

QTEST_MAIN(tst_View)
#include "tst_View.moc"
