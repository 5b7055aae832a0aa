#include "Sweep.h"

#include "app/MainWindow.h"
#include "dialogs/About.h"
#include "support/FeedServer.h"
#include "support/OwnHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>

/// Servers that are slow, silent, endless or hostile: the window goes on answering while it asks
/// them, and says what the check came to.
class tst_FeedFaults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyServerComesToAnEnd_data();
    void everyServerComesToAnEnd();
    void aSlowServerIsWaitedForAsLongAsItSends();
    void quittingDuringAFetchIsHarmless_data();
    void quittingDuringAFetchIsHarmless();
    void oddReleasesAreShownInASmallDialog_data();
    void oddReleasesAreShownInASmallDialog();

private:
    void check();
    bool aboutSays(const QString &text) const;

    std::unique_ptr<FeedServer> m_server;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

using Manner = FeedServer::Manner;

constexpr int TimeoutMs = 1500;
constexpr int MaxWorkMs = 100;   // of the processor, between two answers of the window
constexpr int MaxStallMs = 1400; // waiting included, on a machine that others use
constexpr int MaxMegabytes = 512;

const QString UpToDate = QStringLiteral("You\u2019re up to date");
const QString Unreachable = QStringLiteral("Could not reach the update server");

/// How long the program goes without looking for what the user does.
class Heartbeat
{
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_clock.start();
        m_worked = Sweep::usedMs();
        m_timer.start(1);
    }

    qint64 longestWorkMs() const { return m_longestWork; }
    qint64 longestStallMs() const { return m_longestStall; }

private:
    void beat()
    {
        m_longestStall = std::max(m_longestStall, m_clock.restart());
        const qint64 worked = Sweep::usedMs();
        m_longestWork = std::max(m_longestWork, worked - m_worked);
        m_worked = worked;
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_worked = 0;
    qint64 m_longestWork = 0;
    qint64 m_longestStall = 0;
};

QByteArray feed(const QByteArray &key, const QByteArray &value)
{
    return R"({"tools": {"tessaril": {"latest": "0.9", "channel": "stable",)"
           R"("released": "2030-01-01", ")" +
           key + R"(": ")" + value + R"("}}})";
}

bool isSanitized()
{
    return Sweep::peakMegabytes() == 0;
}

} // namespace

void tst_FeedFaults::init()
{
    QVERIFY(useOwnHome(QDir::current()));
    m_server = std::make_unique<FeedServer>();
    m_window = std::make_unique<MainWindow>();
    m_window->updates()->checker().setFeedAddress(m_server->address());
    m_window->updates()->checker().setTransferTimeout(TimeoutMs);
    // Made by the first request, and a part of the program's start that is measured elsewhere.
    m_server->setAnswer(FeedServer::http("200 OK", "{}"));
    check();
    QTRY_VERIFY(aboutSays(UpToDate));
}

void tst_FeedFaults::cleanup()
{
    m_window.reset();
    m_server.reset();
}

/// As the About dialog asks, which answers with a line of its own.
void tst_FeedFaults::check()
{
    m_window->updates()->origin = UpdateController::Origin::About;
    m_window->updates()->fetch();
}

bool tst_FeedFaults::aboutSays(const QString &text) const
{
    const auto labels =
        m_window->views().menuBar->helpMenu()->about()->findChildren<const QLabel *>();
    return std::any_of(labels.begin(), labels.end(),
                       [&text](const QLabel *label) { return label->text() == text; });
}

void tst_FeedFaults::everyServerComesToAnEnd_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<FeedServer::Manner>("manner");
    QTest::addColumn<QString>("outcome");
    const auto row = [](const char *name, const QByteArray &body, const QString &outcome,
                        const QByteArray &headers = {}) {
        QTest::newRow(name) << FeedServer::http("200 OK", body, headers) << Manner::Answer
                            << outcome;
    };
    const QByteArray start = "HTTP/1.1 200 OK\r\n";
    QTest::newRow("silent") << QByteArray() << Manner::Silent << Unreachable;
    QTest::newRow("endless") << start + "\r\n" << Manner::Endless << Unreachable;
    QTest::newRow("endless chunks") << start + "Transfer-Encoding: chunked\r\n\r\n7fffffff\r\n"
                                    << Manner::Endless << Unreachable;
    QTest::newRow("an endless header") << start + "X-Long: " << Manner::Endless << Unreachable;
    QTest::newRow("cut") << start + "Content-Length: 100\r\n\r\n{" << Manner::CutHalfway
                         << Unreachable;
    QTest::newRow("no HTTP") << QByteArray(10'000, '\x80') << Manner::Answer << Unreachable;
    QTest::newRow("redirected to a file")
        << FeedServer::http("302 Found", {}, "Location: file:///etc/passwd\r\n") << Manner::Answer
        << Unreachable;
    QTest::newRow("redirected to itself")
        << FeedServer::http("302 Found", {}, "Location: /versions.json\r\n") << Manner::Answer
        << Unreachable;
    row("HTML", "<html><body><h1>Welcome to our hotel</h1></body></html>", UpToDate);
    row("deep JSON", QByteArray(500'000, '['), UpToDate);
    row("deep objects", QByteArray("{\"tools\":").repeated(50'000), UpToDate);
    row("a list", "[]", UpToDate);
    row("a megabyte of blanks", QByteArray(1024 * 1024, ' '), UpToDate);
    row("more than a megabyte", QByteArray(1024 * 1024 + 1, ' '), Unreachable);
    // Without the length in front, qCompress() makes what HTTP calls deflate.
    row("packed a thousandfold", qCompress(QByteArray(64 * 1024 * 1024, ' '), 9).mid(4),
        Unreachable, "Content-Encoding: deflate\r\n");
}

void tst_FeedFaults::everyServerComesToAnEnd()
{
    QFETCH(QByteArray, answer);
    QFETCH(FeedServer::Manner, manner);
    QFETCH(QString, outcome);
    m_window->views().menuBar->helpMenu()->about()->setUpdateStatus(QStringLiteral("asking"));
    m_server->setAnswer(answer, manner);
    Sweep::forgetPeak();
    const Heartbeat heart;

    check();
    QTRY_VERIFY_WITH_TIMEOUT(!aboutSays(QStringLiteral("asking")), 60'000);

    QVERIFY(aboutSays(outcome));
    QVERIFY2(heart.longestWorkMs() < MaxWorkMs * (isSanitized() ? 10 : 1),
             qPrintable(QString::number(heart.longestWorkMs())));
    QVERIFY2(heart.longestStallMs() < MaxStallMs,
             qPrintable(QString::number(heart.longestStallMs())));
    const int peak = Sweep::peakMegabytes();
    QVERIFY2(peak < MaxMegabytes, qPrintable(QString::number(peak)));
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_FeedFaults::aSlowServerIsWaitedForAsLongAsItSends()
{
    // Longer in all than the time-out, but never silent for so long.
    m_server->setAnswer(FeedServer::http("200 OK", feed("released", "2030-01-01")),
                        Manner::Trickle);
    m_server->setPause(TimeoutMs / 100);
    const Heartbeat heart;

    check();
    QTRY_VERIFY_WITH_TIMEOUT(aboutSays(QStringLiteral("Update available: 0.9")), 60'000);

    QVERIFY(heart.longestWorkMs() < MaxWorkMs * (isSanitized() ? 10 : 1));
    QVERIFY(heart.longestStallMs() < MaxStallMs);
}

void tst_FeedFaults::quittingDuringAFetchIsHarmless_data()
{
    QTest::addColumn<FeedServer::Manner>("manner");
    QTest::newRow("silent") << Manner::Silent;
    QTest::newRow("trickle") << Manner::Trickle;
    QTest::newRow("endless") << Manner::Endless;
}

void tst_FeedFaults::quittingDuringAFetchIsHarmless()
{
    QFETCH(FeedServer::Manner, manner);
    const qsizetype before = m_server->requests().size();
    m_server->setAnswer("HTTP/1.1 200 OK\r\nContent-Length: 900000\r\n\r\n", manner);
    check();
    QTRY_VERIFY(m_server->requests().size() > before);
    QElapsedTimer clock;
    clock.start();

    QVERIFY(m_window->close());
    m_window.reset();

    QVERIFY2(clock.elapsed() < MaxStallMs, qPrintable(QString::number(clock.elapsed())));
    QCoreApplication::processEvents();
}

void tst_FeedFaults::oddReleasesAreShownInASmallDialog_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("a long version") << QByteArray("latest") << QByteArray(900'000, 'v');
    QTest::newRow("a long date") << QByteArray("released") << QByteArray(900'000, '9');
    QTest::newRow("lines") << QByteArray("latest") << QByteArray("1\\n").repeated(10'000);
    QTest::newRow("HTML") << QByteArray("latest") << QByteArray("<h1>1</h1><img src='/dev/zero'>");
    QTest::newRow("place holders") << QByteArray("latest") << QByteArray("%1%2%3");
    QTest::newRow("a long link") << QByteArray("notes_url")
                                 << "https://a.example/" + QByteArray(900'000, 'a');
    QTest::newRow("a script") << QByteArray("downloads_url") << QByteArray("javascript:alert(1)");
    QTest::newRow("a file") << QByteArray("downloads_url") << QByteArray("file:///etc/passwd");
}

void tst_FeedFaults::oddReleasesAreShownInASmallDialog()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    const auto *dialog = m_window->findChild<UpdateDialog *>();
    m_server->setAnswer(FeedServer::http("200 OK", feed(key, value)));
    const Heartbeat heart;

    m_window->updates()->origin = UpdateController::Origin::Menu;
    m_window->updates()->fetch();
    QTRY_VERIFY(dialog->isVisible());

    QVERIFY2(heart.longestWorkMs() < MaxStallMs * (isSanitized() ? 10 : 1),
             qPrintable(QString::number(heart.longestWorkMs())));
    QVERIFY2(dialog->width() <= 800 && dialog->height() <= 600,
             qPrintable(QStringLiteral("%1 %2").arg(dialog->width()).arg(dialog->height())));
    QTest::mouseClick(dialog->findChild<QPushButton *>("later"), Qt::LeftButton);
    QTRY_VERIFY(!dialog->isVisible());
}

QTEST_MAIN(tst_FeedFaults)
#include "tst_FeedFaults.moc"
