#include "update/UpdateDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

class tst_UpdateDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void tellsWhatIsOffered();
    void standsInTheOrderTold();
    void namesItsWidgets_data();
    void namesItsWidgets();
    void missingAddressesDisableTheirButtons();
    void onlyWebPagesAreOpened();
    void linksOpenAndTheDialogStays();
    void skipEmitsTheVersionAndCloses();
    void laterClosesQuietlyAndIsTheDefault();
    void returnIsForLaterWhateverHasTheFocus();
    void itIsWideAndWrapsWhatIsLonger();
    void textsOfTheFeedAreShownAsTheyAre();

private:
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QString::fromLatin1(name));
    }
    void click(const char *name) { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }

    const Update::Build m_build{"0.7.0.0", "2026-10-15"};
    Update::Release m_release{"0.8.0.0", "stable", "2026-11-01", "https://a.example/notes",
                              "http://a.example/get"};
    std::unique_ptr<UpdateDialog> m_dialog;
    QStringList m_opened;
};

void tst_UpdateDialog::init()
{
    m_opened.clear();
    m_dialog = std::make_unique<UpdateDialog>();
    m_dialog->setOpener([this](const QUrl &url) { m_opened += url.toString(); });
}

void tst_UpdateDialog::tellsWhatIsOffered()
{
    m_dialog->showRelease(m_release, m_build);

    QVERIFY(m_dialog->isVisible());
    QVERIFY(m_dialog->isModal());
    QCOMPARE(m_dialog->windowTitle(), QString::fromUtf8("Tessaril \u2014 update available"));
    QCOMPARE(find<QLabel>("heading")->text(), QString("Tessaril 0.8.0.0 is available"));
    QCOMPARE(find<QLabel>("detail")->text(), QString("You have 0.7.0.0 (built 2026-10-15).\n"
                                                     "The new version was released 2026-11-01."));
    const QFont heading = find<QLabel>("heading")->font();
    QCOMPARE(heading.weight(), int(QFont::Bold));
    QCOMPARE(heading.pointSizeF(), m_dialog->font().pointSizeF() * 1.3);
}

void tst_UpdateDialog::standsInTheOrderTold()
{
    m_dialog->showRelease(m_release, m_build);
    m_dialog->resize(800, 400); // the stretches show

    const auto placeOf = [this](const char *name) { return find<QWidget>(name)->geometry(); };
    const QRect notes = placeOf("releaseNotes");
    const QRect download = placeOf("download");
    const QRect skip = placeOf("skip");
    const QRect later = placeOf("later");
    QVERIFY(placeOf("heading").bottom() < placeOf("detail").top());
    QVERIFY(placeOf("detail").bottom() < notes.top());
    QCOMPARE(notes.top(), download.top());
    QVERIFY(notes.left() < download.left() && download.right() < 400);
    QVERIFY(skip.top() > notes.bottom() + 50);
    QCOMPARE(skip.top(), later.top());
    QVERIFY(skip.left() > 400 && skip.right() < later.left());
}

void tst_UpdateDialog::namesItsWidgets_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("notes") << "releaseNotes" << QString::fromUtf8("Release Notes\u2026");
    QTest::newRow("download") << "download" << QString::fromUtf8("Download\u2026");
    QTest::newRow("skip") << "skip"
                          << "Skip This Version";
    QTest::newRow("later") << "later"
                           << "Later";
}

void tst_UpdateDialog::namesItsWidgets()
{
    QFETCH(QString, name);
    QFETCH(QString, text);

    const auto *const button = m_dialog->findChild<QPushButton *>(name);

    QVERIFY(button);
    QCOMPARE(button->text(), text);
}

void tst_UpdateDialog::missingAddressesDisableTheirButtons()
{
    m_release.notes.clear();
    m_dialog->showRelease(m_release, m_build);
    QVERIFY(!find<QPushButton>("releaseNotes")->isEnabled());
    QVERIFY(find<QPushButton>("download")->isEnabled());

    m_release.notes = "https://a.example/notes";
    m_release.downloads.clear();
    m_dialog->showRelease(m_release, m_build);

    QVERIFY(find<QPushButton>("releaseNotes")->isEnabled());
    QVERIFY(!find<QPushButton>("download")->isEnabled());
    m_release.downloads = "http://a.example/get";
}

void tst_UpdateDialog::onlyWebPagesAreOpened()
{
    for (const char *const address : {"file:///etc/passwd", "javascript:alert(1)", "notes.html",
                                      "https://", "mailto:a@b.example"}) {
        Update::Release release = m_release;
        release.notes = address;
        m_dialog->showRelease(release, m_build);
        QVERIFY2(!find<QPushButton>("releaseNotes")->isEnabled(), address);
    }
}

void tst_UpdateDialog::linksOpenAndTheDialogStays()
{
    m_dialog->showRelease(m_release, m_build);

    click("releaseNotes");
    click("download");

    QCOMPARE(m_opened, QStringList({"https://a.example/notes", "http://a.example/get"}));
    QVERIFY(m_dialog->isVisible());
}

void tst_UpdateDialog::skipEmitsTheVersionAndCloses()
{
    m_dialog->showRelease(m_release, m_build);
    QSignalSpy skipped(m_dialog.get(), &UpdateDialog::skipVersion);

    click("skip");

    QCOMPARE(skipped.count(), 1);
    QCOMPARE(skipped.first().first().toString(), QString("0.8.0.0"));
    QVERIFY(!m_dialog->isVisible());
}

void tst_UpdateDialog::laterClosesQuietlyAndIsTheDefault()
{
    m_dialog->showRelease(m_release, m_build);
    QSignalSpy skipped(m_dialog.get(), &UpdateDialog::skipVersion);
    QVERIFY(find<QPushButton>("later")->isDefault());

    QTest::keyClick(m_dialog.get(), Qt::Key_Return);

    QCOMPARE(skipped.count(), 0);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_opened, QStringList());
}

void tst_UpdateDialog::returnIsForLaterWhateverHasTheFocus()
{
    QSignalSpy skipped(m_dialog.get(), &UpdateDialog::skipVersion);
    for (const char *name : {"skip", "download", "releaseNotes"}) {
        m_dialog->showRelease(m_release, m_build);
        m_dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        find<QPushButton>(name)->setFocus();
        QVERIFY(find<QPushButton>("later")->isDefault());

        QTest::keyClick(find<QPushButton>(name), Qt::Key_Return);

        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(skipped.count(), 0);
        QCOMPARE(m_opened, QStringList());
    }
}

void tst_UpdateDialog::itIsWideAndWrapsWhatIsLonger()
{
    m_dialog->showRelease(m_release, m_build);
    QVERIFY(m_dialog->width() >= 420);
    const int height = find<QLabel>("heading")->height();

    m_release.version = QString("version ").repeated(30);
    m_dialog->showRelease(m_release, m_build);
    m_dialog->adjustSize();
    QCoreApplication::processEvents();

    const QLabel *const heading = find<QLabel>("heading");
    QVERIFY(m_dialog->width() < heading->fontMetrics().horizontalAdvance(heading->text()));
    QVERIFY(heading->height() >= 2 * height);
    m_release.version = "0.8.0.0";
}

void tst_UpdateDialog::textsOfTheFeedAreShownAsTheyAre()
{
    m_release.version = "<b>%1</b>";

    m_dialog->showRelease(m_release, m_build);

    QCOMPARE(find<QLabel>("heading")->text(), QString("Tessaril <b>%1</b> is available"));
    QCOMPARE(find<QLabel>("heading")->textFormat(), Qt::PlainText);
    m_release.version = "0.8.0.0";
}

QTEST_MAIN(tst_UpdateDialog)
#include "tst_UpdateDialog.moc"
