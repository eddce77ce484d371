#include "Platform/Files/PrivateFile.h"

#include "Platform/Files/FileError.h"
#include "Platform/Files/Folders.h"

#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace quorvel::PrivateFile {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

/// What is written beside a file until it is whole; gone with its owner unless it became the file.
class Draft final
{
public:
    explicit Draft(const QString &path)
        : m_path(path)
        , m_draft(QFile::encodeName(QFileInfo(path).path()) + "/.quorvel-XXXXXX")
        , m_descriptor(mkostemp(m_draft.data(), O_CLOEXEC))
    {
        require(m_descriptor >= 0);
    }
    Q_DISABLE_COPY_MOVE(Draft)
    ~Draft()
    {
        close(m_descriptor);
        if (!m_draft.isEmpty())
            unlink(m_draft.constData());
    }

    void write(QByteArrayView content)
    {
        while (!content.isEmpty()) {
            const ssize_t count = ::write(m_descriptor, content.data(), size_t(content.size()));
            require(count >= 0 || errno == EINTR);
            content = content.sliced(count < 0 ? 0 : count);
        }
    }

    void becomeTheFile()
    {
        // A file is made as its process's umask wants, which may take away more than we do.
        require(fchmod(m_descriptor, ownerOnly) == 0);
        // Order: a name that is on the disk before what it stands for would name an empty file.
        require(fsync(m_descriptor) == 0 || errno == EINVAL);
        require(rename(m_draft.constData(), QFile::encodeName(m_path).constData()) == 0);
        m_draft.clear();
    }

private:
    void require(bool done) const
    {
        if (!done)
            throw FileError(FileError::Operation::WriteFile, m_path, errno);
    }

    QString m_path;
    QByteArray m_draft;
    int m_descriptor;
};

} // namespace

void write(const QString &path, const QByteArray &content)
{
    Draft draft(path);
    draft.write(content);
    draft.becomeTheFile();
    Folders::saveEntries(QFileInfo(path).path());
}

} // namespace quorvel::PrivateFile
