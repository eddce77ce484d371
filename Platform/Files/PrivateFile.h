#pragma once

#include <QByteArray>
#include <QString>

/// Writes files, for the live backends that leave one somewhere.
namespace quorvel::PrivateFile {

/// Writes the file for its user alone (0600). It replaces a file of that name as a whole, or not at
/// all. The folder must exist. Durable on return. Throws FileError.
void write(const QString &path, const QByteArray &content);

} // namespace quorvel::PrivateFile
