#include "dialogs/PreferencesDialog.h"

#include "dialogs/GeneralPage.h"
#include "dialogs/MapEditorPage.h"
#include "support/DialogDriver.h"

#include <QCheckBox>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTest>

class tst_PreferencesDialog : public QObject
{
    Q_OBJECT

private slots:
    void listsItsPages();
    void theButtonsAreMadeAtTheFirstShow();
    void aClickInTheListChangesThePage();
    void thePagesAreChosenOneAtATime();
    void theListIsAsWideAsItsTitles();
    void theSnapshotHoldsAMemberForEachPage();
    void cancelBringsTheOldValuesBack();
    void escapeIsCancel();
    void saveKeepsTheNewValues();
    void cancelGoesBackToTheLastOpeningOnly();
    void restoringNothingChangesNothing_data();
    void restoringNothingChangesNothing();
    void aPageWithoutAMemberGetsAnEmptyObject();
    void theUnseenValuesSurviveCancel();

private:
    static QSpinBox *gridSize(const PreferencesDialog &dialog);
};

QSpinBox *tst_PreferencesDialog::gridSize(const PreferencesDialog &dialog)
{
    return DialogDriver::field<QSpinBox>(dialog, QStringLiteral("Grid size (in pixels)"));
}

void tst_PreferencesDialog::listsItsPages()
{
    PreferencesDialog dialog;
    const auto *list = dialog.findChild<QListWidget *>();

    QCOMPARE(dialog.windowTitle(), QStringLiteral("Preferences"));
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.size(), QSize(800, 400));
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(0)->text(), QStringLiteral("General"));
    QCOMPARE(list->item(1)->text(), QStringLiteral("Map Editor"));
    QVERIFY(!list->item(1)->icon().isNull());
    QCOMPARE(list->iconSize(), QSize(24, 24));
    QCOMPARE(list->currentRow(), 0);
    QCOMPARE(dialog.layout()->contentsMargins(), QMargins(5, 5, 5, 5));
    QCOMPARE(dialog.layout()->spacing(), 5);
    QCOMPARE(dialog.findChild<QStackedWidget *>()->currentWidget(), dialog.generalPage());
    dialog.show();
    const auto *buttons = dialog.findChild<QDialogButtonBox *>();
    QVERIFY(buttons->button(QDialogButtonBox::Save));
    QVERIFY(buttons->button(QDialogButtonBox::Cancel));
}

/// Their icons are looked for in the desktop's theme, which the start of the program can do
/// without.
void tst_PreferencesDialog::theButtonsAreMadeAtTheFirstShow()
{
    QWidget window;
    PreferencesDialog dialog(&window);
    const auto *buttons = dialog.findChild<QDialogButtonBox *>();

    window.show();
    dialog.hide();
    QVERIFY(buttons->buttons().isEmpty());

    dialog.show();
    const QList<QAbstractButton *> made = buttons->buttons();
    QCOMPARE(made.size(), 2);
    dialog.hide();
    dialog.show();
    QCOMPARE(buttons->buttons(), made);
}

void tst_PreferencesDialog::aClickInTheListChangesThePage()
{
    PreferencesDialog dialog;
    dialog.show();
    auto *list = dialog.findChild<QListWidget *>();
    const auto *stack = dialog.findChild<QStackedWidget *>();

    const auto click = [list](int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    };
    click(1);
    QCOMPARE(stack->currentWidget(), dialog.mapEditorPage());
    click(0);
    QCOMPARE(stack->currentWidget(), dialog.generalPage());
}

void tst_PreferencesDialog::thePagesAreChosenOneAtATime()
{
    PreferencesDialog dialog;
    dialog.show();
    auto *list = dialog.findChild<QListWidget *>();

    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list->visualItemRect(list->item(1)).center());

    QCOMPARE(list->selectedItems(), QList<QListWidgetItem *>({list->item(1)}));
    QCOMPARE(dialog.findChild<QStackedWidget *>()->currentWidget(), dialog.mapEditorPage());
}

void tst_PreferencesDialog::theListIsAsWideAsItsTitles()
{
    PreferencesDialog dialog;
    dialog.show();
    const auto *list = dialog.findChild<QListWidget *>();

    QVERIFY(list->width() >= list->sizeHintForColumn(0));
    QVERIFY(list->width() <= list->sizeHintForColumn(0) + 30);
    QVERIFY(!list->horizontalScrollBar()->isVisible());
    QVERIFY(dialog.findChild<QStackedWidget *>()->width() > dialog.width() / 2);
}

void tst_PreferencesDialog::theSnapshotHoldsAMemberForEachPage()
{
    PreferencesDialog dialog;

    const QJsonObject all = dialog.snapshot().object();

    QCOMPARE(all.keys(), (QStringList{"general", "mapEditor"}));
    QCOMPARE(all["general"].toObject(), dialog.generalPage()->toJson());
    QCOMPARE(all["mapEditor"].toObject(), dialog.mapEditorPage()->toJson());
}

void tst_PreferencesDialog::cancelBringsTheOldValuesBack()
{
    PreferencesDialog dialog;
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    dialog.mapEditorPage()->fromJson({{"gridSize", 16}, {"gridColour1", "#112233"}});
    dialog.show();

    gridSize(dialog)->setValue(64);
    dialog.mapEditorPage()->setFirstGridColour(Qt::red);
    dialog.mapEditorPage()->setSecondGridColour(Qt::green);
    DialogDriver::pressCancel(dialog);

    QCOMPARE(dialog.mapEditorPage()->gridSize(), 16);
    QCOMPARE(dialog.mapEditorPage()->gridColour1(), QColor(0x11, 0x22, 0x33));
    QCOMPARE(dialog.mapEditorPage()->gridColour2(), QColor(0x50, 0x50, 0x50));
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_PreferencesDialog::escapeIsCancel()
{
    PreferencesDialog dialog;
    dialog.show();
    gridSize(dialog)->setValue(64);

    QTest::keyClick(&dialog, Qt::Key_Escape);

    QCOMPARE(dialog.mapEditorPage()->gridSize(), 8);
    QVERIFY(!dialog.isVisible());
}

void tst_PreferencesDialog::saveKeepsTheNewValues()
{
    PreferencesDialog dialog;
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    dialog.show();
    gridSize(dialog)->setValue(64);

    DialogDriver::press(dialog, QDialogButtonBox::Save);

    QCOMPARE(dialog.mapEditorPage()->gridSize(), 64);
    QCOMPARE(accepted.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_PreferencesDialog::cancelGoesBackToTheLastOpeningOnly()
{
    PreferencesDialog dialog;
    dialog.show();
    gridSize(dialog)->setValue(64);
    DialogDriver::press(dialog, QDialogButtonBox::Save);

    dialog.show();
    gridSize(dialog)->setValue(128);
    DialogDriver::pressCancel(dialog);
    QCOMPARE(dialog.mapEditorPage()->gridSize(), 64);

    // With no opening behind it, a rejection has nothing to bring back.
    gridSize(dialog)->setValue(32);
    dialog.reject();
    QCOMPARE(dialog.mapEditorPage()->gridSize(), 32);
}

void tst_PreferencesDialog::restoringNothingChangesNothing_data()
{
    QTest::addColumn<QJsonDocument>("document");
    QTest::newRow("null") << QJsonDocument();
    QTest::newRow("empty object") << QJsonDocument(QJsonObject());
}

void tst_PreferencesDialog::restoringNothingChangesNothing()
{
    QFETCH(QJsonDocument, document);
    PreferencesDialog dialog;
    dialog.generalPage()->setSkippedVersion(QStringLiteral("0.8.0.0"));
    const QJsonDocument before = dialog.snapshot();

    dialog.restore(document);

    QCOMPARE(dialog.snapshot(), before);
}

void tst_PreferencesDialog::aPageWithoutAMemberGetsAnEmptyObject()
{
    PreferencesDialog dialog;
    dialog.mapEditorPage()->fromJson({{"gridSize", 64}});
    dialog.generalPage()->fromJson({{"updateInterval", "daily"}});

    dialog.restore(QJsonDocument(QJsonObject{{"other", 1}}));

    QCOMPARE(dialog.mapEditorPage()->gridSize(), 64);
    QCOMPARE(dialog.generalPage()->updateInterval(), QStringLiteral("weekly"));
}

void tst_PreferencesDialog::theUnseenValuesSurviveCancel()
{
    PreferencesDialog dialog;
    dialog.generalPage()->setSkippedVersion(QStringLiteral("0.8.0.0"));
    dialog.generalPage()->setLastUpdateCheck(QStringLiteral("2026-10-20"));
    dialog.show();

    DialogDriver::pressCancel(dialog);

    QCOMPARE(dialog.generalPage()->skippedVersion(), QStringLiteral("0.8.0.0"));
    QCOMPARE(dialog.generalPage()->lastUpdateCheck(), QStringLiteral("2026-10-20"));
}

QTEST_MAIN(tst_PreferencesDialog)
#include "tst_PreferencesDialog.moc"
