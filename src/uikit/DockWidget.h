#pragma once

#include <QDockWidget>
#include <QPointer>

class QLabel;
class QScrollArea;
class QStackedWidget;

/// The base of all dock windows: a scrolled content, or a centred text while there is none to show.
///
/// It starts on the placeholder.
class DockWidget : public QDockWidget
{
    Q_OBJECT

public:
    explicit DockWidget(QWidget *parent = nullptr);

    /// Shown as plain text, wrapped to the dock's width.
    void setPlaceholderText(const QString &text);
    /// Puts @p content into the scroll area, which takes it over; the one before is deleted.
    void setContentWidget(QWidget *content);

    bool isContentShown() const;
    /// The area around the content, for owners that scroll it. Owned by the dock.
    QScrollArea *scrollArea() const;

public slots:
    void showPlaceholder();
    void showContent();

private:
    QPointer<QScrollArea> m_scrollArea;
    QPointer<QStackedWidget> m_stack;
    QPointer<QLabel> m_placeholder;
};
