#pragma once

#include <QDialog>

class QLabel;
class QVBoxLayout;

/// The program's name, version and links, and the state of the check for updates.
///
/// Each opening asks for a check.
class About : public QDialog
{
    Q_OBJECT

public:
    explicit About(QWidget *parent = nullptr);

public slots:
    /// What the line above the buttons says, as plain text.
    void setUpdateStatus(const QString &text);

signals:
    void checkForUpdates();

protected:
    void showEvent(QShowEvent *event) override;

private slots:
    void startCheck();
    void showLicence();

private:
    void addCentred(QVBoxLayout *layout, QLabel *label);
    QLabel *makeLinks();
    QWidget *makeButtons();

    QLabel *m_links = nullptr;
    QLabel *m_updateStatus;
};
