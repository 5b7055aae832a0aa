#include "dialogs/MessageDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace {

constexpr int LeastWidth = 300;      // pixels
constexpr int MaxMessageWidth = 300; // pixels
constexpr QMargins Margins{5, 10, 5, 5};
constexpr int MaxLetters = 2000;

/// A name in the message can be of any length, and the box must fit on the screen.
QString shortened(const QString &text)
{
    return text.size() <= MaxLetters ? text : text.left(MaxLetters) + QChar(u'…');
}

} // namespace

MessageDialog::MessageDialog(QWidget *parent)
    : QDialog(parent)
    , m_icon(new QLabel)
    , m_heading(new QLabel)
    , m_message(new QLabel)
    , m_buttons(new QDialogButtonBox)
{
    setModal(true);
    setContentsMargins(Margins);
    setMinimumWidth(LeastWidth);
    m_heading->setTextFormat(Qt::RichText);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_message->setWordWrap(true);
    m_message->setMaximumWidth(MaxMessageWidth);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto *layout = new QGridLayout(this);
    layout->addWidget(m_icon, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(m_heading, 0, 1);
    layout->addWidget(m_message, 1, 1);
    layout->addWidget(m_buttons, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(1, 1);
}

void MessageDialog::showMessage(const QString &title, const QString &text)
{
    const int iconSide = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    const QIcon icon = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
    m_icon->setPixmap(icon.pixmap(QSize(iconSide, iconSide), devicePixelRatioF()));
    setWindowTitle(title);
    m_heading->setText(QStringLiteral("<h2>%1</h2>").arg(title.toHtmlEscaped()));
    m_message->setText(shortened(text));
    m_buttons->setStandardButtons(QDialogButtonBox::Ok);
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("Ok"));
    m_buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    adjustSize();
    open();
}
