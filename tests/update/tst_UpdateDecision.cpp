#include "update/UpdateDecision.h"

#include <QTest>

using namespace Update;

class tst_UpdateDecision : public QObject
{
    Q_OBJECT

private slots:
    void aCheckIsDueAfterItsInterval_data();
    void aCheckIsDueAfterItsInterval();
    void theChannelStandsBehindTheDash_data();
    void theChannelStandsBehindTheDash();
    void readsOwnEntryOfTheFeed();
    void aFeedWithoutOwnEntryHasNoRelease_data();
    void aFeedWithoutOwnEntryHasNoRelease();
    void valuesOfAnotherTypeReadAsEmpty();
    void textsAreOneShortLine_data();
    void textsAreOneShortLine();
    void offersOnlyWhatIsNewerAndWanted_data();
    void offersOnlyWhatIsNewerAndWanted();
};

void tst_UpdateDecision::aCheckIsDueAfterItsInterval_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("interval");
    QTest::addColumn<bool>("due");
    QTest::newRow("never checked") << ""
                                   << "weekly" << true;
    QTest::newRow("no date") << "yesterday"
                             << "monthly" << true;
    QTest::newRow("daily, today") << "2026-11-21"
                                  << "daily" << false;
    QTest::newRow("daily, yesterday") << "2026-11-20"
                                      << "daily" << true;
    QTest::newRow("weekly, six days") << "2026-11-15"
                                      << "weekly" << false;
    QTest::newRow("weekly, seven days") << "2026-11-14"
                                        << "weekly" << true;
    QTest::newRow("monthly, 27 days") << "2026-10-25"
                                      << "monthly" << false;
    QTest::newRow("monthly, 28 days") << "2026-10-24"
                                      << "monthly" << true;
    QTest::newRow("other text, six days") << "2026-11-15"
                                          << "hourly" << false;
    QTest::newRow("other text, seven days") << "2026-11-14"
                                            << "hourly" << true;
    QTest::newRow("in the future") << "2026-12-24"
                                   << "daily" << false;
}

void tst_UpdateDecision::aCheckIsDueAfterItsInterval()
{
    QFETCH(QString, last);
    QFETCH(QString, interval);
    QFETCH(bool, due);

    QCOMPARE(isCheckDue(last, interval, QDate(2026, 11, 21)), due);
}

void tst_UpdateDecision::theChannelStandsBehindTheDash_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("channel");
    QTest::newRow("no dash") << "0.7.0.0"
                             << "stable";
    QTest::newRow("alpha") << "1.0-alpha3"
                           << "alpha";
    QTest::newRow("beta") << "1.0-beta"
                          << "beta";
    QTest::newRow("rc") << "1.0-rc1"
                        << "rc";
    QTest::newRow("case counts") << "1.0-Beta"
                                 << "stable";
    QTest::newRow("other word") << "1.0-nightly"
                                << "stable";
    QTest::newRow("first dash decides") << "1.0-x-beta"
                                        << "stable";
}

void tst_UpdateDecision::theChannelStandsBehindTheDash()
{
    QFETCH(QString, version);
    QFETCH(QString, channel);

    QCOMPARE(channelOf(version), channel);
}

void tst_UpdateDecision::readsOwnEntryOfTheFeed()
{
    const QByteArray feed = R"({"tools": {"another": {"latest": "9"}, "tessaril": {
        "latest": "0.8.0.0", "channel": "stable", "released": "2026-11-01",
        "notes_url": "https://a.example/n", "downloads_url": "https://a.example/d"}}})";

    const auto release = releaseOf(feed);

    QVERIFY(release.has_value());
    const Release expected{"0.8.0.0", "stable", "2026-11-01", "https://a.example/n",
                           "https://a.example/d"};
    QCOMPARE(*release, expected);
}

void tst_UpdateDecision::aFeedWithoutOwnEntryHasNoRelease_data()
{
    QTest::addColumn<QByteArray>("feed");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("damaged") << QByteArray("{\"tools\": {\"tessaril\"");
    QTest::newRow("a page") << QByteArray("<html></html>");
    QTest::newRow("another tool alone") << QByteArray(R"({"tools": {"other": {"latest": "2"}}})");
    QTest::newRow("tools is a list") << QByteArray(R"({"tools": ["tessaril"]})");
    QTest::newRow("too deep") << QByteArray(2000, '[') + QByteArray(2000, ']');
}

void tst_UpdateDecision::aFeedWithoutOwnEntryHasNoRelease()
{
    QFETCH(QByteArray, feed);

    QVERIFY(!releaseOf(feed).has_value());
}

void tst_UpdateDecision::valuesOfAnotherTypeReadAsEmpty()
{
    const auto release = releaseOf(R"({"tools": {"tessaril": {"latest": 8, "channel": null}}})");

    QVERIFY(release.has_value());
    QCOMPARE(*release, Release());
}

void tst_UpdateDecision::textsAreOneShortLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("read");
    const QString most(100, u'v');
    QTest::newRow("the longest") << most << most;
    QTest::newRow("longer") << most + "v" << most;
    QTest::newRow("lines") << QStringLiteral("1\n2\r3\u20284\t") << "1 2 3 4 ";
    QTest::newRow("half a letter")
        << most.chopped(1) + QStringLiteral("\U0001F3AE") << most.chopped(1);
}

void tst_UpdateDecision::textsAreOneShortLine()
{
    QFETCH(QString, text);
    QFETCH(QString, read);
    const QJsonObject entry{{"latest", text}, {"released", text}, {"notes_url", text}};
    const QJsonObject feed{{"tools", QJsonObject{{"tessaril", entry}}}};

    const auto release = Update::releaseOf(QJsonDocument(feed).toJson());

    QCOMPARE(release->version, read);
    QCOMPARE(release->released, read);
    QCOMPARE(release->notes, text);
}

void tst_UpdateDecision::offersOnlyWhatIsNewerAndWanted_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("released");
    QTest::addColumn<QString>("running");
    QTest::addColumn<QString>("skipped");
    QTest::addColumn<bool>("offer");
    const QString v7 = "0.7.0.0", v8 = "0.8.0.0", later = "2026-10-16";
    QTest::newRow("newer stable") << v8 << "stable" << later << v7 << "" << true;
    QTest::newRow("no version") << ""
                                << "stable" << later << v7 << "" << false;
    QTest::newRow("running version") << v7 << "stable" << later << v7 << "" << false;
    QTest::newRow("skipped") << v8 << "stable" << later << v7 << v8 << false;
    QTest::newRow("another skipped") << v8 << "stable" << later << v7 << "0.7.9" << true;
    QTest::newRow("beta for stable") << v8 << "beta" << later << v7 << "" << false;
    QTest::newRow("beta for beta") << v8 << "beta" << later << "0.7-beta1"
                                   << "" << true;
    QTest::newRow("stable for beta") << v8 << "stable" << later << "0.7-beta1"
                                     << "" << true;
    QTest::newRow("rc for beta") << v8 << "rc" << later << "0.7-beta1"
                                 << "" << false;
    QTest::newRow("on the build date") << v8 << "stable"
                                       << "2026-10-15" << v7 << "" << false;
    QTest::newRow("before it") << v8 << "stable"
                               << "2026-10-14" << v7 << "" << false;
    QTest::newRow("no date") << v8 << "stable"
                             << "" << v7 << "" << false;
}

void tst_UpdateDecision::offersOnlyWhatIsNewerAndWanted()
{
    QFETCH(QString, version);
    QFETCH(QString, channel);
    QFETCH(QString, released);
    QFETCH(QString, running);
    QFETCH(QString, skipped);
    QFETCH(bool, offer);

    const Release release{version, channel, released, {}, {}};

    QCOMPARE(isOffer(release, {running, "2026-10-15"}, skipped), offer);
}

QTEST_GUILESS_MAIN(tst_UpdateDecision)
#include "tst_UpdateDecision.moc"
