#pragma once

#include <QByteArray>
#include <QString>

/// The writing of files, for the live backends that leave one somewhere.
namespace quorvel::PrivateFile {

/// Writes the file for its user alone (0600), in the place of any of that name: whole, or not at
/// all. The folder exists. Durable on return. Throws FileError.
void write(const QString &path, const QByteArray &content);

} // namespace quorvel::PrivateFile
