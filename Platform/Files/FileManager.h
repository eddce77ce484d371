#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace quorvel {

/// A folder that the desktop keeps for its user.
enum class UserDirectory { ApplicationSupport, Downloads };

enum class CreateIfMissing : bool { No, Yes };

/// The file system as the program needs it: it finds the user's folders, creates folders and writes
/// files.
class FileManager
{
public:
    virtual ~FileManager() = default;

    /// The possible locations of the folder, the preferred one first. The disk is not touched.
    /// Empty if the user has no folder for downloads.
    [[nodiscard]] virtual QStringList urls(UserDirectory directory) const = 0;
    [[nodiscard]] virtual QString homeDirectory() const = 0;

    /// The preferred location as an absolute path; creates the folder if asked to. Throws FileError
    /// if that fails.
    [[nodiscard]] virtual QString url(UserDirectory directory, CreateIfMissing create) const = 0;

    /// Creates a folder that only its user can read (0700), with any missing parents. Removes
    /// everyone else's access from an existing folder. Durable on return. Throws FileError.
    virtual void createPrivateDirectory(const QString &path) const = 0;

    /// Writes a file that only its user can read (0600) into an existing folder. It replaces a file
    /// of that name as a whole, or not at all. Durable on return. Throws FileError.
    virtual void writePrivateFile(const QString &path, const QByteArray &content) const = 0;

    /// The file manager of this process.
    [[nodiscard]] static const FileManager &standard();
};

} // namespace quorvel
