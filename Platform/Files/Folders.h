#pragma once

#include <QString>

/// The making of folders, for the live backends that keep something in one.
namespace quorvel::Folders {

/// Makes the folder and whatever is missing above it, each for its user alone (0700) and durable on
/// return. One that exists stays as it is. Throws FileError, also for a relative path.
void create(const QString &path);

/// Waits until the folder's list of entries is on the disk: an entry outlives a power cut only once
/// the folder itself is there. Throws FileError.
void saveEntries(const QString &path);

/// Closes an existing folder to everyone else. Somebody else's folder is theirs to open or close,
/// and stays as it is. Throws FileError.
void closeToOthers(const QString &path);

} // namespace quorvel::Folders
