#pragma once

#include <QDialog>

/// Shows the licence of the artwork that comes with the program.
class LicenceDialog : public QDialog
{
    Q_OBJECT

public:
    explicit LicenceDialog(QWidget *parent = nullptr);
};
