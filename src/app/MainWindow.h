#pragma once

#include <QMainWindow>

class QLabel;

/// The one top-level window, and the place where the program's objects are made and wired.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

public slots:
    /// Shows @p name, the text of a failure, to the user.
    void showError(QString name);
    /// When a status text has ended, shows what is being edited.
    void messageChanged(QString message);
};
