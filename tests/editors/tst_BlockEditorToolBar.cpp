#include "editors/BlockEditorToolBar.h"

#include "editors/MapObjectTypeCombo.h"
#include "support/DialogDriver.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class tst_BlockEditorToolBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<MapObjectType>(); }

    void itsFieldsStandInARow();
    void eachLabelNamesTheFieldBesideIt();
    void aNarrowOneLeavesRoomForTheName();
    void sidesAndDelayAreBounded();
    void noDelayIsShownAsAWord();
    void changesOfTheUserAreSent();
    void aTypedSideIsSentWhenItIsComplete_data();
    void aTypedSideIsSentWhenItIsComplete();
    void showingSendsNothing();
    void showingTheTypedNameKeepsTheCursor();

private:
    template <typename Field>
    static Field *field(const BlockEditorToolBar &bar, const char *name)
    {
        return DialogDriver::field<Field>(bar, QString::fromLatin1(name));
    }
};

void tst_BlockEditorToolBar::itsFieldsStandInARow()
{
    const BlockEditorToolBar bar;

    QStringList labels;
    for (const QLabel *label : bar.findChildren<QLabel *>())
        labels.append(label->text());
    QCOMPARE(labels, QStringList({"Name", "W:", "H:", "Delay:"}));
    QCOMPARE(bar.findChildren<MapObjectTypeCombo *>().size(), 1);
}

void tst_BlockEditorToolBar::eachLabelNamesTheFieldBesideIt()
{
    const BlockEditorToolBar bar;

    QHash<QString, const QWidget *> buddies;
    for (const QLabel *label : bar.findChildren<QLabel *>())
        buddies.insert(label->text(), label->buddy());
    QCOMPARE(buddies.value("Name"), field<QLineEdit>(bar, "Name"));
    QCOMPARE(buddies.value("W:"), field<QSpinBox>(bar, "Width in tiles"));
    QCOMPARE(buddies.value("H:"), field<QSpinBox>(bar, "Height in tiles"));
    QCOMPARE(buddies.value("Delay:"), field<QSpinBox>(bar, "Delay"));
}

void tst_BlockEditorToolBar::aNarrowOneLeavesRoomForTheName()
{
    BlockEditorToolBar bar;
    bar.resize(bar.minimumSizeHint());
    bar.resize(bar.width(), bar.heightForWidth(bar.width()));
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));

    const QLineEdit *name = field<QLineEdit>(bar, "Name");
    QVERIFY(name->width() >= name->fontMetrics().horizontalAdvance("Moving door"));
    QCOMPARE(name->visibleRegion(), QRegion(name->rect()));
}

void tst_BlockEditorToolBar::sidesAndDelayAreBounded()
{
    const BlockEditorToolBar bar;

    const QSpinBox *width = field<QSpinBox>(bar, "Width in tiles");
    QCOMPARE(width->minimum(), 1);
    QCOMPARE(width->maximum(), 16);
    QCOMPARE(width->toolTip(), QString("Set the frame width in tiles"));
    const QSpinBox *height = field<QSpinBox>(bar, "Height in tiles");
    QCOMPARE(height->minimum(), 1);
    QCOMPARE(height->maximum(), 16);
    QCOMPARE(height->toolTip(), QString("Set the frame height in tiles"));
    const QSpinBox *delay = field<QSpinBox>(bar, "Delay");
    QCOMPARE(delay->minimum(), 0);
    QCOMPARE(delay->maximum(), 50);
    QCOMPARE(delay->toolTip(), QString("Set the delay between animation frames\n"
                                       "0 = No Delay, 1 = 25fps, 2 = 12.5fps"));
}

void tst_BlockEditorToolBar::noDelayIsShownAsAWord()
{
    BlockEditorToolBar bar;

    bar.showDelay(0);
    QCOMPARE(field<QSpinBox>(bar, "Delay")->text(), QString("None"));
    bar.showDelay(3);
    QCOMPARE(field<QSpinBox>(bar, "Delay")->text(), QString("3"));
}

void tst_BlockEditorToolBar::changesOfTheUserAreSent()
{
    BlockEditorToolBar bar;
    QSignalSpy name(&bar, &BlockEditorToolBar::nameChanged);
    QSignalSpy type(&bar, &BlockEditorToolBar::blockTypeChanged);
    QSignalSpy width(&bar, &BlockEditorToolBar::widthChanged);
    QSignalSpy height(&bar, &BlockEditorToolBar::heightChanged);
    QSignalSpy delay(&bar, &BlockEditorToolBar::delayChanged);

    QTest::keyClicks(field<QLineEdit>(bar, "Name"), "Ab");
    QTest::keyClick(bar.findChild<MapObjectTypeCombo *>(), Qt::Key_Down);
    QTest::keyClick(field<QSpinBox>(bar, "Width in tiles"), Qt::Key_Up);
    QTest::keyClick(field<QSpinBox>(bar, "Height in tiles"), Qt::Key_PageUp);
    QTest::keyClick(field<QSpinBox>(bar, "Delay"), Qt::Key_Up);

    QCOMPARE(name.count(), 2);
    QCOMPARE(name.last().first().toString(), QString("Ab"));
    QCOMPARE(type.count(), 1);
    QCOMPARE(type.last().first().value<MapObjectType>(), MapObjectType::HorizontalPlatform);
    QCOMPARE(width.count(), 1);
    QCOMPARE(width.last().first().toInt(), 2);
    QCOMPARE(height.count(), 1);
    QCOMPARE(height.last().first().toInt(), 11);
    QCOMPARE(delay.count(), 1);
    QCOMPARE(delay.last().first().toInt(), 1);
}

void tst_BlockEditorToolBar::aTypedSideIsSentWhenItIsComplete_data()
{
    QTest::addColumn<QString>("side");
    QTest::newRow("width") << QString("Width in tiles");
    QTest::newRow("height") << QString("Height in tiles");
}

void tst_BlockEditorToolBar::aTypedSideIsSentWhenItIsComplete()
{
    QFETCH(QString, side);
    BlockEditorToolBar bar;
    bar.showSize({4, 4});
    QList<int> sent;
    connect(&bar, &BlockEditorToolBar::widthChanged, this, [&](int width) { sent.append(width); });
    connect(&bar, &BlockEditorToolBar::heightChanged, this,
            [&](int height) { sent.append(height); });
    auto *spin = DialogDriver::field<QSpinBox>(bar, side);
    spin->selectAll();

    QTest::keyClicks(spin, "16");
    QCOMPARE(sent, QList<int>());
    QTest::keyClick(spin, Qt::Key_Return);

    QCOMPARE(sent, QList<int>({16}));
}

void tst_BlockEditorToolBar::showingSendsNothing()
{
    BlockEditorToolBar bar;
    QSignalSpy name(&bar, &BlockEditorToolBar::nameChanged);
    QSignalSpy type(&bar, &BlockEditorToolBar::blockTypeChanged);
    QSignalSpy width(&bar, &BlockEditorToolBar::widthChanged);
    QSignalSpy height(&bar, &BlockEditorToolBar::heightChanged);
    QSignalSpy delay(&bar, &BlockEditorToolBar::delayChanged);

    bar.showName("Door");
    bar.showType(MapObjectType::HorizontalPlatform);
    bar.showSize({3, 200});
    bar.showDelay(7);

    QCOMPARE(field<QLineEdit>(bar, "Name")->text(), QString("Door"));
    QCOMPARE(bar.findChild<MapObjectTypeCombo *>()->currentIndex(), 1);
    QCOMPARE(field<QSpinBox>(bar, "Width in tiles")->value(), 3);
    QCOMPARE(field<QSpinBox>(bar, "Height in tiles")->value(), 16);
    QCOMPARE(field<QSpinBox>(bar, "Delay")->value(), 7);
    QCOMPARE(name.count() + type.count() + width.count() + height.count() + delay.count(), 0);
}

void tst_BlockEditorToolBar::showingTheTypedNameKeepsTheCursor()
{
    BlockEditorToolBar bar;
    connect(&bar, &BlockEditorToolBar::nameChanged, &bar, &BlockEditorToolBar::showName);
    QLineEdit *name = field<QLineEdit>(bar, "Name");
    bar.showName("or");
    name->setCursorPosition(0);

    QTest::keyClicks(name, "Do");

    QCOMPARE(name->text(), QString("Door"));
}

QTEST_MAIN(tst_BlockEditorToolBar)
#include "tst_BlockEditorToolBar.moc"
