#include "Platform/ObjectStore/Sql/StoreTurn.h"

#include "Platform/ObjectStore/StoreError.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <sys/file.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace quorvel {

namespace {

using namespace Qt::StringLiterals;

constexpr int limitMilliseconds = 2000;
constexpr int retryMilliseconds = 5;

/// The folder is locked in place of the store: closing a second handle of the file would release
/// SQLite's own locks on it.
int openFolder(const QString &storePath)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(storePath).path());
    return ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

/// A file system without such locks lets every process go on.
bool isTaken(int folder)
{
    return ::flock(folder, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR);
}

} // namespace

StoreTurn::StoreTurn(const QString &storePath)
    : m_folder(openFolder(storePath))
{
    const QDeadlineTimer deadline(limitMilliseconds);
    while (m_folder >= 0 && isTaken(m_folder)) {
        if (deadline.hasExpired()) {
            ::close(m_folder);
            throw StoreError(StoreError::Code::Busy, u"The store is in use by another program."_s);
        }
        QThread::msleep(retryMilliseconds);
    }
}

StoreTurn::~StoreTurn()
{
    if (m_folder >= 0)
        ::close(m_folder);
}

} // namespace quorvel
