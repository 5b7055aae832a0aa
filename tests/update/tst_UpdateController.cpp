#include "dialogs/GeneralPage.h"
#include "support/FeedServer.h"
#include "update/UpdateController.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

using Origin = UpdateController::Origin;

class tst_UpdateController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startChecksOnlyWhenDueAndWanted_data();
    void startChecksOnlyWhenDueAndWanted();
    void aQuestionReplacesTheCheckAtStart();
    void aNewerReleaseIsOffered();
    void everyCompletedCheckIsDatedBeforeTheFeedIsRead_data();
    void everyCompletedCheckIsDatedBeforeTheFeedIsRead();
    void aFailedCheckIsNotDated();
    void aSkippedVersionIsPersistedAndNotOffered();
    void theLastAskerGetsTheOnlyAnswer();

private:
    static QByteArray feed(const QByteArray &version, const QByteArray &released = "2026-11-01")
    {
        return FeedServer::http("200 OK", R"({"tools": {"tessaril": {"latest": ")" + version +
                                              R"(", "channel": "stable", "released": ")" +
                                              released + R"("}}})");
    }

    std::unique_ptr<FeedServer> m_server;
    std::unique_ptr<GeneralPage> m_page;
    std::unique_ptr<UpdateController> m_controller;
    std::unique_ptr<QSignalSpy> m_available;
    std::unique_ptr<QSignalSpy> m_upToDate;
    std::unique_ptr<QSignalSpy> m_failed;
    int m_persisted = 0;
};

void tst_UpdateController::init()
{
    m_persisted = 0;
    m_server = std::make_unique<FeedServer>();
    m_controller.reset();
    m_page = std::make_unique<GeneralPage>();
    m_controller = std::make_unique<UpdateController>(
        m_page.get(), Update::Build{"0.7.0.0", "2026-10-15"}, [this] { ++m_persisted; });
    m_controller->checker().setFeedAddress(m_server->address());
    m_controller->setToday([] { return QDate(2026, 11, 21); });
    m_available =
        std::make_unique<QSignalSpy>(m_controller.get(), &UpdateController::updateAvailable);
    m_upToDate = std::make_unique<QSignalSpy>(m_controller.get(), &UpdateController::upToDate);
    m_failed = std::make_unique<QSignalSpy>(m_controller.get(), &UpdateController::checkFailed);
}

void tst_UpdateController::startChecksOnlyWhenDueAndWanted_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("interval");
    QTest::addColumn<QString>("last");
    QTest::addColumn<bool>("checks");
    QTest::newRow("switched off") << false << "daily"
                                  << "" << false;
    QTest::newRow("first start") << true << "weekly"
                                 << "" << true;
    QTest::newRow("daily, yesterday") << true << "daily"
                                      << "2026-11-20" << true;
    QTest::newRow("weekly, yesterday") << true << "weekly"
                                       << "2026-11-20" << false;
    QTest::newRow("weekly, a week ago") << true << "weekly"
                                        << "2026-11-14" << true;
    QTest::newRow("monthly, a week ago") << true << "monthly"
                                         << "2026-11-14" << false;
}

void tst_UpdateController::startChecksOnlyWhenDueAndWanted()
{
    QFETCH(bool, enabled);
    QFETCH(QString, interval);
    QFETCH(QString, last);
    QFETCH(bool, checks);
    m_page->fromJson({{"versionCheckEnabled", enabled},
                      {"updateInterval", interval},
                      {"lastUpdateCheck", last}});
    m_server->setAnswer(feed("0.7.0.0"));
    m_controller->origin = Origin::Menu;

    m_controller->checkAtStart();

    QCOMPARE(m_controller->isStartCheckWaiting(), checks);
    if (checks) {
        QTRY_COMPARE(m_upToDate->count(), 1);
        QCOMPARE(m_upToDate->first().first().value<Origin>(), Origin::StartUp);
    }
    QCOMPARE(m_server->requests().size(), checks ? 1 : 0);
}

void tst_UpdateController::aQuestionReplacesTheCheckAtStart()
{
    m_server->setAnswer(feed("0.7.0.0"));
    m_controller->checkAtStart();
    m_controller->origin = Origin::Menu;

    m_controller->fetch();

    QVERIFY(!m_controller->isStartCheckWaiting());
    QTRY_COMPARE(m_upToDate->count(), 1);
    QCOMPARE(m_upToDate->first().first().value<Origin>(), Origin::Menu);
    QCOMPARE(m_server->requests().size(), 1);
}

void tst_UpdateController::aNewerReleaseIsOffered()
{
    m_server->setAnswer(feed("0.8.0.0"));
    m_controller->origin = Origin::About;

    m_controller->fetch();

    QTRY_COMPARE(m_available->count(), 1);
    QCOMPARE(m_available->first().at(0).value<Update::Release>().version, QString("0.8.0.0"));
    QCOMPARE(m_available->first().at(1).value<Origin>(), Origin::About);
    QCOMPARE(m_upToDate->count(), 0);
    QCOMPARE(m_failed->count(), 0);
}

void tst_UpdateController::everyCompletedCheckIsDatedBeforeTheFeedIsRead_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("up to date") << feed("0.7.0.0");
    QTest::newRow("damaged") << FeedServer::http("200 OK", "{\"tools\":");
    QTest::newRow("empty") << FeedServer::http("200 OK", "");
    QTest::newRow("released on the build date") << feed("0.8.0.0", "2026-10-15");
}

void tst_UpdateController::everyCompletedCheckIsDatedBeforeTheFeedIsRead()
{
    QFETCH(QByteArray, answer);
    m_server->setAnswer(answer);

    m_controller->fetch();

    QTRY_COMPARE(m_upToDate->count(), 1);
    QCOMPARE(m_page->lastUpdateCheck(), QString("2026-11-21"));
    QCOMPARE(m_persisted, 1);
    QCOMPARE(m_available->count(), 0);
}

void tst_UpdateController::aFailedCheckIsNotDated()
{
    m_server->setAnswer(FeedServer::http("500 Internal Server Error", "{}"));
    m_controller->origin = Origin::Menu;

    m_controller->fetch();

    QTRY_COMPARE(m_failed->count(), 1);
    QCOMPARE(m_failed->first().at(1).value<Origin>(), Origin::Menu);
    QCOMPARE(m_page->lastUpdateCheck(), QString());
    QCOMPARE(m_persisted, 0);
}

void tst_UpdateController::aSkippedVersionIsPersistedAndNotOffered()
{
    m_controller->skipVersion("0.8.0.0");
    QCOMPARE(m_page->skippedVersion(), QString("0.8.0.0"));
    QCOMPARE(m_persisted, 1);
    m_server->setAnswer(feed("0.8.0.0"));

    m_controller->fetch();
    QTRY_COMPARE(m_upToDate->count(), 1);
    m_server->setAnswer(feed("0.9.0.0"));
    m_controller->fetch();

    QTRY_COMPARE(m_available->count(), 1);
}

void tst_UpdateController::theLastAskerGetsTheOnlyAnswer()
{
    m_server->setAnswer({}, FeedServer::Manner::Silent);
    m_controller->origin = Origin::Menu;
    m_controller->fetch();
    QTRY_COMPARE(m_server->requests().size(), 1);
    m_server->setAnswer(feed("0.7.0.0"));
    m_controller->origin = Origin::About;

    m_controller->fetch();

    QTRY_COMPARE(m_upToDate->count(), 1);
    QCOMPARE(m_upToDate->first().first().value<Origin>(), Origin::About);
    QCOMPARE(m_failed->count(), 0);
}

QTEST_MAIN(tst_UpdateController)
#include "tst_UpdateController.moc"
