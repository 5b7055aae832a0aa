#pragma once

#include "dialogs/DialogBase.h"

class QLineEdit;

/// Asks for the name of a new project. Each opening starts with an empty name.
class ProjectDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit ProjectDialog(QWidget *parent = nullptr);

    /// The name as typed; never empty after accepted().
    QString text() const;

public slots:
    void accept() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    QLineEdit *m_name;
};
