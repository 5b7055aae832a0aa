#include "CanvasFixture.h"

#include "canvas/CanvasClipboard.h"

#include <QAction>
#include <QBuffer>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QRubberBand>

using Tool = Tessaril::Ui::ToolButton;
using Tessaril::Ui::ImageType;

class tst_CanvasClipboard : public QObject
{
    Q_OBJECT

private slots:
    void init() { QGuiApplication::clipboard()->clear(); }
    void theFormatHoldsOffsetTypePaletteAndPicture();
    void anOrdinaryPictureRidesAlong();
    void copyWithoutASelectionTakesAll();
    void aSelectionKeepsItsIndices();
    void greyColoursKeepTheirIndices();
    void copyActionsReportCopied();
    void cutActionsReportTwiceAndErase();
    void pasteEntersPasteModeAndStays();
    void escapeGoesBackToTheToolBeforeThePaste();
    void escapeTakesASelectionAway();
    void escapeIsLeftToOthersElse();
    void pasteOutsideTheImageIsDropped();
    void anotherPaletteIsLoggedAndIndicesStay();
    void thePasteFrameFollowsTheMouse();
    void aForeignPictureIsNotPasted();
    void damagedDataIsNotPasted_data();
    void damagedDataIsNotPasted();

private:
    static QByteArray clipBytes()
    {
        const auto *const data = QGuiApplication::clipboard()->mimeData();
        return data->data("tessaril/canvas-anim");
    }
    static QAction *menuAction(Canvas &canvas, const QString &text);
};

QAction *tst_CanvasClipboard::menuAction(Canvas &canvas, const QString &text)
{
    canvas.setMode(Tool::Select, true);
    QTest::mouseClick(&canvas, Qt::RightButton, {}, canvas.viewRect().center());
    auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return nullptr;
    menu->close();
    for (QAction *const action : menu->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

void tst_CanvasClipboard::theFormatHoldsOffsetTypePaletteAndPicture()
{
    CanvasFixture test({"12", "34"});
    test.palette.setId(QUuid("{00112233-4455-6677-8899-aabbccddeeff}"));
    test.canvas.setImageOffset(3);
    test.canvas.setImageType(ImageType::Offset16);

    test.canvas.copy();

    const QByteArray bytes = clipBytes();
    QCOMPARE(bytes.left(8), QByteArray("\0\0\0\3\0\0\0\2", 8));
    QCOMPARE(bytes.mid(8, 16).toHex(), QByteArray("00112233445566778899aabbccddeeff"));
    QCOMPARE(bytes.mid(24, 4), QByteArray("\x89PNG"));
    QCOMPARE(TestImages::rows(QImage::fromData(bytes.mid(24), "png")), QStringList({"12", "34"}));
}

void tst_CanvasClipboard::anOrdinaryPictureRidesAlong()
{
    CanvasFixture test({"12", "34"});

    test.canvas.copy();

    const auto *const data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data->hasImage());
    QCOMPARE(data->imageData().value<QImage>().size(), QSize(2, 2));
}

void tst_CanvasClipboard::copyWithoutASelectionTakesAll()
{
    CanvasFixture test({"123", "456"});

    test.canvas.setMode(Tool::Copy, false);
    QVERIFY(test.canvas.clipboard()->pasteFromClipboard());

    QCOMPARE(TestImages::rows(test.canvas.clipboard()->image()), QStringList({"123", "456"}));
    QCOMPARE(test.canvas.clipboard()->imageType(), ImageType::Full256);
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasClipboard::aSelectionKeepsItsIndices()
{
    CanvasFixture test({"00000", "01230", "04560", "07890", "00000"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({1, 1}, {3, 3});

    test.canvas.setMode(Tool::Copy, false);
    QVERIFY(test.canvas.hasSelection());
    QVERIFY(test.canvas.clipboard()->pasteFromClipboard());

    QCOMPARE(TestImages::rows(test.canvas.clipboard()->image()),
             QStringList({"123", "456", "789"}));
}

void tst_CanvasClipboard::greyColoursKeepTheirIndices()
{
    CanvasFixture test({"0f"});
    Palette black; // a picture of one black colour only would be written as grey
    test.canvas.setPalette(&black);

    test.canvas.copy();
    QVERIFY(test.canvas.clipboard()->pasteFromClipboard());

    QCOMPARE(TestImages::rows(test.canvas.clipboard()->image()), QStringList({"0f"}));
}

void tst_CanvasClipboard::copyActionsReportCopied()
{
    CanvasFixture test({"12", "34"});
    QSignalSpy copied(test.canvas.clipboard(), &CanvasClipboard::copied);

    menuAction(test.canvas, "Copy")->trigger();

    QCOMPARE(copied.count(), 1);
    QCOMPARE(copied.first().first().toBool(), false);
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasClipboard::cutActionsReportTwiceAndErase()
{
    CanvasFixture test({"123", "456"});
    QAction *const cut = menuAction(test.canvas, "Cut");
    test.drag({0, 0}, {1, 0});
    QSignalSpy copied(test.canvas.clipboard(), &CanvasClipboard::copied);

    cut->trigger();

    QCOMPARE(copied.count(), 2);
    QCOMPARE(copied.at(0).first().toBool(), true);
    QCOMPARE(copied.at(1).first().toBool(), false);
    QCOMPARE(test.rows(), QStringList({"223", "456"}));
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(test.editText(), QString("Erase"));
    QVERIFY(!clipBytes().isEmpty());
}

void tst_CanvasClipboard::pasteEntersPasteModeAndStays()
{
    CanvasFixture source({"777", "787", "777"});
    source.canvas.copy();
    CanvasFixture test({"000000", "000000", "000000"});
    test.canvas.setPalette(&source.palette);
    test.canvas.selectAll();

    test.canvas.paste();
    QCOMPARE(test.canvas.mode(), Tool::Paste);
    QVERIFY(!test.canvas.hasSelection());
    test.click(1, 1);
    test.click(4, 1);

    QCOMPARE(test.rows(), QStringList({"777777", "787787", "777777"}));
    QCOMPARE(test.edited->count(), 2);
    QCOMPARE(test.editText(), QString("Paste"));
    QCOMPARE(test.canvas.mode(), Tool::Paste);
}

void tst_CanvasClipboard::pasteOutsideTheImageIsDropped()
{
    CanvasFixture source({"7777", "7777"});
    source.canvas.copy();
    CanvasFixture test({"000", "000"});
    test.canvas.setPalette(&source.palette);

    test.canvas.paste();
    test.click(0, 0);

    QCOMPARE(test.rows(), QStringList({"770", "000"}));
}

void tst_CanvasClipboard::anotherPaletteIsLoggedAndIndicesStay()
{
    CanvasFixture source({"9"});
    source.canvas.copy();
    CanvasFixture test({"0"});
    QTest::ignoreMessage(QtInfoMsg, "Pasting to image with different palette");

    test.canvas.paste();
    test.click(0, 0);

    QCOMPARE(test.rows(), QStringList({"9"}));
}

void tst_CanvasClipboard::thePasteFrameFollowsTheMouse()
{
    CanvasFixture source({"ee", "ee"});
    source.canvas.copy();
    CanvasFixture test({"000000", "000000", "000000", "000000", "000000", "000000"}, 20);
    test.canvas.setPalette(&source.palette);
    test.canvas.paste();

    test.move(2, 2, Qt::NoButton);
    const QImage first = test.canvas.grab().toImage();
    test.move(5, 5, Qt::NoButton);
    const QImage second = test.canvas.grab().toImage();

    const QColor pasted = source.palette.colour(0xe);
    QCOMPARE(first.pixelColor(test.at(2, 2)), pasted);
    QCOMPARE(second.pixelColor(test.at(2, 2)), QColor(0, 0, 0));
    QCOMPARE(second.pixelColor(test.at(5, 5)), pasted);
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasClipboard::aForeignPictureIsNotPasted()
{
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QGuiApplication::clipboard()->setImage(picture);
    CanvasFixture test({"00", "00"});

    QVERIFY(!test.canvas.clipboard()->pasteFromClipboard());
    test.canvas.paste();

    QCOMPARE(test.canvas.mode(), Tool::Draw);
    QVERIFY(test.canvas.clipboard()->image().isNull());
}

void tst_CanvasClipboard::damagedDataIsNotPasted_data()
{
    CanvasFixture source({"12", "34"});
    source.canvas.copy();
    const QByteArray whole = clipBytes();
    QByteArray colours = whole.left(24);
    QBuffer buffer(&colours);
    QVERIFY(buffer.open(QIODevice::Append));
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(&buffer, "png"));

    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut in the fields") << whole.left(9);
    QTest::newRow("no picture") << whole.left(24);
    QTest::newRow("cut in the picture") << whole.left(40);
    QTest::newRow("a picture of colours") << colours;
}

void tst_CanvasClipboard::damagedDataIsNotPasted()
{
    QFETCH(QByteArray, bytes);
    auto *data = new QMimeData;
    data->setData("tessaril/canvas-anim", bytes);
    QGuiApplication::clipboard()->setMimeData(data);
    CanvasFixture test({"00", "00"});
    QSignalSpy pasted(test.canvas.clipboard(), &CanvasClipboard::pasted);

    QVERIFY(!test.canvas.clipboard()->pasteFromClipboard());

    QCOMPARE(pasted.count(), 0);
    QVERIFY(test.canvas.clipboard()->image().isNull());
}

void tst_CanvasClipboard::escapeGoesBackToTheToolBeforeThePaste()
{
    CanvasFixture test({"12", "34"});
    test.canvas.copy();
    test.canvas.setMode(Tool::Fill, true);
    test.canvas.paste();
    test.canvas.paste();
    QCOMPARE(test.canvas.mode(), Tool::Paste);

    QTest::keyClick(&test.canvas, Qt::Key_Escape);

    QCOMPARE(test.canvas.mode(), Tool::Fill);
    QTest::mouseClick(&test.canvas, Qt::LeftButton, {}, test.at(1, 0));
    QCOMPARE(test.rows(), QStringList({"11", "34"}));
}

void tst_CanvasClipboard::escapeTakesASelectionAway()
{
    CanvasFixture test({"12", "34"});
    test.canvas.setMode(Tool::Select, true);
    test.canvas.selectAll();
    QVERIFY(test.canvas.hasSelection());

    QTest::keyClick(&test.canvas, Qt::Key_Escape);

    QVERIFY(!test.canvas.hasSelection());
    QCOMPARE(test.canvas.mode(), Tool::Select);
}

void tst_CanvasClipboard::escapeIsLeftToOthersElse()
{
    CanvasFixture test({"12", "34"});
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);

    QCoreApplication::sendEvent(&test.canvas, &escape);

    QVERIFY(!escape.isAccepted());
}

QTEST_MAIN(tst_CanvasClipboard)
#include "tst_CanvasClipboard.moc"
