#pragma once

#include <QFileDialog>
#include <QPointer>
#include <QWidget>

class QLineEdit;

/// A file name to type, with a "..." button that opens a file dialog for it.
class FileField : public QWidget
{
    Q_OBJECT

public:
    /// @p prepare sets a new file dialog up; it is made when the button is first pressed.
    explicit FileField(std::function<void(QFileDialog *)> prepare, QWidget *parent = nullptr);

    QLineEdit *edit() const { return m_edit; }
    QString fileName() const;
    void setFileName(const QString &fileName);

signals:
    void fileNameChanged(QString fileName);
    /// A file was chosen in the file dialog and stands in the field.
    void fileChosen();

private:
    void browse();
    void takeChoice();

    std::function<void(QFileDialog *)> m_prepare;
    QLineEdit *m_edit;
    QPointer<QFileDialog> m_dialog;
};
