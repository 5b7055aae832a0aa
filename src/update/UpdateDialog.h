#pragma once

#include "update/Release.h"

#include <QDialog>

#include <functional>

class QLabel;
class QPushButton;
class QUrl;

/// Tells of a newer release and opens its pages in the browser.
class UpdateDialog : public QDialog
{
    Q_OBJECT

public:
    using Opener = std::function<void(const QUrl &)>;

    explicit UpdateDialog(QWidget *parent = nullptr);

    /// Shows what @p release offers to the user of @p build. Addresses that are neither http nor
    /// https count as missing.
    void showRelease(const Update::Release &release, const Update::Build &build);

    /// Replaces the desktop's browser as what opens an address.
    void setOpener(Opener opener) { m_opener = std::move(opener); }

signals:
    void skipVersion(QString version);

private:
    QPushButton *addButton(const QString &name, const QString &text);
    void skip();

    Update::Release m_release;
    Opener m_opener;
    QLabel *m_heading;
    QLabel *m_detail;
    QPushButton *m_releaseNotes;
    QPushButton *m_download;
};
