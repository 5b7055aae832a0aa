#include "control/ControllerTest.h"
#include "model/Palette.h"
#include "support/TestFiles.h"

#include <QSignalSpy>
#include <QTest>

/// New, opened and closed projects, and what makes one dirty.
class tst_ProjectController : public ControllerTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void thereIsNoProjectAtFirst();
    void aNewProjectIsOpenedThenClean();
    void aNewProjectReplacesTheOldOne();
    void aRefusedCloseKeepsTheProject_data();
    void aRefusedCloseKeepsTheProject();
    void anEditMakesTheProjectDirty();
    void anUncleanUndoStackMakesTheProjectDirty();
    void aChangeOfTheOpenTabsIsNoChange();
    void markCleanTakesTheDigestThenMarksTheStacks();
    void closingDisconnectsTheProjectFirst();
    void closingWithoutAProjectDoesNothing();
    void openingEmitsRecordsAndCleansInThisOrder();
    void updatesAreFrozenWhileOpening();
    void openingADamagedFileLeavesNoProject_data();
    void openingADamagedFileLeavesNoProject();
    void openingIsRefusedByTheUser();
    void theWaitCursorShowsWhileFilesAreReadAndWritten();
};

void tst_ProjectController::thereIsNoProjectAtFirst()
{
    QVERIFY(!m_controller->project());
    QVERIFY(!m_controller->isDirty());
    QVERIFY(m_controller->canClose());
    QVERIFY(m_controller->store()->fileName().isEmpty());
}

void tst_ProjectController::aNewProjectIsOpenedThenClean()
{
    recordEvents();
    QSignalSpy opened(m_controller.get(), &ProjectController::projectOpened);

    m_controller->newProject("Rescue");

    QCOMPARE(m_events, QStringList({"projectOpened", "markClean"}));
    QCOMPARE(opened.at(0).at(0).value<Project *>(), m_controller->project());
    QCOMPARE(m_controller->project()->name(), QString("Rescue"));
    QVERIFY(!m_controller->isDirty());
}

void tst_ProjectController::aNewProjectReplacesTheOldOne()
{
    m_controller->newProject("First");
    const QPointer<Project> first = m_controller->project();
    recordEvents();

    m_controller->newProject("Second");

    QCOMPARE(m_events,
             QStringList({"projectClosing", "projectClosed", "projectOpened", "markClean"}));
    QVERIFY(!first);
    QCOMPARE(m_controller->project()->name(), QString("Second"));
}

void tst_ProjectController::aRefusedCloseKeepsTheProject_data()
{
    QTest::addColumn<bool>("opens");

    QTest::newRow("new") << false;
    QTest::newRow("open") << true;
}

void tst_ProjectController::aRefusedCloseKeepsTheProject()
{
    QFETCH(bool, opens);
    m_controller->newProject("First");
    edit();
    recordEvents();

    if (opens)
        m_controller->openProject(path("a.tessaril"));
    else
        m_controller->newProject("Second");

    QCOMPARE(m_prompts, 1);
    QCOMPARE(m_events, QStringList());
    QCOMPARE(m_controller->project()->name(), QString("First"));
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectController::anEditMakesTheProjectDirty()
{
    m_controller->newProject("Rescue");
    const QPointer<Palette> palette = m_controller->project()->createPalette(CreateBlank, "Sky");
    QVERIFY(m_controller->isDirty());
    m_controller->markClean();
    QVERIFY(!m_controller->isDirty());

    palette->setWord(3, 0x1234);
    QVERIFY(m_controller->isDirty());
    palette->setWord(3, 0);
    QVERIFY(!m_controller->isDirty());
}

void tst_ProjectController::anUncleanUndoStackMakesTheProjectDirty()
{
    bool clean = true;
    m_controller->newProject("Rescue");
    m_controller->_isClean = [&clean] { return clean; };
    QVERIFY(!m_controller->isDirty());

    clean = false;
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectController::aChangeOfTheOpenTabsIsNoChange()
{
    m_controller->newProject("Rescue");

    m_controller->project()->setOpenDocuments({"{one}", "{two}"});

    QVERIFY(!m_controller->isDirty());
}

void tst_ProjectController::markCleanTakesTheDigestThenMarksTheStacks()
{
    m_controller->newProject("Rescue");
    edit();
    bool dirtyInside = true;
    m_controller->_markClean = [&] { dirtyInside = m_controller->isDirty(); };

    m_controller->markClean();

    QVERIFY(!dirtyInside);
}

void tst_ProjectController::closingDisconnectsTheProjectFirst()
{
    m_controller->newProject("Rescue");
    const QPointer<Project> project = m_controller->project();
    QSignalSpy made(project, &Project::paletteCreated);
    recordEvents();
    bool aliveWhenClosing = false;
    bool goneWhenClosed = false;
    connect(m_controller.get(), &ProjectController::projectClosing, this, [&] {
        aliveWhenClosing = project && m_controller->project() == project;
        project->createPalette(CreateBlank, "Unheard");
    });
    connect(m_controller.get(), &ProjectController::projectClosed, this,
            [&] { goneWhenClosed = !project && !m_controller->project(); });

    m_controller->close();

    QCOMPARE(m_events, QStringList({"projectClosing", "projectClosed"}));
    QCOMPARE(made.count(), 0);
    QVERIFY(aliveWhenClosing);
    QVERIFY(goneWhenClosed);
    QVERIFY(m_controller->store()->fileName().isEmpty());
}

void tst_ProjectController::closingWithoutAProjectDoesNothing()
{
    recordEvents();

    m_controller->close();

    QCOMPARE(m_events, QStringList());
}

void tst_ProjectController::openingEmitsRecordsAndCleansInThisOrder()
{
    openSaved();
    m_controller->newProject("Other");
    m_fileMenu->clearRecent();
    recordEvents();
    QStringList recentWhenOpened{"not asked"};
    QStringList recentWhenClean;
    connect(m_controller.get(), &ProjectController::projectOpened, this,
            [&] { recentWhenOpened = m_fileMenu->recent(); });
    m_controller->_markClean = [&] {
        m_events.append("markClean");
        recentWhenClean = m_fileMenu->recent();
    };

    m_controller->openProject(path("a.tessaril"));

    QCOMPARE(m_events,
             QStringList({"projectClosing", "projectClosed", "projectOpened", "markClean"}));
    QCOMPARE(recentWhenOpened, QStringList());
    QCOMPARE(recentWhenClean, QStringList(path("a.tessaril")));
    QCOMPARE(m_controller->project()->name(), QString("Rescue"));
    QCOMPARE(m_controller->store()->fileName(), path("a.tessaril"));
    QVERIFY(!m_controller->isDirty());
}

void tst_ProjectController::updatesAreFrozenWhileOpening()
{
    openSaved();
    QList<bool> frozen;
    connect(m_controller.get(), &ProjectController::projectClosed, this,
            [&] { frozen.append(!m_window->updatesEnabled()); });
    connect(m_controller.get(), &ProjectController::projectOpened, this,
            [&] { frozen.append(!m_window->updatesEnabled()); });
    m_controller->_markClean = [&] { frozen.append(!m_window->updatesEnabled()); };

    m_controller->openProject(path("a.tessaril"));

    QCOMPARE(frozen, QList<bool>({false, true, true}));
    QVERIFY(m_window->updatesEnabled());
}

void tst_ProjectController::openingADamagedFileLeavesNoProject_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("21 bytes") << QByteArray(21, 'x');
    QTest::newRow("no archive") << QByteArray(4000, 'x');
    QTest::newRow("empty") << QByteArray();
}

void tst_ProjectController::openingADamagedFileLeavesNoProject()
{
    QFETCH(QByteArray, content);
    QVERIFY(TestFiles::make(path("bad.tessaril"), content));
    openSaved();
    m_fileMenu->clearRecent();
    recordEvents();

    m_controller->openProject(path("bad.tessaril"));

    QCOMPARE(m_events,
             QStringList({"projectClosing", "projectClosed", "loadError Invalid project file"}));
    QVERIFY(!m_controller->project());
    QVERIFY(!m_controller->store()->project());
    QVERIFY(m_window->updatesEnabled());
    QVERIFY(m_fileMenu->recent().isEmpty());
    QVERIFY(m_controller->canClose());
}

void tst_ProjectController::openingIsRefusedByTheUser()
{
    openSaved();
    edit();

    m_controller->openProject(path("a.tessaril"));

    QCOMPARE(m_prompts, 1);
    QCOMPARE(m_controller->project()->palettes().size(), 1);
}

void tst_ProjectController::theWaitCursorShowsWhileFilesAreReadAndWritten()
{
    QStringList waited;
    const auto note = [&waited](const QString &what) {
        return [&waited, what] {
            const QCursor *cursor = QGuiApplication::overrideCursor();
            if (cursor && cursor->shape() == Qt::WaitCursor)
                waited.append(what);
        };
    };
    connect(m_controller->store(), &ProjectStore::projectLoad, this, note("read"));
    connect(m_controller->store(), &ProjectStore::showMessage, this, note("message"));
    connect(m_controller.get(), &ProjectController::saveFinished, this, note("saved"));
    connect(m_controller.get(), &ProjectController::projectOpened, this, note("opened"));

    openSaved();
    QCOMPARE(waited, QStringList("message"));
    m_controller->openProject(path("a.tessaril"));
    QCOMPARE(waited, QStringList({"message", "read", "message"}));
    QVERIFY(!QGuiApplication::overrideCursor());
}

QTEST_MAIN(tst_ProjectController)
#include "tst_ProjectController.moc"
