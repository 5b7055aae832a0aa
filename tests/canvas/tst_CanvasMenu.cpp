#include "CanvasFixture.h"

#include "canvas/CanvasClipboard.h"

#include <QAction>
#include <QClipboard>
#include <QMenu>

using Kind = PixelEditCommand::Kind;
using Tessaril::Ui::ImageType;
using Tool = Tessaril::Ui::ToolButton;

namespace {

QStringList messages; // those of the canvas

void keepMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    messages += text;
}

} // namespace

/// The entries of the selection's menu, and the buttons that go through the clipboard.
class tst_CanvasMenu : public QObject
{
    Q_OBJECT

private slots:
    void init() { QGuiApplication::clipboard()->clear(); }
    void cutCopiesErasesAndAnnouncesTwice();
    void cutWithoutASelectionCopiesAll();
    void copyChangesNothing();
    void pasteEntersPasteMode();
    void selectAllAndSelectNone();
    void eraseFillsWithPaper();
    void fillFillsWithInk();
    void eraseAndFillNeedASelection();
    void theCutButtonWithoutASelectionOnlyCopies();
    void thePasteButtonNeedsAClip();
    void thePasteButtonDropsTheSelection();
    void pastingTakesOverWhatTheClipHolds();
    void aFailedPasteKeepsTheFormerClip();
    void theSamePaletteIsNotLogged();
    void eachClickPastesUntilAnotherToolIsChosen();

private:
    /// Opens the menu over the canvas with a right click and chooses from it.
    static void choose(CanvasFixture &test, const QString &text);
};

void tst_CanvasMenu::choose(CanvasFixture &test, const QString &text)
{
    test.click(0, 0, Qt::RightButton);
    auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    menu->close();
    for (QAction *const action : menu->actions()) {
        if (action->text() == text)
            action->trigger();
    }
}

void tst_CanvasMenu::cutCopiesErasesAndAnnouncesTwice()
{
    CanvasFixture test({"345", "678"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({1, 0}, {2, 0});

    choose(test, "Cut");

    QCOMPARE(test.rows(), QStringList({"322", "678"}));
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(test.editText(), QString("Erase"));
    QCOMPARE(test.edited->first().at(3).value<Kind>(), Kind::Edit);
    QCOMPARE(test.changed->count(), 2);
    QVERIFY(test.canvas.clipboard()->pasteFromClipboard());
    QCOMPARE(TestImages::rows(test.canvas.clipboard()->image()), QStringList("45"));
}

void tst_CanvasMenu::cutWithoutASelectionCopiesAll()
{
    CanvasFixture test({"34"});
    test.canvas.setMode(Tool::Select, true);

    choose(test, "Cut");

    QCOMPARE(test.rows(), QStringList("34"));
    QCOMPARE(test.edited->count(), 0);
    QCOMPARE(test.changed->count(), 1);
    QVERIFY(test.canvas.clipboard()->pasteFromClipboard());
    QCOMPARE(TestImages::rows(test.canvas.clipboard()->image()), QStringList("34"));
}

void tst_CanvasMenu::copyChangesNothing()
{
    CanvasFixture test({"34"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({1, 0}, {1, 0});

    choose(test, "Copy");

    QCOMPARE(test.rows(), QStringList("34"));
    QCOMPARE(test.changed->count(), 0);
    QCOMPARE(test.canvas.selection(), QRect(1, 0, 1, 1));
}

void tst_CanvasMenu::pasteEntersPasteMode()
{
    CanvasFixture test({"34"});
    test.canvas.copy();
    test.canvas.setMode(Tool::Select, true);

    choose(test, "Paste");

    QCOMPARE(test.canvas.mode(), Tool::Paste);
    QCOMPARE(test.changed->count(), 0);
}

void tst_CanvasMenu::selectAllAndSelectNone()
{
    CanvasFixture test({"34", "56"});
    test.canvas.setMode(Tool::Select, true);

    choose(test, "Select All");
    QCOMPARE(test.canvas.selection(), QRect(0, 0, 2, 2));
    choose(test, "Select None");

    QVERIFY(!test.canvas.hasSelection());
    QCOMPARE(test.canvas.mode(), Tool::Select);
}

void tst_CanvasMenu::eraseFillsWithPaper()
{
    CanvasFixture test({"34", "56"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({0, 0}, {0, 1});

    choose(test, "Erase");

    QCOMPARE(test.rows(), QStringList({"24", "26"}));
    QCOMPARE(test.changed->count(), 1);
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(test.editText(), QString("Erase"));
    QCOMPARE(test.edited->first().at(3).value<Kind>(), Kind::Edit);
    QVERIFY(!test.canvas.clipboard()->pasteFromClipboard());
}

void tst_CanvasMenu::fillFillsWithInk()
{
    CanvasFixture test({"34", "56"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({0, 0}, {1, 0});

    choose(test, "Fill");

    QCOMPARE(test.rows(), QStringList({"11", "56"}));
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(test.editText(), QString("Fill"));
    QCOMPARE(test.edited->first().at(3).value<Kind>(), Kind::Edit);
}

void tst_CanvasMenu::eraseAndFillNeedASelection()
{
    CanvasFixture test({"34", "56"});
    test.canvas.setMode(Tool::Select, true);

    choose(test, "Erase");
    choose(test, "Fill");

    QCOMPARE(test.rows(), QStringList({"34", "56"}));
    QCOMPARE(test.changed->count(), 0);
}

void tst_CanvasMenu::theCutButtonWithoutASelectionOnlyCopies()
{
    CanvasFixture test({"34"});

    test.canvas.setMode(Tool::Cut, false);

    QCOMPARE(test.rows(), QStringList("34"));
    QCOMPARE(test.edited->count(), 0);
    QVERIFY(test.canvas.clipboard()->pasteFromClipboard());
    QCOMPARE(TestImages::rows(test.canvas.clipboard()->image()), QStringList("34"));
}

void tst_CanvasMenu::thePasteButtonNeedsAClip()
{
    CanvasFixture test({"34"});

    test.canvas.setMode(Tool::Paste, true);
    QCOMPARE(test.canvas.mode(), Tool::Draw);
    test.canvas.copy();
    test.canvas.setMode(Tool::Paste, true);

    QCOMPARE(test.canvas.mode(), Tool::Paste);
}

void tst_CanvasMenu::thePasteButtonDropsTheSelection()
{
    CanvasFixture test({"34"});
    test.canvas.selectAll();

    test.canvas.setMode(Tool::Paste, true);

    QVERIFY(!test.canvas.hasSelection());
}

void tst_CanvasMenu::pastingTakesOverWhatTheClipHolds()
{
    CanvasFixture source({"34"});
    source.canvas.setImageOffset(3);
    source.canvas.setImageType(ImageType::UlaPlus);
    source.canvas.copy();
    CanvasFixture test({"00"});
    test.canvas.setPalette(&source.palette);
    QSignalSpy pasted(test.canvas.clipboard(), &CanvasClipboard::pasted);

    QVERIFY(test.canvas.clipboard()->pasteFromClipboard());

    QCOMPARE(pasted, QList<QVariantList>{{source.palette.id()}});
    QCOMPARE(test.canvas.clipboard()->offset(), 3);
    QCOMPARE(test.canvas.clipboard()->imageType(), ImageType::UlaPlus);
    QCOMPARE(test.canvas.imageType(), ImageType::Full256);
    QCOMPARE(test.canvas.imageOffset(), 0);
}

void tst_CanvasMenu::aFailedPasteKeepsTheFormerClip()
{
    CanvasFixture test({"34"});
    test.canvas.copy();
    test.canvas.paste();
    test.canvas.setMode(Tool::Draw, true);
    QGuiApplication::clipboard()->setText("34");

    QVERIFY(!test.canvas.clipboard()->pasteFromClipboard());

    QCOMPARE(TestImages::rows(test.canvas.clipboard()->image()), QStringList("34"));
    QCOMPARE(test.canvas.clipboard()->imageType(), ImageType::Full256);
    QCOMPARE(test.canvas.mode(), Tool::Draw);
}

void tst_CanvasMenu::theSamePaletteIsNotLogged()
{
    CanvasFixture test({"34"});
    test.canvas.copy();
    messages.clear();
    const QtMessageHandler former = qInstallMessageHandler(keepMessage);

    test.canvas.paste();
    const QStringList ofTheSame = messages;
    test.palette.setId(QUuid::createUuid());
    test.canvas.paste();
    qInstallMessageHandler(former);

    QCOMPARE(ofTheSame, QStringList());
    QCOMPARE(messages, QStringList("Pasting to image with different palette"));
}

void tst_CanvasMenu::eachClickPastesUntilAnotherToolIsChosen()
{
    CanvasFixture test({"9000"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({0, 0}, {0, 0});
    test.canvas.copy();
    test.canvas.paste();

    test.click(1, 0);
    test.click(2, 0, Qt::RightButton);
    test.canvas.setMode(Tool::Draw, true);
    test.click(3, 0);

    QCOMPARE(test.rows(), QStringList("9991"));
    QCOMPARE(test.edited->count(), 3);
    QCOMPARE(test.edited->at(1).first().toString(), QString("Paste"));
    QCOMPARE(test.edited->at(1).at(3).value<Kind>(), Kind::Edit);
}

QTEST_MAIN(tst_CanvasMenu)
#include "tst_CanvasMenu.moc"
