#pragma once

#include <QString>
#include <QStringList>

namespace quorvel {

/// A folder that the desktop keeps for its user.
enum class UserDirectory { ApplicationSupport };

enum class CreateIfMissing : bool { No, Yes };

/// The file system as the program sees it: where the user's folders lie, and making new ones.
class FileManager
{
public:
    virtual ~FileManager() = default;

    /// Where the folder may lie, the preferred location first. Does not touch the disk.
    [[nodiscard]] virtual QStringList urls(UserDirectory directory) const = 0;

    /// The preferred location as an absolute path. Throws FileError when it has to be made and
    /// cannot be.
    [[nodiscard]] virtual QString url(UserDirectory directory, CreateIfMissing create) const = 0;

    /// Makes a folder that its user alone can read (0700), with any missing folders above it, and
    /// closes one that is already there to everyone else. Durable on return. Throws FileError.
    virtual void createPrivateDirectory(const QString &path) const = 0;

    /// The one of this process.
    [[nodiscard]] static const FileManager &standard();
};

} // namespace quorvel
