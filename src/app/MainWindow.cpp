#include "app/MainWindow.h"

#include <QApplication>
#include <QMessageBox>
#include <QStatusBar>

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
{
    setUnifiedTitleAndToolBarOnMac(true);
    setDocumentMode(true);
    setWindowTitle(QApplication::applicationName());
    resize(1024, 768);
    connect(statusBar(), &QStatusBar::messageChanged, this, &MainWindow::messageChanged);
    show();
    statusBar()->showMessage(windowTitle());
}

MainWindow::~MainWindow() = default;

void MainWindow::showError(QString name)
{
    QMessageBox::warning(this, QStringLiteral("Warning!"), name);
}

void MainWindow::messageChanged(QString message)
{
    if (message.isEmpty())
        statusBar()->showMessage(windowTitle());
}
