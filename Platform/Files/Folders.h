#pragma once

#include <QString>

/// Creates folders, for the live backends that keep something in one.
namespace quorvel::Folders {

/// Creates the folder and its missing parents, each for its user alone (0700), durable on return.
/// An existing folder stays as it is. Throws FileError, also for a relative path.
void create(const QString &path);

/// Waits until the folder's entries are on the disk. A new entry survives a power cut only after
/// that. Throws FileError.
void saveEntries(const QString &path);

/// Removes everyone else's access from an existing folder. A folder of another owner stays as it
/// is. Throws FileError.
void closeToOthers(const QString &path);

} // namespace quorvel::Folders
