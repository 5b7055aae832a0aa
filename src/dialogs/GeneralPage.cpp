#include "dialogs/GeneralPage.h"

#include "uikit/ThemedIcon.h"

#include <QCheckBox>
#include <QComboBox>

namespace {

const QString BackupOnSaveKey = QStringLiteral("backupOnSave");
const QString VersionCheckEnabledKey = QStringLiteral("versionCheckEnabled");
const QString UpdateIntervalKey = QStringLiteral("updateInterval");
const QString SkippedVersionKey = QStringLiteral("skippedVersion");
const QString LastUpdateCheckKey = QStringLiteral("lastUpdateCheck");

const QString DefaultInterval = QStringLiteral("weekly");

} // namespace

GeneralPage::GeneralPage(QWidget *parent)
    : BasePreferencesPage(tr("General"), themedIcon(QStringLiteral(":/tb-new-file")), parent)
    , m_backupOnSave(new QCheckBox)
    , m_versionCheckEnabled(new QCheckBox)
    , m_updateInterval(new QComboBox)
{
    m_backupOnSave->setChecked(true);
    m_versionCheckEnabled->setChecked(true);
    m_updateInterval->addItem(tr("Daily"), QStringLiteral("daily"));
    m_updateInterval->addItem(tr("Weekly"), DefaultInterval);
    m_updateInterval->addItem(tr("Monthly"), QStringLiteral("monthly"));
    selectInterval(DefaultInterval);
    connect(m_versionCheckEnabled, &QCheckBox::toggled, m_updateInterval, &QWidget::setEnabled);

    addHeader(tr("General Settings"));
    addRow(tr("Create a backup when saving"), m_backupOnSave);
    addHeader(tr("Updates"));
    addRow(tr("Check for updates on startup"), m_versionCheckEnabled);
    addRow(tr("Check frequency"), m_updateInterval);
}

bool GeneralPage::backupOnSave() const
{
    return m_backupOnSave->isChecked();
}

bool GeneralPage::versionCheckEnabled() const
{
    return m_versionCheckEnabled->isChecked();
}

QString GeneralPage::updateInterval() const
{
    return m_updateInterval->currentData().toString();
}

void GeneralPage::selectInterval(const QString &interval)
{
    const int index = m_updateInterval->findData(interval);
    m_updateInterval->setCurrentIndex(index >= 0 ? index
                                                 : m_updateInterval->findData(DefaultInterval));
}

QJsonObject GeneralPage::toJson() const
{
    return {
        {BackupOnSaveKey, backupOnSave()},       {VersionCheckEnabledKey, versionCheckEnabled()},
        {UpdateIntervalKey, updateInterval()},   {SkippedVersionKey, m_skippedVersion},
        {LastUpdateCheckKey, m_lastUpdateCheck},
    };
}

void GeneralPage::fromJson(const QJsonObject &values)
{
    m_backupOnSave->setChecked(values[BackupOnSaveKey].toBool(true));
    m_versionCheckEnabled->setChecked(values[VersionCheckEnabledKey].toBool(true));
    selectInterval(values[UpdateIntervalKey].toString(DefaultInterval));
    m_skippedVersion = values[SkippedVersionKey].toString();
    m_lastUpdateCheck = values[LastUpdateCheckKey].toString();
}
