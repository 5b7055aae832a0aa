#include "uikit/DockWidget.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

namespace {

constexpr int PlaceholderPage = 0;
constexpr int ContentPage = 1;
constexpr int LowHeight = 400; // pixels, which a dock mostly has

/// Asks for room beside the content for the vertical bar, without which that bar would bring the
/// horizontal one along. Low content needs none.
class ContentArea : public QScrollArea
{
public:
    QSize sizeHint() const override
    {
        const bool isHigh = widget() && widget()->minimumSizeHint().height() > LowHeight;
        const int barWidth = isHigh ? verticalScrollBar()->sizeHint().width() : 0;
        return QScrollArea::sizeHint() + QSize(barWidth, 0);
    }
};

} // namespace

DockWidget::DockWidget(QWidget *parent)
    : QDockWidget(parent)
    , m_scrollArea(new ContentArea)
    , m_stack(new QStackedWidget(this))
    , m_placeholder(new QLabel)
{
    setContentsMargins(0, 0, 0, 0);
    setFeatures(DockWidgetClosable | DockWidgetMovable | DockWidgetFloatable);
    setContextMenuPolicy(Qt::CustomContextMenu);

    m_placeholder->setAlignment(Qt::AlignCenter);
    m_placeholder->setForegroundRole(QPalette::PlaceholderText);
    m_placeholder->setTextFormat(Qt::PlainText);
    m_placeholder->setWordWrap(true);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    connect(this, &QWidget::windowTitleChanged, m_scrollArea.data(), &QWidget::setAccessibleName);

    m_stack->setAutoFillBackground(true);
    m_stack->insertWidget(PlaceholderPage, m_placeholder);
    m_stack->insertWidget(ContentPage, m_scrollArea);
    setWidget(m_stack);
}

void DockWidget::setPlaceholderText(const QString &text)
{
    if (m_placeholder)
        m_placeholder->setText(text);
}

void DockWidget::setContentWidget(QWidget *content)
{
    if (m_scrollArea)
        m_scrollArea->setWidget(content);
}

bool DockWidget::isContentShown() const
{
    return m_stack && m_stack->currentIndex() == ContentPage;
}

void DockWidget::showPlaceholder()
{
    if (m_stack)
        m_stack->setCurrentIndex(PlaceholderPage);
}

void DockWidget::showContent()
{
    if (m_stack)
        m_stack->setCurrentIndex(ContentPage);
}

QScrollArea *DockWidget::scrollArea() const
{
    return m_scrollArea;
}
