#include "Platform/Files/Folders.h"

#include "Platform/Files/FileError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <sys/stat.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace quorvel::Folders {

namespace {

constexpr mode_t ownerOnly = S_IRWXU;
constexpr mode_t groupAndOthers = S_IRWXG | S_IRWXO;

void setMode(const QString &path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        throw FileError(FileError::Operation::CloseFolder, path, errno);
}

/// Makes one folder below an existing one. False when that parent is missing.
bool makeFolder(const QString &path)
{
    if (mkdir(QFile::encodeName(path).constData(), ownerOnly) == 0) {
        // mkdir obeys the process's umask, which may take away more than we do.
        setMode(path, ownerOnly);
        saveEntries(QFileInfo(path).path());
        return true;
    }
    const int code = errno;
    if (code == ENOENT)
        return false;
    if (code != EEXIST || !QFileInfo(path).isDir())
        throw FileError(FileError::Operation::CreateFolder, path, code);
    return true;
}

/// Makes a folder and whatever is missing above it, from the bottom up: a folder high above may
/// refuse even the question.
void makeFolders(const QString &path)
{
    if (makeFolder(path))
        return;
    makeFolders(QFileInfo(path).path());
    if (!makeFolder(path))
        throw FileError(FileError::Operation::CreateFolder, path, ENOENT);
}

} // namespace

void create(const QString &path)
{
    if (!QDir::isAbsolutePath(path))
        throw FileError(FileError::Operation::CreateFolder, path, EINVAL);
    makeFolders(QDir::cleanPath(path));
}

void saveEntries(const QString &path)
{
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder in which its user may make entries but not list them: nothing to wait on.
    if (descriptor < 0 && errno == EACCES)
        return;
    if (descriptor < 0)
        throw FileError(FileError::Operation::SaveFolder, path, errno);
    const auto closing = qScopeGuard([descriptor] { close(descriptor); });
    // Some network and union file systems know no such request, and say so with EINVAL.
    if (fsync(descriptor) != 0 && errno != EINVAL)
        throw FileError(FileError::Operation::SaveFolder, path, errno);
}

void closeToOthers(const QString &path)
{
    struct stat folder = {};
    if (stat(QFile::encodeName(path).constData(), &folder) != 0)
        throw FileError(FileError::Operation::CloseFolder, path, errno);
    if (folder.st_uid == geteuid() && (folder.st_mode & groupAndOthers) != 0)
        setMode(path, ownerOnly);
}

} // namespace quorvel::Folders
