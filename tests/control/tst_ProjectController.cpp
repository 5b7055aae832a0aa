#include "control/ProjectController.h"
#include "menus/FileMenu.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "support/Boxes.h"
#include "support/FileDialogs.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

class tst_ProjectController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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
    void savingWithoutAProjectDoesNothing();
    void savingANewProjectAsksForTheFile();
    void cancellingTheFileDialogKeepsTheProjectDirty();
    void aFailedFirstSaveForgetsTheFile();
    void savingAgainKeepsABackupIfWanted_data();
    void savingAgainKeepsABackupIfWanted();
    void aFailedSaveKeepsTheFileNameAndTheDirt();
    void saveAsMovesToTheNewFileWithoutABackup();
    void aCancelledSaveAsChangesNothing();
    void aFailedSaveAsRestoresTheFileName();
    void aCleanProjectMayClose();
    void thePromptNamesTheProject();
    void thePromptTakesNoNameForMarkup();
    void thePromptAnswers_data();
    void thePromptAnswers();
    void closingWithSaveButACancelledFileDialogIsRefused();
    void closingWithSaveButAFailedSaveIsRefused();
    void theSaveDialogAsksForAProjectFile();
    void theSaveDialogOffersTheNameOfTheProject();

private:
    QString path(const char *name) const { return m_folder->filePath(name); }
    /// An open project that is saved to "a.tessaril" and clean.
    void openSaved();
    void edit();
    void recordEvents();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<FileMenu> m_fileMenu;
    std::unique_ptr<ProjectController> m_controller;
    QStringList m_events;
    int m_prompts = 0;
};

void tst_ProjectController::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<QWidget>();
    m_fileMenu = std::make_unique<FileMenu>(m_window.get());
    m_controller = std::make_unique<ProjectController>(m_window.get(), m_fileMenu.get());
    m_controller->_savePath = [] { return QString(); };
    m_events.clear();
    m_prompts = 0;
    m_controller->_unsavedPrompt = [this](const QString &) {
        ++m_prompts;
        return int(ProjectController::CancelClosing);
    };
}

void tst_ProjectController::cleanup()
{
    m_controller.reset();
    m_fileMenu.reset();
    m_window.reset();
}

void tst_ProjectController::openSaved()
{
    m_controller->newProject("Rescue");
    m_controller->_savePath = [this] { return path("a.tessaril"); };
    m_controller->save();
    m_controller->_savePath = [] { return QString(); };
    QVERIFY(!m_controller->isDirty());
}

void tst_ProjectController::edit()
{
    m_controller->project()->createPalette(CreateBlank, "Sky");
}

void tst_ProjectController::recordEvents()
{
    const auto record = [this](const QString &event) {
        return [this, event] { m_events.append(event); };
    };
    const ProjectController *controller = m_controller.get();
    connect(controller, &ProjectController::aboutToSave, this, record("aboutToSave"));
    connect(controller, &ProjectController::saveFinished, this, record("saveFinished"));
    connect(controller, &ProjectController::projectOpened, this, record("projectOpened"));
    connect(controller, &ProjectController::projectClosing, this, record("projectClosing"));
    connect(controller, &ProjectController::projectClosed, this, record("projectClosed"));
    connect(controller, &ProjectController::error, this, record("error"));
    connect(m_controller->store(), &ProjectStore::loadError, this,
            [this](const QString &text) { m_events.append("loadError " + text); });
    connect(m_controller->store(), &ProjectStore::saveError, this,
            [this](const QString &text) { m_events.append("saveError " + text); });
    m_controller->_markClean = record("markClean");
}

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

void tst_ProjectController::savingWithoutAProjectDoesNothing()
{
    recordEvents();

    m_controller->save();
    m_controller->saveAs();

    QCOMPARE(m_events, QStringList());
}

void tst_ProjectController::savingANewProjectAsksForTheFile()
{
    m_controller->newProject("Rescue");
    edit();
    recordEvents();
    m_controller->_savePath = [this] {
        m_events.append("path");
        return path("a.tessaril");
    };

    m_controller->save();

    QCOMPARE(m_events, QStringList({"aboutToSave", "path", "markClean", "saveFinished"}));
    QVERIFY(QFile::exists(path("a.tessaril")));
    QVERIFY(!QFile::exists(path("a.tessaril.bak")));
    QCOMPARE(m_fileMenu->recent(), QStringList(path("a.tessaril")));
    QCOMPARE(m_controller->store()->fileName(), path("a.tessaril"));
    QVERIFY(!m_controller->isDirty());
}

void tst_ProjectController::cancellingTheFileDialogKeepsTheProjectDirty()
{
    m_controller->newProject("Rescue");
    edit();
    recordEvents();

    m_controller->save();

    QCOMPARE(m_events, QStringList({"aboutToSave", "saveFinished"}));
    QVERIFY(m_controller->store()->fileName().isEmpty());
    QVERIFY(m_controller->isDirty());
    QVERIFY(m_fileMenu->recent().isEmpty());
}

void tst_ProjectController::aFailedFirstSaveForgetsTheFile()
{
    m_controller->newProject("Rescue");
    edit();
    recordEvents();
    m_controller->_savePath = [this] { return path("missing/a.tessaril"); };

    m_controller->save();

    QCOMPARE(m_events, QStringList({"aboutToSave", "saveError Could not create the project file",
                                    "saveFinished"}));
    QVERIFY(m_controller->store()->fileName().isEmpty());
    QVERIFY(m_controller->isDirty());
    QVERIFY(m_fileMenu->recent().isEmpty());
    QCOMPARE(m_controller->project()->palettes().size(), 1);
}

void tst_ProjectController::savingAgainKeepsABackupIfWanted_data()
{
    QTest::addColumn<bool>("wanted");

    QTest::newRow("wanted") << true;
    QTest::newRow("not wanted") << false;
}

void tst_ProjectController::savingAgainKeepsABackupIfWanted()
{
    QFETCH(bool, wanted);
    openSaved();
    const QByteArray before = TestFiles::contents(path("a.tessaril"));
    edit();
    recordEvents();
    m_controller->_backupOnSave = [wanted] { return wanted; };

    m_controller->save();

    QCOMPARE(m_events, QStringList({"aboutToSave", "markClean", "saveFinished"}));
    QCOMPARE(QFile::exists(path("a.tessaril.bak")), wanted);
    if (wanted)
        QCOMPARE(TestFiles::contents(path("a.tessaril.bak")), before);
    QVERIFY(TestFiles::contents(path("a.tessaril")) != before);
    QVERIFY(!m_controller->isDirty());
}

void tst_ProjectController::aFailedSaveKeepsTheFileNameAndTheDirt()
{
    openSaved();
    edit();
    recordEvents();
    m_controller->store()->setFileName(path("missing/a.tessaril"));

    m_controller->save();

    QCOMPARE(m_events, QStringList({"aboutToSave", "saveError Could not create the project file",
                                    "saveFinished"}));
    QCOMPARE(m_controller->store()->fileName(), path("missing/a.tessaril"));
    QVERIFY(m_controller->isDirty());
    QCOMPARE(m_controller->project()->palettes().size(), 1);
}

void tst_ProjectController::saveAsMovesToTheNewFileWithoutABackup()
{
    openSaved();
    const QByteArray before = TestFiles::contents(path("a.tessaril"));
    edit();
    recordEvents();
    m_controller->_savePath = [this] { return path("b.tessaril"); };

    m_controller->saveAs();

    QCOMPARE(m_events, QStringList({"aboutToSave", "markClean", "saveFinished"}));
    QCOMPARE(m_controller->store()->fileName(), path("b.tessaril"));
    QCOMPARE(TestFiles::contents(path("a.tessaril")), before);
    QVERIFY(QFile::exists(path("b.tessaril")));
    QVERIFY(!QFile::exists(path("b.tessaril.bak")));
    QCOMPARE(m_fileMenu->recent(), QStringList({path("b.tessaril"), path("a.tessaril")}));
}

void tst_ProjectController::aCancelledSaveAsChangesNothing()
{
    openSaved();
    edit();
    recordEvents();

    m_controller->saveAs();

    QCOMPARE(m_events, QStringList({"aboutToSave", "saveFinished"}));
    QCOMPARE(m_controller->store()->fileName(), path("a.tessaril"));
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectController::aFailedSaveAsRestoresTheFileName()
{
    openSaved();
    edit();
    recordEvents();
    m_controller->_savePath = [this] { return path("missing/b.tessaril"); };

    m_controller->saveAs();

    QCOMPARE(m_events, QStringList({"aboutToSave", "saveError Could not create the project file",
                                    "saveFinished"}));
    QCOMPARE(m_controller->store()->fileName(), path("a.tessaril"));
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectController::aCleanProjectMayClose()
{
    m_controller->newProject("Rescue");

    QVERIFY(m_controller->canClose());
    QCOMPARE(m_prompts, 0);
}

void tst_ProjectController::thePromptNamesTheProject()
{
    const ProjectController other(m_window.get(), m_fileMenu.get());
    m_controller->_unsavedPrompt = other._unsavedPrompt;
    m_controller->newProject("Rescue");
    edit();
    const Boxes boxes(QMessageBox::Cancel);

    QVERIFY(!m_controller->canClose());

    QCOMPARE(boxes.texts(),
             QStringList("Unsaved Changes: Save the changes to Rescue before closing it?"));
    QCOMPARE(boxes.buttons().first(),
             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    QCOMPARE(boxes.defaults().first(), QMessageBox::Save);
}

void tst_ProjectController::thePromptTakesNoNameForMarkup()
{
    const ProjectController fresh(m_window.get(), m_fileMenu.get());
    Qt::TextFormat format = Qt::AutoText;
    QString shown;
    QTimer::singleShot(0, m_window.get(), [&format, &shown] {
        auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        format = box->textFormat();
        shown = box->text();
        box->close();
    });

    QCOMPARE(fresh._unsavedPrompt("<h1>Rescue</h1>"), 2);

    QCOMPARE(format, Qt::PlainText);
    QCOMPARE(shown, QString("Save the changes to <h1>Rescue</h1> before closing it?"));
}

void tst_ProjectController::thePromptAnswers_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<int>("result");

    QTest::newRow("Save") << QMessageBox::Save << 0;
    QTest::newRow("Discard") << QMessageBox::Discard << 1;
    QTest::newRow("Cancel") << QMessageBox::Cancel << 2;
    QTest::newRow("closed") << QMessageBox::NoButton << 2;
}

void tst_ProjectController::thePromptAnswers()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(int, result);
    const ProjectController fresh(m_window.get(), m_fileMenu.get());
    const Boxes boxes(button);

    QCOMPARE(fresh._unsavedPrompt("Rescue"), result);

    m_controller->newProject("Rescue");
    edit();
    m_controller->_unsavedPrompt = [result](const QString &) { return result; };
    m_controller->_savePath = [this] { return path("a.tessaril"); };
    QCOMPARE(m_controller->canClose(), result != 2);
    QCOMPARE(m_controller->isDirty(), result != 0);
    QVERIFY(m_controller->project());
}

void tst_ProjectController::closingWithSaveButACancelledFileDialogIsRefused()
{
    m_controller->newProject("Rescue");
    edit();
    m_controller->_unsavedPrompt = [](const QString &) { return 0; };

    QVERIFY(!m_controller->canClose());

    QVERIFY(m_controller->project());
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectController::closingWithSaveButAFailedSaveIsRefused()
{
    openSaved();
    edit();
    m_controller->_unsavedPrompt = [](const QString &) { return 0; };
    m_controller->store()->setFileName(path("missing/a.tessaril"));

    QVERIFY(!m_controller->canClose());

    QVERIFY(m_controller->isDirty());
}

void tst_ProjectController::theSaveDialogAsksForAProjectFile()
{
    ProjectController controller(m_window.get(), m_fileMenu.get());
    controller.newProject("Rescue");
    QTimer::singleShot(0, this, [this] {
        QFileDialog *dialog = FileDialogs::visible();
        QCOMPARE(dialog->windowTitle(), QString("Save project"));
        QCOMPARE(dialog->nameFilters(), QStringList("Project file (*.tessaril)"));
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog->defaultSuffix(), QString("tessaril"));
        FileDialogs::choose(dialog, path("typed"));
    });

    controller.save();
    QCOMPARE(controller.store()->fileName(), path("typed.tessaril"));

    QTimer::singleShot(0, this, [] { FileDialogs::cancel(FileDialogs::visible()); });
    controller.saveAs();
    QCOMPARE(controller.store()->fileName(), path("typed.tessaril"));
}

void tst_ProjectController::theSaveDialogOffersTheNameOfTheProject()
{
    ProjectController controller(m_window.get(), m_fileMenu.get());
    QStringList offered;
    const auto answer = [this, &offered](const QString &typed) {
        QTimer::singleShot(0, this, [&offered, typed] {
            QFileDialog *const dialog = FileDialogs::visible();
            const auto *const name = dialog->findChild<QLineEdit *>("fileNameEdit");
            offered += QFileInfo(name->text()).fileName();
            if (typed.isEmpty())
                FileDialogs::cancel(dialog);
            else
                FileDialogs::choose(dialog, typed);
        });
    };

    controller.newProject("Day/Night");
    answer(path("typed"));
    controller.save();
    answer({});
    controller.saveAs();
    controller.newProject("Rescue");
    answer({});
    controller.save();

    QCOMPARE(offered, QStringList({"Day_Night", "typed.tessaril", "Rescue"}));
}

QTEST_MAIN(tst_ProjectController)
#include "tst_ProjectController.moc"
