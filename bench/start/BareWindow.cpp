// The least that a program with a window costs to start: one main window with one menu.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Quit"));
    window.resize(1024, 768);
    window.show();
    return QApplication::exec();
}
