#pragma once

#include <QMenu>
#include <QPointer>

class About;

/// The About dialog and the question for a new version.
class HelpMenu : public QMenu
{
    Q_OBJECT

public:
    explicit HelpMenu(QWidget *parent = nullptr);

    /// The About dialog, made when it is first asked for.
    About *about();
    /// What the About dialog tells about updates, also when it is made later.
    void setUpdateStatus(const QString &text);
    /// The item starts disabled: whoever carries out the check turns it on.
    void setUpdateCheckEnabled(bool enabled);

signals:
    /// The user asks by the menu.
    void checkForUpdates();
    /// The About dialog asks, as it opens or by its button.
    void checkFromAbout();

public slots:
    void displayAbout();

private:
    QAction *m_checkAction;
    QPointer<About> m_about;
    QString m_updateStatus;
};
