#include "dialogs/About.h"

#include "dialogs/LicenceDialog.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace {

constexpr int StatusHeight = 20; // pixels

QString versionText()
{
    return QStringLiteral("%1 v%2 - Qt %3")
        .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion(),
             QString::fromLatin1(qVersion()));
}

} // namespace

About::About(QWidget *parent)
    : QDialog(parent)
    , m_updateStatus(new QLabel)
{
    setWindowTitle(tr("About"));
    setModal(true);
    auto *logo = new QLabel(QStringLiteral("<img src=:/Logo/>"));
    logo->setTextFormat(Qt::RichText);
    logo->setAccessibleName(QCoreApplication::applicationName());
    auto *version = new QLabel(versionText());
    version->setTextFormat(Qt::PlainText);
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_updateStatus->setObjectName(QStringLiteral("updateStatus"));
    m_updateStatus->setTextFormat(Qt::PlainText);
    m_updateStatus->setFixedHeight(StatusHeight);

    auto *layout = new QVBoxLayout(this);
    for (QLabel *label : {logo, version, makeLinks(), m_updateStatus})
        addCentred(layout, label);
    layout->addWidget(makeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void About::addCentred(QVBoxLayout *layout, QLabel *label)
{
    label->setAlignment(Qt::AlignCenter);
    layout->addWidget(label);
}

QLabel *About::makeLinks()
{
    m_links = new QLabel(
        QStringLiteral("<a href=\"%1\">%2</a>")
            .arg(QStringLiteral(TESSARIL_WEB_ADDRESS "/changelog"), tr("View Changelog")));
    m_links->setTextFormat(Qt::RichText);
    m_links->setOpenExternalLinks(true);
    return m_links;
}

QWidget *About::makeButtons()
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    QPushButton *const ok = buttons->button(QDialogButtonBox::Ok);
    ok->setText(tr("Ok"));
    auto *check = buttons->addButton(tr("Check for Updates"), QDialogButtonBox::ActionRole);
    check->setObjectName(QStringLiteral("checkForUpdates"));
    auto *licence = buttons->addButton(tr("Licence"), QDialogButtonBox::HelpRole);
    ok->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &About::accept);
    connect(check, &QPushButton::clicked, this, &About::startCheck);
    connect(licence, &QPushButton::clicked, this, &About::showLicence);
    return buttons;
}

void About::setUpdateStatus(const QString &text)
{
    m_updateStatus->setText(text);
}

void About::startCheck()
{
    setUpdateStatus(tr("Checking for updates…"));
    emit checkForUpdates();
}

void About::showLicence()
{
    auto *dialog = new LicenceDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void About::showEvent(QShowEvent *event)
{
    if (!event->spontaneous()) {
        // A link takes its colour when the text is set, and the theme may be another since.
        const QString link = m_links->text();
        m_links->clear();
        m_links->setText(link);
        startCheck();
    }
    QDialog::showEvent(event);
}
