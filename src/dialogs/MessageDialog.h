#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLabel;

/// A box that tells something and does not make its caller wait.
class MessageDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MessageDialog(QWidget *parent = nullptr);

public slots:
    /// Opens the dialog with @p title as its heading, @p text below, and "Ok". Both are plain text,
    /// and an endless text is cut. If it is open already, it changes what it tells.
    void showMessage(const QString &title, const QString &text);

private:
    QLabel *m_icon;
    QLabel *m_heading;
    QLabel *m_message;
    QDialogButtonBox *m_buttons;
};
