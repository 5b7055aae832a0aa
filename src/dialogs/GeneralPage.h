#pragma once

#include "dialogs/BasePreferencesPage.h"

class QCheckBox;
class QComboBox;

/// The general preferences, and the two values of the update check that no widget shows.
class GeneralPage : public BasePreferencesPage
{
    Q_OBJECT

public:
    explicit GeneralPage(QWidget *parent = nullptr);

    bool backupOnSave() const;
    bool versionCheckEnabled() const;
    /// "daily", "weekly" or "monthly".
    QString updateInterval() const;

    /// The version that the user chose to skip, or empty.
    QString skippedVersion() const { return m_skippedVersion; }
    void setSkippedVersion(const QString &version) { m_skippedVersion = version; }
    /// The ISO date (UTC) of the last completed check, or empty.
    QString lastUpdateCheck() const { return m_lastUpdateCheck; }
    void setLastUpdateCheck(const QString &date) { m_lastUpdateCheck = date; }

private:
    void selectInterval(const QString &interval);

    QCheckBox *m_backupOnSave;
    QCheckBox *m_versionCheckEnabled;
    QComboBox *m_updateInterval;
    QString m_skippedVersion;
    QString m_lastUpdateCheck;

public:
    QJsonObject toJson() const override;
    void fromJson(const QJsonObject &values) override;
};
