#include "uikit/DockWidget.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

#include <algorithm>

namespace {

constexpr int PlaceholderPage = 0;
constexpr int ContentPage = 1;
constexpr int LowHeight = 400; // pixels, which a dock mostly has
constexpr int ListWidth = 180; // pixels: the rest of the window is for the documents

/// Asks for the least width of the content, or for that of a list if the content is a list, which
/// would like more. Beside high content it wants room for the vertical bar, without which that bar
/// would bring the horizontal one along.
class ContentArea : public QScrollArea
{
public:
    QSize sizeHint() const override
    {
        const QSize least = widget() ? widget()->minimumSizeHint() : QSize();
        const int barWidth = verticalScrollBar()->sizeHint().width();
        QSize size = QScrollArea::sizeHint();
        size.setWidth(std::min(size.width(), std::max(least.width(), ListWidth)));
        return least.height() > LowHeight ? size + QSize(barWidth, 0) : size;
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
