#include "FuzzTarget.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace Fuzz {

void begin(int *argc, char **argv, bool widgets)
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    // Never deleted: libFuzzer leaves by exit(), after which nothing can be taken down in order.
    [[maybe_unused]] static QCoreApplication *application = nullptr;
    if (widgets) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application = new QApplication(*argc, argv);
    } else {
        application = new QCoreApplication(*argc, argv);
    }
}

int takeChoice(QByteArray *input, int count)
{
    if (input->isEmpty())
        return 0;
    const int choice = static_cast<uchar>(input->front()) % count;
    *input = input->mid(1);
    return choice;
}

QString file(const QString &name, const QByteArray &content)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
            QStringLiteral("cannot write %1").arg(path));
    return path;
}

void require(bool holds, const QString &what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken: %s\n", qPrintable(what));
    std::abort();
}

} // namespace Fuzz
