#include "dialogs/About.h"

#include "support/DialogDriver.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

/// Takes the addresses that would open in the browser.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    QList<QUrl> opened;

public slots:
    void open(const QUrl &url) { opened.append(url); }
};

class tst_About : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void tellsNameAndVersions();
    void theVersionCanBeCopied();
    void showsTheLogo();
    void linksToTheChangelog();
    void aClickOnTheLinkOpensIt();
    void eachOpeningAsksForACheck();
    void theButtonAsksForACheck();
    void showsTheStatusAsPlainText();
    void hasAFixedSizeAndOkAsDefault();
    void theLicenceCanBeRead();

private:
    static QLabel *status(const About &about);
    static bool hasLabel(const About &about, const QString &text);
};

void tst_About::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Tessaril"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3.4"));
}

QLabel *tst_About::status(const About &about)
{
    return about.findChild<QLabel *>(QStringLiteral("updateStatus"));
}

bool tst_About::hasLabel(const About &about, const QString &text)
{
    for (const QLabel *label : about.findChildren<QLabel *>()) {
        if (label->text() == text)
            return true;
    }
    return false;
}

void tst_About::tellsNameAndVersions()
{
    const About about;

    QVERIFY(hasLabel(about, QStringLiteral("Tessaril v1.2.3.4 - Qt ") + qVersion()));
}

void tst_About::theVersionCanBeCopied()
{
    About about;
    about.show();
    QVERIFY(QTest::qWaitForWindowExposed(&about));
    QLabel *version = nullptr;
    for (QLabel *label : about.findChildren<QLabel *>()) {
        if (label->text().contains(QStringLiteral("v1.2.3.4")))
            version = label;
    }
    QVERIFY(version);

    QTest::mouseDClick(version, Qt::LeftButton);

    QVERIFY(version->hasSelectedText());
}

void tst_About::showsTheLogo()
{
    About about;
    about.show();

    const QString logo = QStringLiteral("<img src=:/Logo/>");
    QVERIFY(hasLabel(about, logo));
    for (const QLabel *label : about.findChildren<QLabel *>()) {
        if (label->text() == logo)
            QVERIFY(label->width() >= 707 && label->height() >= 132);
    }
}

void tst_About::linksToTheChangelog()
{
    const About about;

    QVERIFY(hasLabel(about, QStringLiteral("<a href=\"https://brindlemoor.example/changelog\">"
                                           "View Changelog</a>")));
}

void tst_About::aClickOnTheLinkOpensIt()
{
    Browser browser;
    About about;
    about.show();
    QVERIFY(QTest::qWaitForWindowExposed(&about));
    for (QLabel *label : about.findChildren<QLabel *>()) {
        if (label->text().contains(QStringLiteral("changelog")))
            QTest::mouseClick(label, Qt::LeftButton);
    }

    QCOMPARE(browser.opened, {QUrl(QStringLiteral("https://brindlemoor.example/changelog"))});
}

void tst_About::eachOpeningAsksForACheck()
{
    About about;
    QSignalSpy asked(&about, &About::checkForUpdates);
    QCOMPARE(asked.count(), 0);

    about.show();
    QCOMPARE(asked.count(), 1);
    QCOMPARE(status(about)->text(), QStringLiteral("Checking for updates…"));

    about.setUpdateStatus(QStringLiteral("You’re up to date"));
    DialogDriver::pressOk(about);
    QVERIFY(!about.isVisible());
    about.show();
    QCOMPARE(asked.count(), 2);
    QCOMPARE(status(about)->text(), QStringLiteral("Checking for updates…"));
}

void tst_About::theButtonAsksForACheck()
{
    About about;
    about.show();
    QSignalSpy asked(&about, &About::checkForUpdates);
    auto *button = about.findChild<QPushButton *>(QStringLiteral("checkForUpdates"));
    QCOMPARE(button->text(), QStringLiteral("Check for Updates"));

    QTest::mouseClick(button, Qt::LeftButton);

    QCOMPARE(asked.count(), 1);
    QVERIFY(about.isVisible());
}

void tst_About::showsTheStatusAsPlainText()
{
    About about;
    about.show();

    about.setUpdateStatus(QStringLiteral("Update available: <b>9"));

    QCOMPARE(status(about)->text(), QStringLiteral("Update available: <b>9"));
    QCOMPARE(status(about)->textFormat(), Qt::PlainText);
    QCOMPARE(status(about)->height(), 20);
}

void tst_About::hasAFixedSizeAndOkAsDefault()
{
    About about;
    about.show();

    QVERIFY(about.isModal());
    QCOMPARE(about.minimumSize(), about.maximumSize());
    QVERIFY(about.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isDefault());
    QCOMPARE(about.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->text(),
             QStringLiteral("Ok"));
}

void tst_About::theLicenceCanBeRead()
{
    About about;
    about.show();

    QTest::mouseClick(DialogDriver::button<QPushButton>(about, QStringLiteral("Licence")),
                      Qt::LeftButton);

    auto *licence = about.findChild<QDialog *>();
    QVERIFY(licence && licence->isVisible());
    QVERIFY(!licence->findChild<QPlainTextEdit *>()->toPlainText().isEmpty());
    DialogDriver::pressOk(*licence);
    QTRY_VERIFY(!about.findChild<QDialog *>());
}

QTEST_MAIN(tst_About)
#include "tst_About.moc"
