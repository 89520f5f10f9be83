#pragma once

#include <QByteArray>
#include <QString>

namespace platform::qt {

/// Has the print service print a PDF on that printer. Fails with number 482 if the service doesn't take it.
void sendToPrinter(const QString& printer, const QString& title, const QByteArray& pdf);

/// Writes a PDF to the user's documents folder, under a name of its own that begins with the one given, and returns its
/// path. Fails with the number of a file's failure, such as 61, 70 or 75; no file is left then.
QString saveInDocuments(const QString& name, const QByteArray& pdf);

}  // namespace platform::qt
