#include "control/ControllerTest.h"
#include "support/Boxes.h"
#include "support/FileDialogs.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

/// Where a project is saved to, and what is asked before one closes.
class tst_ProjectSaving : public ControllerTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
};

void tst_ProjectSaving::savingWithoutAProjectDoesNothing()
{
    recordEvents();

    m_controller->save();
    m_controller->saveAs();

    QCOMPARE(m_events, QStringList());
}

void tst_ProjectSaving::savingANewProjectAsksForTheFile()
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

void tst_ProjectSaving::cancellingTheFileDialogKeepsTheProjectDirty()
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

void tst_ProjectSaving::aFailedFirstSaveForgetsTheFile()
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

void tst_ProjectSaving::savingAgainKeepsABackupIfWanted_data()
{
    QTest::addColumn<bool>("wanted");

    QTest::newRow("wanted") << true;
    QTest::newRow("not wanted") << false;
}

void tst_ProjectSaving::savingAgainKeepsABackupIfWanted()
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

void tst_ProjectSaving::aFailedSaveKeepsTheFileNameAndTheDirt()
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

void tst_ProjectSaving::saveAsMovesToTheNewFileWithoutABackup()
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

void tst_ProjectSaving::aCancelledSaveAsChangesNothing()
{
    openSaved();
    edit();
    recordEvents();

    m_controller->saveAs();

    QCOMPARE(m_events, QStringList({"aboutToSave", "saveFinished"}));
    QCOMPARE(m_controller->store()->fileName(), path("a.tessaril"));
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectSaving::aFailedSaveAsRestoresTheFileName()
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

void tst_ProjectSaving::aCleanProjectMayClose()
{
    m_controller->newProject("Rescue");

    QVERIFY(m_controller->canClose());
    QCOMPARE(m_prompts, 0);
}

void tst_ProjectSaving::thePromptNamesTheProject()
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

void tst_ProjectSaving::thePromptTakesNoNameForMarkup()
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

void tst_ProjectSaving::thePromptAnswers_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<int>("result");

    QTest::newRow("Save") << QMessageBox::Save << 0;
    QTest::newRow("Discard") << QMessageBox::Discard << 1;
    QTest::newRow("Cancel") << QMessageBox::Cancel << 2;
    QTest::newRow("closed") << QMessageBox::NoButton << 2;
}

void tst_ProjectSaving::thePromptAnswers()
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

void tst_ProjectSaving::closingWithSaveButACancelledFileDialogIsRefused()
{
    m_controller->newProject("Rescue");
    edit();
    m_controller->_unsavedPrompt = [](const QString &) { return 0; };

    QVERIFY(!m_controller->canClose());

    QVERIFY(m_controller->project());
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectSaving::closingWithSaveButAFailedSaveIsRefused()
{
    openSaved();
    edit();
    m_controller->_unsavedPrompt = [](const QString &) { return 0; };
    m_controller->store()->setFileName(path("missing/a.tessaril"));

    QVERIFY(!m_controller->canClose());

    QVERIFY(m_controller->isDirty());
}

void tst_ProjectSaving::theSaveDialogAsksForAProjectFile()
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

void tst_ProjectSaving::theSaveDialogOffersTheNameOfTheProject()
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

QTEST_MAIN(tst_ProjectSaving)
#include "tst_ProjectSaving.moc"
