#pragma once

#include "control/ProjectController.h"
#include "menus/FileMenu.h"
#include "model/Project.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The base of the tests of a project controller: a controller over a bare window and a folder of
/// its own, which asks nobody. Its prompt cancels and is counted, its file dialog names no file.
class ControllerTest : public QObject
{
protected:
    void setUp();
    void tearDown();

    QString path(const char *name) const { return m_folder->filePath(name); }
    /// An open project "Rescue" that is saved to "a.tessaril" and clean.
    void openSaved();
    void edit() { m_controller->project()->createPalette(CreateBlank, "Sky"); }
    /// Lets m_events grow by the name of each signal that follows, and by "markClean".
    void recordEvents();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<FileMenu> m_fileMenu;
    std::unique_ptr<ProjectController> m_controller;
    QStringList m_events;
    int m_prompts = 0;
};

inline void ControllerTest::setUp()
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

inline void ControllerTest::tearDown()
{
    m_controller.reset();
    m_fileMenu.reset();
    m_window.reset();
}

inline void ControllerTest::openSaved()
{
    m_controller->newProject("Rescue");
    m_controller->_savePath = [this] { return path("a.tessaril"); };
    m_controller->save();
    m_controller->_savePath = [] { return QString(); };
    QVERIFY(!m_controller->isDirty());
}

inline void ControllerTest::recordEvents()
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
