#pragma once

#include <QPointer>
#include <QWidget>

class QToolButton;
class QVBoxLayout;

/// A section with a header that shows and hides the widget below it. It starts collapsed.
class Expandable : public QWidget
{
    Q_OBJECT

public:
    explicit Expandable(const QString &title = {}, QWidget *parent = nullptr);

    QString title() const;

    /// The button that toggles the section; owned.
    QToolButton *header() const { return m_header; }

    QWidget *content() const { return m_content; }
    /// Puts @p content under the header, shown or hidden as the header says. The section takes it
    /// over; the content before is deleted.
    void setContent(QWidget *content);

    bool isExpanded() const;

public slots:
    void expand();
    void collapse();

private:
    void showState();

    QVBoxLayout *m_layout;
    QToolButton *m_header;
    QPointer<QWidget> m_content;
};
