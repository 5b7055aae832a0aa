#pragma once

#include <QByteArray>
#include <QString>

/// Small whole files, read and made apart from the code under test.
namespace TestFiles {

/// All bytes of a file, or the text "unreadable".
QByteArray contents(const QString &fileName);

/// Makes or replaces a file; false if that fails.
[[nodiscard]] bool make(const QString &fileName, const QByteArray &data);

} // namespace TestFiles
