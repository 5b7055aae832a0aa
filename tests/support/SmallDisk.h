#pragma once

#include <QProcess>
#include <QString>

/// A small file system in memory over a folder. Only the superuser may mount one.
class SmallDisk
{
public:
    explicit SmallDisk(const QString &folder, const QString &size = QStringLiteral("1200k"))
        : m_folder(folder)
    {
        m_isMounted = run(QStringLiteral("mount"), {"-t", "tmpfs", "-o", "size=" + size, "none"});
    }
    ~SmallDisk()
    {
        if (m_isMounted)
            run(QStringLiteral("umount"), {});
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    bool isMounted() const { return m_isMounted; }
    /// Whether it is now as told.
    bool setReadOnly(bool isReadOnly)
    {
        return run(QStringLiteral("mount"), {"-o", isReadOnly ? "remount,ro" : "remount,rw"});
    }

private:
    bool run(const QString &program, const QStringList &arguments)
    {
        return QProcess::execute(program, arguments + QStringList(m_folder)) == 0;
    }

    QString m_folder;
    bool m_isMounted = false;
};
