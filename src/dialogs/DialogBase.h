#pragma once

#include <QDialog>

class QDialogButtonBox;
class QFormLayout;
class QLabel;

/// The one look of the small dialogs: a large heading, a form, a red error line, Ok and Cancel.
///
/// The window title is that of the nearest parent with one, taken at each opening. The dialog keeps
/// the size that its contents ask for. A subclass overrides accept(): it validates, and on success
/// emits its own `accepted` signal with its values and closes; on failure it calls showError() and
/// stays open.
class DialogBase : public QDialog
{
    Q_OBJECT

public:
    explicit DialogBase(QWidget *parent = nullptr);

    QString heading() const;
    QString error() const;

protected:
    void setHeading(const QString &text);
    /// Adds a labelled row to the form, which takes @p field over. The label names the field to
    /// screen readers unless the field has a name.
    void addRow(const QString &label, QWidget *field);
    /// Shows @p text on the red line; empty clears it. The dialog gets the size it then needs.
    void showError(const QString &text);

    void showEvent(QShowEvent *event) override;

private:
    QLabel *makeHeading();
    QLabel *makeErrorLine();
    QDialogButtonBox *makeButtons();
    void takeTitle();
    void fixSize();
    void focusFirstField();
    void enterRadioButtonsAtTheChecked();

    QLabel *m_heading;
    QFormLayout *m_form;
    QLabel *m_error;
    QSize m_leastSize; // the subclass's minimum, as fixing the size overwrites it
};
