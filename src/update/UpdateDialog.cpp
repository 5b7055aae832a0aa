#include "update/UpdateDialog.h"

#include <QBoxLayout>
#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

namespace {

/// A feed may name any address, but only web pages are opened.
bool isWebAddress(const QString &address)
{
    const QUrl url(address, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

QLabel *plainLabel(const QString &name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

UpdateDialog::UpdateDialog(QWidget *parent)
    : QDialog(parent)
    , m_opener([](const QUrl &url) { QDesktopServices::openUrl(url); })
    , m_heading(plainLabel(QStringLiteral("heading"), this))
    , m_detail(plainLabel(QStringLiteral("detail"), this))
    , m_releaseNotes(addButton(QStringLiteral("releaseNotes"), tr("Release Notes…")))
    , m_download(addButton(QStringLiteral("download"), tr("Download…")))
{
    setWindowTitle(tr("Tessaril — update available"));
    setModal(true);
    setMinimumWidth(420);
    QFont font = m_heading->font();
    font.setWeight(QFont::Bold);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    m_heading->setFont(font);

    QPushButton *const skipButton = addButton(QStringLiteral("skip"), tr("Skip This Version"));
    QPushButton *const later = addButton(QStringLiteral("later"), tr("Later"));
    later->setDefault(true);

    auto *links = new QHBoxLayout;
    links->addWidget(m_releaseNotes);
    links->addWidget(m_download);
    links->addStretch();
    auto *answers = new QHBoxLayout;
    answers->addStretch();
    answers->addWidget(skipButton);
    answers->addWidget(later);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_heading);
    layout->addWidget(m_detail);
    layout->addLayout(links);
    layout->addStretch();
    layout->addLayout(answers);

    connect(m_releaseNotes, &QPushButton::clicked, this,
            [this] { m_opener(QUrl(m_release.notes)); });
    connect(m_download, &QPushButton::clicked, this,
            [this] { m_opener(QUrl(m_release.downloads)); });
    connect(skipButton, &QPushButton::clicked, this, &UpdateDialog::skip);
    connect(later, &QPushButton::clicked, this, &UpdateDialog::reject);
}

void UpdateDialog::showRelease(const Update::Release &release, const Update::Build &build)
{
    m_release = release;
    m_heading->setText(tr("Tessaril %1 is available").arg(release.version));
    m_detail->setText(tr("You have %1 (built %2).\nThe new version was released %3.")
                          .arg(build.version, build.date, release.released));
    m_releaseNotes->setEnabled(isWebAddress(release.notes));
    m_download->setEnabled(isWebAddress(release.downloads));
    open();
}

QPushButton *UpdateDialog::addButton(const QString &name, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

void UpdateDialog::skip()
{
    emit skipVersion(m_release.version);
    reject();
}
