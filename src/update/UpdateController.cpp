#include "update/UpdateController.h"

#include "dialogs/GeneralPage.h"
#include "update/UpdateDecision.h"

#include <QDateTime>

#include <chrono>

namespace {

// The network's own start, a sixth of the program's, would delay the first paint.
constexpr std::chrono::milliseconds StartPause(200);

} // namespace

UpdateController::UpdateController(GeneralPage *page, const Update::Build &build,
                                   std::function<void()> persist, QObject *parent)
    : QObject(parent)
    , m_page(page)
    , m_build(build)
    , m_persist(std::move(persist))
    , m_today([] { return QDateTime::currentDateTimeUtc().date(); })
    , m_checker(build.version)
{
    qRegisterMetaType<Update::Release>();
    m_startPause.setSingleShot(true);
    m_startPause.setInterval(StartPause);
    connect(&m_startPause, &QTimer::timeout, this, &UpdateController::fetch);
    connect(&m_checker, &Update::UpdateChecker::fetched, this, &UpdateController::evaluate);
    connect(&m_checker, &Update::UpdateChecker::failed, this,
            [this](const QString &error) { emit checkFailed(error, origin); });
}

void UpdateController::checkAtStart()
{
    const QDate today = m_today();
    if (!m_page->versionCheckEnabled())
        return;
    if (!Update::isCheckDue(m_page->lastUpdateCheck(), m_page->updateInterval(), today))
        return;
    origin = Origin::StartUp;
    m_startPause.start();
}

void UpdateController::fetch()
{
    m_startPause.stop();
    m_checker.fetch();
}

void UpdateController::skipVersion(QString version)
{
    m_page->setSkippedVersion(version);
    m_persist();
}

void UpdateController::evaluate(const QByteArray &feed)
{
    // Before anything is read from it: a damaged feed is a completed check too.
    m_page->setLastUpdateCheck(m_today().toString(Qt::ISODate));
    m_persist();

    const auto release = Update::releaseOf(feed);
    if (release && Update::isOffer(*release, m_build, m_page->skippedVersion()))
        emit updateAvailable(*release, origin);
    else
        emit upToDate(origin);
}
