#pragma once

#include "dialogs/DialogBase.h"
#include "model/Enums.h"

#include <QStringList>

class QButtonGroup;
class QLineEdit;

/// Asks for the name of a new palette and for what to fill it with.
class PaletteDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit PaletteDialog(QWidget *parent = nullptr);

public slots:
    /// Opens with an empty name. @p existingNames are refused; without any there is nothing to
    /// copy.
    void show(QStringList existingNames);
    void accept() override;

signals:
    void accepted(CreateAction action, QString name);

private:
    QString validationError() const;
    CreateAction action() const;

    QLineEdit *m_name;
    QButtonGroup *m_actions; // the ids are CreateAction's
    QStringList m_existingNames;
};
