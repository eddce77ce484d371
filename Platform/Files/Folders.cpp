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

/// Creates one folder in an existing one. Returns false if that parent is missing.
bool makeFolder(const QString &path)
{
    if (mkdir(QFile::encodeName(path).constData(), ownerOnly) == 0) {
        // mkdir obeys the process's umask, which may remove more permissions than we want.
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

/// Creates a folder and its missing parents, from the bottom up: a folder high above may refuse
/// even to be looked at.
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
    // The user may create entries in this folder but not open it, so there is nothing to sync.
    if (descriptor < 0 && errno == EACCES)
        return;
    if (descriptor < 0)
        throw FileError(FileError::Operation::SaveFolder, path, errno);
    const auto closing = qScopeGuard([descriptor] { close(descriptor); });
    // Some network and union file systems do not support this request and report EINVAL.
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
