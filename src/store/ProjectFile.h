#pragma once

#include <QFile>
#include <QString>

/// The place of a project file on the disk during one save, so that the save loses nothing.
///
/// The old file is moved away before the new one is written: to "<file>.bak" if a backup is asked
/// for, else to a hidden sibling in the same folder. It stays there until the new file is complete
/// and flushed, and comes back if the save fails. A program that is killed meanwhile leaves the
/// file, the backup or the sibling; load() looks for the sibling, and the next save tidies up.
///
/// Symbolic links are followed, so that the file they lead to is replaced and they stay. What is no
/// regular file (a device) is written in place and never moved or removed.
class ProjectFile
{
public:
    explicit ProjectFile(const QString &fileName);

    /// The file to write, behind all links.
    QString path() const { return m_path; }

    /// Moves an old file away and leaves an empty one with its permissions. False, with all as it
    /// was but for a backup made, if that cannot be done.
    [[nodiscard]] bool makeRoom(bool backup);
    /// Ends a save that wrote the whole file. False if the folder could not be flushed.
    [[nodiscard]] bool keep() const;
    /// Ends a failed save: removes the new file and puts back what the sibling holds.
    void putBack() const;

    /// The hidden sibling of a project file, whether it is there or not.
    static QString siblingOf(const QString &fileName);

private:
    void tidyUp() const;
    void moveToBackup() const;
    bool makeEmpty(QFile::Permissions permissions) const;

    QString m_fileName;
    QString m_path;
    QString m_sibling;
    bool m_isDevice = false;
    bool m_isMoved = false;
};
