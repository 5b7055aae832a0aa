#include "app/Identity.h"
#include "app/MainWindow.h"
#include "dialogs/About.h"
#include "support/FeedServer.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <memory>

using Origin = UpdateController::Origin;

/// What the window says of a check for a new version, by who asked for it.
class tst_MainWindowUpdates : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theStartChecksAsThePreferencesSay_data();
    void theStartChecksAsThePreferencesSay();
    void anOfferOpensTheDialogUnlessAboutAsked_data();
    void anOfferOpensTheDialogUnlessAboutAsked();
    void upToDateIsToldToTheMenuOnly_data();
    void upToDateIsToldToTheMenuOnly();
    void aFailureIsToldToTheMenuOnly_data();
    void aFailureIsToldToTheMenuOnly();
    void aSkippedVersionReachesThePreferences();
    void theLastToAskGetsTheAnswer();

private:
    struct Box
    {
        bool shown = false;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QString title;
        QString text;
        QMessageBox::StandardButtons buttons;
    };

    /// Runs @p action, and closes the box that it may open.
    template <typename Action>
    Box boxOf(Action action);
    bool aboutSays(const QString &text) const;
    static void addOrigins();

    std::unique_ptr<MainWindow> m_window;
};

void tst_MainWindowUpdates::init()
{
    m_window.reset();
    QVERIFY(QDir().mkpath(QDir::homePath() + "/.config/tessaril"));
    QFile preferences(QDir::homePath() + "/.config/tessaril/preferences.json");
    QVERIFY(preferences.open(QIODevice::WriteOnly));
    preferences.write("{\"general\": {\"versionCheckEnabled\": false}}");
    preferences.close();
    m_window = std::make_unique<MainWindow>();
}

template <typename Action>
tst_MainWindowUpdates::Box tst_MainWindowUpdates::boxOf(Action action)
{
    Box seen;
    QTimer::singleShot(0, this, [&seen] {
        if (auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            seen = {true, box->icon(), box->windowTitle(), box->text(), box->standardButtons()};
            box->accept();
        }
    });
    action();
    QCoreApplication::processEvents();
    return seen;
}

bool tst_MainWindowUpdates::aboutSays(const QString &text) const
{
    const auto labels =
        m_window->views().menuBar->helpMenu()->about()->findChildren<const QLabel *>();
    return std::any_of(labels.begin(), labels.end(),
                       [&text](const QLabel *label) { return label->text() == text; });
}

void tst_MainWindowUpdates::addOrigins()
{
    QTest::addColumn<Origin>("origin");
    QTest::addRow("start") << Origin::StartUp;
    QTest::addRow("menu") << Origin::Menu;
    QTest::addRow("about") << Origin::About;
}

void tst_MainWindowUpdates::theStartChecksAsThePreferencesSay_data()
{
    QTest::addColumn<QByteArray>("preferences");
    QTest::addColumn<bool>("checks");
    const QString today = QDateTime::currentDateTimeUtc().date().toString(Qt::ISODate);
    QTest::newRow("off") << QByteArray(R"({"general": {"versionCheckEnabled": false}})") << false;
    QTest::newRow("on, never checked") << QByteArray(R"({"general": {}})") << true;
    QTest::newRow("on, checked today")
        << QString(R"({"general": {"lastUpdateCheck": "%1"}})").arg(today).toUtf8() << false;
    QTest::newRow("on, checked long ago")
        << QByteArray(R"({"general": {"lastUpdateCheck": "2020-01-01"}})") << true;
}

void tst_MainWindowUpdates::theStartChecksAsThePreferencesSay()
{
    QFETCH(QByteArray, preferences);
    QFETCH(bool, checks);
    m_window.reset();
    QFile file(QDir::homePath() + "/.config/tessaril/preferences.json");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(preferences);
    file.close();
    FeedServer server;
    server.setAnswer(FeedServer::http("200 OK", "{}"));

    m_window = std::make_unique<MainWindow>();
    m_window->updates()->checker().setFeedAddress(server.address());

    QCOMPARE(m_window->updates()->isStartCheckWaiting(), checks);
    if (checks)
        QTRY_VERIFY(aboutSays("You’re up to date"));
    QCOMPARE(server.requests().size(), checks ? 1 : 0);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_MainWindowUpdates::anOfferOpensTheDialogUnlessAboutAsked_data()
{
    addOrigins();
}

void tst_MainWindowUpdates::anOfferOpensTheDialogUnlessAboutAsked()
{
    QFETCH(const Origin, origin);
    auto *const dialog = m_window->findChild<UpdateDialog *>();

    emit m_window->updates()->updateAvailable({"0.8.0.0", "stable", "2027-01-02", {}, {}}, origin);

    QVERIFY(aboutSays("Update available: 0.8.0.0"));
    QCOMPARE(dialog->isVisible(), origin != Origin::About);
    if (origin == Origin::About)
        return;
    QCOMPARE(dialog->findChild<QLabel *>("heading")->text(),
             QString("Tessaril 0.8.0.0 is available"));
    QCOMPARE(dialog->findChild<QLabel *>("detail")->text(),
             QString("You have %1 (built %2).\nThe new version was released 2027-01-02.")
                 .arg(Identity::Version, Identity::BuildDate));
}

void tst_MainWindowUpdates::upToDateIsToldToTheMenuOnly_data()
{
    addOrigins();
}

void tst_MainWindowUpdates::upToDateIsToldToTheMenuOnly()
{
    QFETCH(const Origin, origin);

    const Box box = boxOf([&] { emit m_window->updates()->upToDate(origin); });

    QVERIFY(aboutSays(QString("You%1re up to date").arg(QChar(0x2019))));
    QCOMPARE(box.shown, origin == Origin::Menu);
    if (!box.shown)
        return;
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.title, QString("Check for Updates"));
    QCOMPARE(box.text, QString("Tessaril %1 is up to date.").arg(Identity::Version));
    QCOMPARE(box.buttons, QMessageBox::Ok);
}

void tst_MainWindowUpdates::aFailureIsToldToTheMenuOnly_data()
{
    addOrigins();
}

void tst_MainWindowUpdates::aFailureIsToldToTheMenuOnly()
{
    QFETCH(const Origin, origin);

    const Box box = boxOf([&] { emit m_window->updates()->checkFailed("Host not found", origin); });

    QVERIFY(aboutSays("Could not reach the update server"));
    QCOMPARE(box.shown, origin == Origin::Menu);
    if (!box.shown)
        return;
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.title, QString("Check for Updates"));
    QCOMPARE(box.text, QString("Could not reach the update server.\nHost not found"));
    QCOMPARE(box.buttons, QMessageBox::Ok);
}

void tst_MainWindowUpdates::aSkippedVersionReachesThePreferences()
{
    emit m_window->findChild<UpdateDialog *>()->skipVersion("0.8.0.0");

    QFile preferences(QDir::homePath() + "/.config/tessaril/preferences.json");
    QVERIFY(preferences.open(QIODevice::ReadOnly));
    QVERIFY(preferences.readAll().contains("0.8.0.0"));
}

void tst_MainWindowUpdates::theLastToAskGetsTheAnswer()
{
    m_window->updates()->checker().setFeedAddress(QUrl("file:///no/feed/here"));

    emit m_window->views().menuBar->helpMenu()->checkForUpdates();
    QCOMPARE(m_window->updates()->origin, Origin::Menu);
    emit m_window->views().menuBar->helpMenu()->about()->checkForUpdates();
    QCOMPARE(m_window->updates()->origin, Origin::About);

    QTRY_VERIFY(aboutSays("Could not reach the update server"));
    QVERIFY(!QApplication::activeModalWidget()); // the menu's request was dropped
}

QTEST_MAIN(tst_MainWindowUpdates)
#include "tst_MainWindowUpdates.moc"
