#include "dialogs/GeneralPage.h"

#include "support/DialogDriver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QTest>

class tst_GeneralPage : public QObject
{
    Q_OBJECT

private slots:
    void startsOnItsDefaults();
    void writesAllItsValues();
    void readsAllItsValues();
    void whatIsMissingOrOfAnotherTypeGetsItsDefault();
    void anyOtherIntervalSelectsWeekly();
    void theFrequencyIsDisabledWithoutTheCheckAndKeepsItsValue();
    void theFormHasItsMargins();

private:
    static QCheckBox *box(const GeneralPage &page, const char *label);
    static QComboBox *frequency(const GeneralPage &page);
};

QCheckBox *tst_GeneralPage::box(const GeneralPage &page, const char *label)
{
    return DialogDriver::field<QCheckBox>(page, QString::fromLatin1(label));
}

QComboBox *tst_GeneralPage::frequency(const GeneralPage &page)
{
    return DialogDriver::field<QComboBox>(page, QStringLiteral("Check frequency"));
}

void tst_GeneralPage::startsOnItsDefaults()
{
    const GeneralPage page;

    QCOMPARE(page.title(), QStringLiteral("General"));
    QVERIFY(!page.icon().isNull());
    QVERIFY(page.backupOnSave());
    QVERIFY(page.versionCheckEnabled());
    QCOMPARE(page.updateInterval(), QStringLiteral("weekly"));
    QCOMPARE(page.skippedVersion(), QString());
    QCOMPARE(page.lastUpdateCheck(), QString());
    QCOMPARE(frequency(page)->itemText(0), QStringLiteral("Daily"));
    QCOMPARE(frequency(page)->itemText(1), QStringLiteral("Weekly"));
    QCOMPARE(frequency(page)->itemText(2), QStringLiteral("Monthly"));
}

void tst_GeneralPage::writesAllItsValues()
{
    GeneralPage page;
    box(page, "Create a backup when saving")->click();
    box(page, "Check for updates on startup")->click();
    frequency(page)->setCurrentIndex(2);
    page.setSkippedVersion(QStringLiteral("0.8.0.0"));
    page.setLastUpdateCheck(QStringLiteral("2026-10-20"));

    QCOMPARE(page.toJson(), (QJsonObject{{"backupOnSave", false},
                                         {"versionCheckEnabled", false},
                                         {"updateInterval", "monthly"},
                                         {"skippedVersion", "0.8.0.0"},
                                         {"lastUpdateCheck", "2026-10-20"}}));
}

void tst_GeneralPage::readsAllItsValues()
{
    GeneralPage page;

    page.fromJson({{"backupOnSave", false},
                   {"versionCheckEnabled", false},
                   {"updateInterval", "daily"},
                   {"skippedVersion", "0.8.0.0"},
                   {"lastUpdateCheck", "2026-10-20"}});

    QVERIFY(!page.backupOnSave());
    QVERIFY(!page.versionCheckEnabled());
    QCOMPARE(page.updateInterval(), QStringLiteral("daily"));
    QCOMPARE(page.skippedVersion(), QStringLiteral("0.8.0.0"));
    QCOMPARE(page.lastUpdateCheck(), QStringLiteral("2026-10-20"));
}

void tst_GeneralPage::whatIsMissingOrOfAnotherTypeGetsItsDefault()
{
    const GeneralPage untouched;
    GeneralPage page;
    page.fromJson({{"backupOnSave", false}, {"skippedVersion", "0.8.0.0"}});

    page.fromJson({});
    QCOMPARE(page.toJson(), untouched.toJson());

    page.fromJson({{"backupOnSave", 0}, {"updateInterval", 7}, {"skippedVersion", QJsonArray()}});
    QCOMPARE(page.toJson(), untouched.toJson());
}

void tst_GeneralPage::anyOtherIntervalSelectsWeekly()
{
    GeneralPage page;
    page.fromJson({{"updateInterval", "monthly"}});

    page.fromJson({{"updateInterval", "yearly"}});

    QCOMPARE(page.updateInterval(), QStringLiteral("weekly"));
    QCOMPARE(page.toJson()["updateInterval"].toString(), QStringLiteral("weekly"));
}

void tst_GeneralPage::theFrequencyIsDisabledWithoutTheCheckAndKeepsItsValue()
{
    GeneralPage page;
    frequency(page)->setCurrentIndex(2);

    box(page, "Check for updates on startup")->click();
    QVERIFY(!frequency(page)->isEnabled());
    QCOMPARE(page.updateInterval(), QStringLiteral("monthly"));

    box(page, "Check for updates on startup")->click();
    QVERIFY(frequency(page)->isEnabled());
}

void tst_GeneralPage::theFormHasItsMargins()
{
    const GeneralPage page;
    const auto *form = qobject_cast<QFormLayout *>(page.widget()->layout());

    QCOMPARE(form->contentsMargins(), QMargins(5, 2, 5, 2));
    QCOMPARE(form->spacing(), 5);
    QCOMPARE(form->rowCount(), 5);
}

QTEST_MAIN(tst_GeneralPage)
#include "tst_GeneralPage.moc"
