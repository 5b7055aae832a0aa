#pragma once

#include <QtGlobal>

class QString;

/// The log of one run, kept only where a folder named "log" stands in the working directory.
namespace LogFile {

/// Opens "log/application_<local time>.log" and installs the message handler, if the folder exists.
/// A file that cannot be opened is told on standard error; messages then reach the console alone.
void startIfWanted();

/// Writes one message to the file and the console. Warnings of libpng are dropped.
void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message);

} // namespace LogFile
