#include "uikit/Expandable.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int Spacing = 2; // pixels

} // namespace

Expandable::Expandable(const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
    , m_header(new QToolButton)
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(Spacing);
    m_layout->addWidget(m_header);

    m_header->setObjectName(QStringLiteral("expandableHeader"));
    m_header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_header->setArrowType(Qt::RightArrow);
    m_header->setCheckable(true);
    m_header->setAutoRaise(true);
    m_header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_header->setText(title);
    connect(m_header, &QToolButton::toggled, this,
            [this](bool checked) { checked ? expand() : collapse(); });
}

QString Expandable::title() const
{
    return m_header->text();
}

void Expandable::setContent(QWidget *content)
{
    if (content != m_content) {
        delete m_content;
        m_content = content;
        if (m_content)
            m_layout->addWidget(m_content);
    }
    showState();
}

bool Expandable::isExpanded() const
{
    return m_header->isChecked();
}

void Expandable::expand()
{
    m_header->setChecked(true);
    showState();
}

void Expandable::collapse()
{
    m_header->setChecked(false);
    showState();
}

void Expandable::showState()
{
    m_header->setArrowType(isExpanded() ? Qt::DownArrow : Qt::RightArrow);
    if (m_content)
        m_content->setVisible(isExpanded());
}
