#include "dialogs/ResizeMapDialog.h"

#include "support/DialogDriver.h"

#include <QButtonGroup>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

class tst_ResizeMapDialog : public QObject
{
    Q_OBJECT

private slots:
    void startsFromTheMapsSize();
    void aSmallerMapCanFollowALargerOne();
    void theCentreIsSelectedAtStart();
    void eachButtonIsAnAnchor_data();
    void eachButtonIsAnAnchor();
    void theButtonsStandInAGrid();
    void theTypedSizeCanBeRead();
    void aMapBeyondTheLimitIsRefused();

private:
    static QSpinBox *spin(const ResizeMapDialog &dialog, const char *label);
    static QToolButton *anchor(const ResizeMapDialog &dialog, const char *name);
};

QSpinBox *tst_ResizeMapDialog::spin(const ResizeMapDialog &dialog, const char *label)
{
    return DialogDriver::field<QSpinBox>(dialog, QString::fromLatin1(label));
}

QToolButton *tst_ResizeMapDialog::anchor(const ResizeMapDialog &dialog, const char *name)
{
    return DialogDriver::field<QToolButton>(dialog, QString::fromLatin1(name));
}

void tst_ResizeMapDialog::startsFromTheMapsSize()
{
    ResizeMapDialog dialog;

    dialog.setMapSize({123, 45});

    QCOMPARE(dialog.heading(), QStringLiteral("Resize Map"));
    const auto *width = DialogDriver::field<QLabel>(dialog, QStringLiteral("Current width"));
    const auto *height = DialogDriver::field<QLabel>(dialog, QStringLiteral("Current height"));
    QCOMPARE(width->text(), QStringLiteral("123"));
    QCOMPARE(height->text(), QStringLiteral("45"));
    QCOMPARE(dialog.mapSize(), QSize(123, 45));
    for (const char *label : {"Width", "Height"}) {
        QCOMPARE(spin(dialog, label)->minimum(), 1);
        QCOMPARE(spin(dialog, label)->maximum(), 65535);
    }
}

void tst_ResizeMapDialog::aSmallerMapCanFollowALargerOne()
{
    ResizeMapDialog dialog;
    dialog.setMapSize({65535, 1});

    dialog.setMapSize({1, 65535});

    QCOMPARE(dialog.mapSize(), QSize(1, 65535));
}

void tst_ResizeMapDialog::theCentreIsSelectedAtStart()
{
    const ResizeMapDialog dialog;

    QCOMPARE(dialog.alignment(), Qt::AlignCenter);
    QVERIFY(anchor(dialog, "Centre")->isChecked());
}

void tst_ResizeMapDialog::eachButtonIsAnAnchor_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("id");
    QTest::newRow("top left") << QByteArray("Top left") << 33;
    QTest::newRow("top") << QByteArray("Top") << 36;
    QTest::newRow("top right") << QByteArray("Top right") << 34;
    QTest::newRow("left") << QByteArray("Left") << 129;
    QTest::newRow("centre") << QByteArray("Centre") << 132;
    QTest::newRow("right") << QByteArray("Right") << 130;
    QTest::newRow("bottom left") << QByteArray("Bottom left") << 65;
    QTest::newRow("bottom") << QByteArray("Bottom") << 68;
    QTest::newRow("bottom right") << QByteArray("Bottom right") << 66;
}

void tst_ResizeMapDialog::eachButtonIsAnAnchor()
{
    QFETCH(QByteArray, name);
    QFETCH(int, id);
    ResizeMapDialog dialog;
    dialog.show();
    QToolButton *const button = anchor(dialog, name);

    QTest::mouseClick(button, Qt::LeftButton);

    QCOMPARE(int(dialog.alignment()), id);
    int checked = 0;
    for (const QToolButton *one : dialog.findChildren<QToolButton *>())
        checked += one->isChecked() ? 1 : 0;
    QCOMPARE(checked, 1);
    QVERIFY(button->isChecked());
    QVERIFY(!button->icon().isNull());
}

void tst_ResizeMapDialog::theButtonsStandInAGrid()
{
    ResizeMapDialog dialog;
    dialog.show();

    const QPoint first = anchor(dialog, "Top left")->pos();

    QCOMPARE(anchor(dialog, "Centre")->pos(), first + QPoint(33, 33));
    QCOMPARE(anchor(dialog, "Bottom right")->pos(), first + QPoint(66, 66));
    QCOMPARE(anchor(dialog, "Right")->size(), QSize(32, 32));
}

void tst_ResizeMapDialog::theTypedSizeCanBeRead()
{
    ResizeMapDialog dialog;
    QSignalSpy accepted(&dialog, &ResizeMapDialog::accepted);
    dialog.setMapSize({40, 32});
    dialog.show();

    spin(dialog, "Width")->selectAll();
    QTest::keyClicks(spin(dialog, "Width"), QStringLiteral("7"));
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog.mapSize(), QSize(7, 32));
}

void tst_ResizeMapDialog::aMapBeyondTheLimitIsRefused()
{
    ResizeMapDialog dialog;
    QSignalSpy accepted(&dialog, &ResizeMapDialog::accepted);
    dialog.setMapSize({32768, 4097});
    dialog.show();

    DialogDriver::pressOk(dialog);
    QCOMPARE(dialog.error(), QStringLiteral("The map is too large"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);

    spin(dialog, "Height")->setValue(4096);
    DialogDriver::pressOk(dialog);
    QCOMPARE(accepted.count(), 1);
}

QTEST_MAIN(tst_ResizeMapDialog)
#include "tst_ResizeMapDialog.moc"
