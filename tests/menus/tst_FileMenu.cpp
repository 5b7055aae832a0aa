#include "menus/MenuBar.h"
#include "support/FileDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_FileMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void itemsSendTheirSignals_data();
    void itemsSendTheirSignals();
    void recentStartsWithNoneThatCannotBeTriggered();
    void recentShowsFileNamesThenClear();
    void recentItemsOpenTheirPath();
    void aRecentItemMayRebuildTheMenuThatItIsIn();
    void ampersandsInFileNamesAreShown();
    void recentHoldsTenProjects();
    void reopeningMovesAnEntryToTheFront();
    void pathsAreComparedWithTheirCase();
    void clearEmptiesTheList();
    void newAsksForAName();
    void aCancelledNewProjectSendsNothing();
    void theOpenDialogAsksForOneProjectFile();
    void openSendsTheChosenFileAndRemembersItsFolder();
    void aSecondFileIsNotAddedToTheFirst();
    void twoChosenFilesAreIgnored();
    void aCancelledOpenSendsNothing();
    void theOpenDialogStartsInTheLastDirectory();

private:
    QAction *item(const QString &text) const;
    QMenu *recentMenu() const { return item("Recent")->menu(); }
    QStringList recentTexts() const;

    std::unique_ptr<QMainWindow> m_window;
    FileMenu *m_menu = nullptr;
};

void tst_FileMenu::init()
{
    m_window = std::make_unique<QMainWindow>();
    auto *bar = new MenuBar(m_window.get());
    m_window->setMenuBar(bar);
    m_window->show();
    m_menu = bar->fileMenu();
}

void tst_FileMenu::cleanup()
{
    m_window.reset();
}

QAction *tst_FileMenu::item(const QString &text) const
{
    const QList<QAction *> actions = m_menu->actions();
    for (QAction *action : actions) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

QStringList tst_FileMenu::recentTexts() const
{
    QStringList texts;
    const QList<QAction *> actions = recentMenu()->actions();
    for (const QAction *action : actions)
        texts.append(action->isSeparator() ? QString("-") : action->text());
    return texts;
}

void tst_FileMenu::itemsSendTheirSignals_data()
{
    QTest::addColumn<QByteArray>("signal");

    QTest::newRow("Save") << QByteArray(SIGNAL(saveProject()));
    QTest::newRow("Save As") << QByteArray(SIGNAL(saveProjectAs()));
    QTest::newRow("Close") << QByteArray(SIGNAL(closeProject()));
    QTest::newRow("Preferences") << QByteArray(SIGNAL(displayPreferences()));
    QTest::newRow("Quit") << QByteArray(SIGNAL(quit()));
}

void tst_FileMenu::itemsSendTheirSignals()
{
    QFETCH(QByteArray, signal);
    QSignalSpy spy(m_menu, signal.constData());
    QAction *action = item(QTest::currentDataTag());
    action->setEnabled(true);

    action->trigger();

    QCOMPARE(spy.count(), 1);
}

void tst_FileMenu::recentStartsWithNoneThatCannotBeTriggered()
{
    QSignalSpy opened(m_menu, &FileMenu::openProject);

    QCOMPARE(recentTexts(), QStringList("None"));
    recentMenu()->actions().at(0)->trigger();

    QVERIFY(!recentMenu()->actions().at(0)->isEnabled());
    QCOMPARE(opened.count(), 0);
}

void tst_FileMenu::recentShowsFileNamesThenClear()
{
    m_menu->setRecent({"/games/one.tessaril", "/other/two.tessaril"});

    QCOMPARE(recentTexts(), QStringList({"one.tessaril", "two.tessaril", "-", "Clear"}));
    QCOMPARE(recentMenu()->actions().at(0)->property("filePath").toString(),
             QString("/games/one.tessaril"));
}

void tst_FileMenu::recentItemsOpenTheirPath()
{
    m_menu->setRecent({"/games/one.tessaril", "/other/two.tessaril"});
    QSignalSpy opened(m_menu, &FileMenu::openProject);

    recentMenu()->actions().at(1)->trigger();

    QCOMPARE(opened, QList<QVariantList>({{"/other/two.tessaril"}}));
}

void tst_FileMenu::aRecentItemMayRebuildTheMenuThatItIsIn()
{
    m_menu->setRecent({"/games/one.tessaril", "/other/two.tessaril"});
    connect(m_menu, &FileMenu::openProject, m_menu, &FileMenu::addRecent);

    recentMenu()->actions().at(1)->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QCOMPARE(recentTexts(), QStringList({"two.tessaril", "one.tessaril", "-", "Clear"}));
}

void tst_FileMenu::ampersandsInFileNamesAreShown()
{
    m_menu->setRecent({"/games/salt & pepper.tessaril"});

    QCOMPARE(recentTexts().at(0), QString("salt && pepper.tessaril"));
    QCOMPARE(recentMenu()->actions().at(0)->toolTip(), QString("/games/salt & pepper.tessaril"));
}

void tst_FileMenu::recentHoldsTenProjects()
{
    for (int number = 1; number <= 11; ++number)
        m_menu->addRecent(QString("/games/%1.tessaril").arg(number));

    QCOMPARE(m_menu->recent().size(), 10);
    QCOMPARE(m_menu->recent().first(), QString("/games/11.tessaril"));
    QCOMPARE(m_menu->recent().last(), QString("/games/2.tessaril"));
}

void tst_FileMenu::reopeningMovesAnEntryToTheFront()
{
    m_menu->setRecent({"/a.tessaril", "/b.tessaril", "/c.tessaril"});

    m_menu->addRecent("/c.tessaril");

    QCOMPARE(m_menu->recent(), QStringList({"/c.tessaril", "/a.tessaril", "/b.tessaril"}));
}

void tst_FileMenu::pathsAreComparedWithTheirCase()
{
    m_menu->setRecent({"/a.tessaril"});

    m_menu->addRecent("/A.tessaril");

    QCOMPARE(m_menu->recent(), QStringList({"/A.tessaril", "/a.tessaril"}));
}

void tst_FileMenu::clearEmptiesTheList()
{
    m_menu->setRecent({"/a.tessaril"});

    recentMenu()->actions().last()->trigger();

    QVERIFY(m_menu->recent().isEmpty());
    QCOMPARE(recentTexts(), QStringList("None"));
}

void tst_FileMenu::newAsksForAName()
{
    QSignalSpy created(m_menu, &FileMenu::newProject);

    item("New")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Rescue");
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(created, QList<QVariantList>({{"Rescue"}}));
}

void tst_FileMenu::aCancelledNewProjectSendsNothing()
{
    QSignalSpy created(m_menu, &FileMenu::newProject);

    item("New")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Rescue");
    QTest::keyClick(dialog, Qt::Key_Escape);

    QVERIFY(!dialog->isVisible());
    QCOMPARE(created.count(), 0);
}

void tst_FileMenu::theOpenDialogAsksForOneProjectFile()
{
    item("Open")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QVERIFY(dialog);
    QCOMPARE(dialog->windowTitle(), QString("Open project"));
    QCOMPARE(dialog->nameFilters(), QStringList("Project file (*.tessaril)"));
    QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
    QCOMPARE(dialog->defaultSuffix(), QString("tessaril"));
    QVERIFY(dialog->isModal());
    QCOMPARE(dialog->parentWidget(), m_window.get());
}

void tst_FileMenu::openSendsTheChosenFileAndRemembersItsFolder()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("level.tessaril"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QSignalSpy opened(m_menu, &FileMenu::openProject);

    item("Open")->trigger();
    QFileDialog *dialog = FileDialogs::visible();
    dialog->setDirectory(folder.path());
    FileDialogs::choose(dialog, file.fileName());

    QCOMPARE(opened, QList<QVariantList>({{file.fileName()}}));
    QCOMPARE(m_menu->lastDirectory().absolutePath(), folder.path());
    item("Open")->trigger();
    QCOMPARE(FileDialogs::visible(), dialog);
}

void tst_FileMenu::aSecondFileIsNotAddedToTheFirst()
{
    const QTemporaryDir folder;
    const QStringList files{folder.filePath("a.tessaril"), folder.filePath("b.tessaril")};
    for (const QString &name : files)
        QVERIFY(QFile(name).open(QIODevice::WriteOnly));
    m_menu->setLastPath(folder.path());
    QSignalSpy opened(m_menu, &FileMenu::openProject);

    for (const QString &name : files) {
        item("Open")->trigger();
        const auto *list = FileDialogs::visible()->findChild<QListView *>("listView");
        QTRY_COMPARE(list->model()->rowCount(list->rootIndex()), 2);
        FileDialogs::choose(FileDialogs::visible(), name);
        QApplication::processEvents();
    }

    QCOMPARE(opened, QList<QVariantList>({{files.first()}, {files.last()}}));
}

void tst_FileMenu::twoChosenFilesAreIgnored()
{
    const QTemporaryDir folder;
    for (const char *name : {"a.tessaril", "b.tessaril"})
        QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    m_menu->setLastPath(folder.path());
    QSignalSpy opened(m_menu, &FileMenu::openProject);

    item("Open")->trigger();
    FileDialogs::visible()->setFileMode(QFileDialog::ExistingFiles);
    FileDialogs::choose(FileDialogs::visible(), "\"a.tessaril\" \"b.tessaril\"");

    QVERIFY(!FileDialogs::visible());
    QCOMPARE(opened.count(), 0);
}

void tst_FileMenu::aCancelledOpenSendsNothing()
{
    const QString before = m_menu->lastDirectory().absolutePath();
    QSignalSpy opened(m_menu, &FileMenu::openProject);

    item("Open")->trigger();
    FileDialogs::cancel(FileDialogs::visible());

    QVERIFY(!FileDialogs::visible());
    QCOMPARE(opened.count(), 0);
    QCOMPARE(m_menu->lastDirectory().absolutePath(), before);
}

void tst_FileMenu::theOpenDialogStartsInTheLastDirectory()
{
    const QTemporaryDir folder;
    m_menu->setLastPath(folder.path());

    item("Open")->trigger();

    QCOMPARE(FileDialogs::visible()->directory().absolutePath(), folder.path());
}

QTEST_MAIN(tst_FileMenu)
#include "tst_FileMenu.moc"
