#include "support/FeedServer.h"
#include "update/UpdateChecker.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTemporaryDir>
#include <QTest>

using Update::UpdateChecker;

class tst_UpdateChecker : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void handsOutTheFeedAsItCame();
    void asksOnceWithTheProgramsUserAgent();
    void anEmptyFeedIsAnAnswer();
    void httpErrorsFail_data();
    void httpErrorsFail();
    void aConnectionClosedHalfwayFails();
    void aServerThatNeverAnswersFailsAfterFiveSeconds();
    void aRedirectIsFollowed();
    void anEndlessFeedFailsAndIsNotKept();
    void aNewRequestReplacesTheOneInFlight();
    void noServerFails();
    void anUnknownCertificateIsRefused();
    void endingDuringAFetchIsHarmless();

private:
    std::unique_ptr<FeedServer> m_server;
    std::unique_ptr<UpdateChecker> m_checker;
    std::unique_ptr<QSignalSpy> m_fetched;
    std::unique_ptr<QSignalSpy> m_failed;
};

void tst_UpdateChecker::init()
{
    m_server = std::make_unique<FeedServer>();
    QVERIFY(m_server->isListening());
    m_checker = std::make_unique<UpdateChecker>("0.7.0.0");
    m_checker->setFeedAddress(m_server->address());
    m_fetched = std::make_unique<QSignalSpy>(m_checker.get(), &UpdateChecker::fetched);
    m_failed = std::make_unique<QSignalSpy>(m_checker.get(), &UpdateChecker::failed);
}

void tst_UpdateChecker::cleanup()
{
    m_failed.reset();
    m_fetched.reset();
    m_checker.reset();
    m_server.reset();
}

void tst_UpdateChecker::handsOutTheFeedAsItCame()
{
    m_server->setAnswer(FeedServer::http("200 OK", "{\"tools\": {}}"));

    m_checker->fetch();

    QTRY_COMPARE(m_fetched->count(), 1);
    QCOMPARE(m_fetched->first().first().toByteArray(), QByteArray("{\"tools\": {}}"));
    QCOMPARE(m_failed->count(), 0);
}

void tst_UpdateChecker::asksOnceWithTheProgramsUserAgent()
{
    m_server->setAnswer(FeedServer::http("200 OK", "{}"));

    m_checker->fetch();

    QTRY_COMPARE(m_fetched->count(), 1);
    QCOMPARE(m_server->requests().size(), 1);
    const QByteArray request = m_server->requests().first();
    QVERIFY2(request.startsWith("GET /versions.json HTTP/1.1\r\n"), request.constData());
    QVERIFY2(
        request.contains("\r\nUser-Agent: Tessaril/0.7.0.0 (+https://brindlemoor.example)\r\n"),
        request.constData());
}

void tst_UpdateChecker::anEmptyFeedIsAnAnswer()
{
    m_server->setAnswer(FeedServer::http("200 OK", {}));

    m_checker->fetch();

    QTRY_COMPARE(m_fetched->count(), 1);
    QCOMPARE(m_fetched->first().first().toByteArray(), QByteArray());
}

void tst_UpdateChecker::httpErrorsFail_data()
{
    QTest::addColumn<QByteArray>("status");
    QTest::newRow("not found") << QByteArray("404 Not Found");
    QTest::newRow("server error") << QByteArray("500 Internal Server Error");
}

void tst_UpdateChecker::httpErrorsFail()
{
    QFETCH(QByteArray, status);
    m_server->setAnswer(FeedServer::http(status, "{\"tools\": {}}"));

    m_checker->fetch();

    QTRY_COMPARE(m_failed->count(), 1);
    QVERIFY(!m_failed->first().first().toString().isEmpty());
    QCOMPARE(m_fetched->count(), 0);
}

void tst_UpdateChecker::aConnectionClosedHalfwayFails()
{
    const QByteArray whole = FeedServer::http("200 OK", QByteArray(2000, 'x'));
    m_server->setAnswer(whole.left(whole.size() / 2), FeedServer::Manner::CutHalfway);

    m_checker->fetch();

    QTRY_COMPARE(m_failed->count(), 1);
    QCOMPARE(m_fetched->count(), 0);
}

void tst_UpdateChecker::aServerThatNeverAnswersFailsAfterFiveSeconds()
{
    m_server->setAnswer({}, FeedServer::Manner::Silent);
    QElapsedTimer timer;
    timer.start();

    m_checker->fetch();

    QTRY_COMPARE_WITH_TIMEOUT(m_failed->count(), 1, 15000);
    QVERIFY2(timer.elapsed() >= 4500, qPrintable(QString::number(timer.elapsed())));
    QVERIFY2(timer.elapsed() < 9000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_fetched->count(), 0);
}

void tst_UpdateChecker::aRedirectIsFollowed()
{
    FeedServer target;
    target.setAnswer(FeedServer::http("200 OK", "{\"moved\": true}"));
    m_server->setAnswer(
        FeedServer::http("302 Found", {}, "Location: " + target.address().toEncoded() + "\r\n"));

    m_checker->fetch();

    QTRY_COMPARE(m_fetched->count(), 1);
    QCOMPARE(m_fetched->first().first().toByteArray(), QByteArray("{\"moved\": true}"));
}

void tst_UpdateChecker::anEndlessFeedFailsAndIsNotKept()
{
    m_server->setAnswer("HTTP/1.1 200 OK\r\nContent-Length: 52428800\r\n\r\n",
                        FeedServer::Manner::Endless);

    m_checker->fetch();

    QTRY_COMPARE(m_failed->count(), 1);
    QCOMPARE(m_fetched->count(), 0);
    QVERIFY2(m_server->sent() < 16 * UpdateChecker::MaxFeedSize,
             qPrintable(QString::number(m_server->sent())));
}

void tst_UpdateChecker::aNewRequestReplacesTheOneInFlight()
{
    m_server->setAnswer({}, FeedServer::Manner::Silent);
    m_checker->fetch();
    QTRY_COMPARE(m_server->requests().size(), 1);
    m_server->setAnswer(FeedServer::http("200 OK", "second"));

    m_checker->fetch();

    QTRY_COMPARE(m_fetched->count(), 1);
    QCOMPARE(m_fetched->first().first().toByteArray(), QByteArray("second"));
    QTRY_COMPARE(m_server->givenUp(), 1);
    QCOMPARE(m_failed->count(), 0);
}

void tst_UpdateChecker::noServerFails()
{
    m_server->close();

    m_checker->fetch();

    QTRY_COMPARE(m_failed->count(), 1);
}

void tst_UpdateChecker::anUnknownCertificateIsRefused()
{
    const QTemporaryDir folder;
    const QString key = folder.filePath("key.pem");
    const QString certificate = folder.filePath("certificate.pem");
    QCOMPARE(QProcess::execute("openssl", {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days",
                                           "1", "-subj", "/CN=localhost", "-keyout", key, "-out",
                                           certificate, "-batch"}),
             0);
    QFile keyFile(key);
    QVERIFY(keyFile.open(QIODevice::ReadOnly));
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPrivateKey(QSslKey(&keyFile, QSsl::Rsa));
    configuration.setLocalCertificateChain(QSslCertificate::fromPath(certificate));
    QSslServer server;
    server.setSslConfiguration(configuration);
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QSignalSpy connections(&server, &QTcpServer::pendingConnectionAvailable);
    m_checker->setFeedAddress(
        QUrl(QStringLiteral("https://127.0.0.1:%1/versions.json").arg(server.serverPort())));

    m_checker->fetch();

    QTRY_COMPARE(m_failed->count(), 1);
    QCOMPARE(m_fetched->count(), 0);
    QVERIFY2(m_failed->first().first().toString().contains("certificate", Qt::CaseInsensitive),
             qPrintable(m_failed->first().first().toString()));
}

void tst_UpdateChecker::endingDuringAFetchIsHarmless()
{
    m_server->setAnswer({}, FeedServer::Manner::Silent);
    m_checker->fetch();
    QTRY_COMPARE(m_server->requests().size(), 1);

    m_checker.reset();

    QCOMPARE(m_fetched->count(), 0);
    QCOMPARE(m_failed->count(), 0);
}

QTEST_GUILESS_MAIN(tst_UpdateChecker)
#include "tst_UpdateChecker.moc"
