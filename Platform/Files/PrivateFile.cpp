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

/// The temporary file beside the target. It is removed unless it replaced the target.
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
        // The process's umask applies to a new file and may remove more permissions than we want.
        require(fchmod(m_descriptor, ownerOnly) == 0);
        // Order: sync the content before the rename. Otherwise a power cut could leave an empty
        // file of that name.
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
