#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace quorvel {

/// A folder that the desktop keeps for its user.
enum class UserDirectory { ApplicationSupport, Downloads };

enum class CreateIfMissing : bool { No, Yes };

/// The file system as the program sees it: where the user's folders lie, making new ones, and
/// leaving a file there.
class FileManager
{
public:
    virtual ~FileManager() = default;

    /// Where the folder may lie, the preferred location first. Whether it is there is not looked
    /// at. Empty when the user has none for downloads.
    [[nodiscard]] virtual QStringList urls(UserDirectory directory) const = 0;
    [[nodiscard]] virtual QString homeDirectory() const = 0;

    /// The preferred location, of which there is one, as an absolute path. Throws FileError when it
    /// has to be made and cannot be.
    [[nodiscard]] virtual QString url(UserDirectory directory, CreateIfMissing create) const = 0;

    /// Makes a folder that its user alone can read (0700), with any missing folders above it, and
    /// closes one that is already there to everyone else. Durable on return. Throws FileError.
    virtual void createPrivateDirectory(const QString &path) const = 0;

    /// Writes a file that its user alone can read (0600) into an existing folder, in the place of
    /// any file of that name: whole, or not at all. Durable on return. Throws FileError.
    virtual void writePrivateFile(const QString &path, const QByteArray &content) const = 0;

    /// The one of this process.
    [[nodiscard]] static const FileManager &standard();
};

} // namespace quorvel
