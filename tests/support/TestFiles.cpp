#include "support/TestFiles.h"

#include <QFile>

QByteArray TestFiles::contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

bool TestFiles::make(const QString &fileName, const QByteArray &data)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size();
}
