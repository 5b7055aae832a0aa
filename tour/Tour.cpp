#include "tour/Tour.h"

#include "model/Project.h"

#include <QTextStream>

#include <cstdio>

namespace {

constexpr int SubjectWidth = 14; // characters
constexpr int WhatWidth = 46;

void print(const QString &line)
{
    std::fputs(qPrintable(line + u'\n'), stdout);
    std::fflush(stdout);
}

} // namespace

Tour::Tour(const QString &folder)
    : m_folder(folder)
{
    if (!m_folder.mkpath(QStringLiteral(".")))
        check(false, folder, QStringLiteral("make the folder"));
    m_store.create(QStringLiteral("tour"));
}

Project *Tour::project() const
{
    return m_store.project();
}

QString Tour::cutOut(const RealPicture &picture)
{
    QImage whole;
    if (!whole.load(picture.file)) {
        check(false, picture.name,
              QStringLiteral("open %1 of package %2").arg(picture.file, picture.package));
        return {};
    }
    const QString file = m_folder.filePath(picture.name + QStringLiteral(".png"));
    const QImage part = whole.convertToFormat(QImage::Format_RGB32).copy(picture.part);
    check(part.save(file), picture.name,
          QStringLiteral("cut %1 x %2 pixels out of %3")
              .arg(part.width())
              .arg(part.height())
              .arg(QFileInfo(picture.file).fileName()));
    return file;
}

void Tour::beginChapter(const QString &title)
{
    print(QStringLiteral("\n%1").arg(title));
}

void Tour::tell(const QString &subject, const QString &what, const QString &result)
{
    print(QStringLiteral("  %1 %2 %3")
              .arg(subject.leftJustified(SubjectWidth), what.leftJustified(WhatWidth), result));
}

bool Tour::check(bool holds, const QString &subject, const QString &what)
{
    tell(subject, what, holds ? QStringLiteral("ok") : QStringLiteral("FAILED"));
    m_failures += holds ? 0 : 1;
    return holds;
}
