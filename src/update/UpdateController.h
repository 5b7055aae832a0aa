#pragma once

#include "update/Release.h"
#include "update/UpdateChecker.h"

#include <QDate>
#include <QObject>
#include <QTimer>

#include <functional>

class GeneralPage;

/// Decides when to look for a release and what the answer means.
///
/// The date of the last check and the version to skip live in the general preference page, which
/// the controller reads and writes but does not own.
class UpdateController : public QObject
{
    Q_OBJECT

public:
    /// Who asked for the running check.
    enum class Origin {
        StartUp = 0, ///< silent unless a release is available
        Menu = 1,    ///< also says "up to date" and errors
        About = 2    ///< only the About dialog's status line
    };
    Q_ENUM(Origin)

    /// @p persist writes the preferences; @p page must outlive the controller.
    UpdateController(GeneralPage *page, const Update::Build &build, std::function<void()> persist,
                     QObject *parent = nullptr);

    /// Set by the caller before fetch().
    Origin origin = Origin::StartUp;

    Update::UpdateChecker &checker() { return m_checker; }
    /// Replaces the clock, which is the UTC date.
    void setToday(std::function<QDate()> today) { m_today = std::move(today); }

    /// Takes origin StartUp and fetches if the preferences ask for a check and one is due. The
    /// request waits for a moment, so that the first paint of the window does not; whoever fetches
    /// meanwhile replaces it.
    void checkAtStart();
    bool isStartCheckWaiting() const { return m_startPause.isActive(); }
    void fetch();

signals:
    void updateAvailable(Update::Release release, UpdateController::Origin origin);
    void upToDate(UpdateController::Origin origin);
    void checkFailed(QString error, UpdateController::Origin origin);

public slots:
    /// Never offers @p version again, and persists that.
    void skipVersion(QString version);

private:
    void evaluate(const QByteArray &feed);

    GeneralPage *m_page;
    Update::Build m_build;
    std::function<void()> m_persist;
    std::function<QDate()> m_today;
    Update::UpdateChecker m_checker;
    QTimer m_startPause;
};
