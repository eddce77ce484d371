#include "Tests/Platform/ObjectStore/PowerCut/PowerCutVfs.h"

#include <QFile>
#include <QSet>

#include <new>
#include <utility>

namespace quorvel::tests {

/// An open file, in memory that SQLite owns. The system's own file follows it in that memory.
struct PowerCutFile
{
    sqlite3_file base;
    PowerCutVfs *disk;
    PowerCutVfs::Content content; ///< absent for files without a name
    bool isDatabase;
    bool syncsFolder;

    static PowerCutFile &of(sqlite3_file *file) { return *reinterpret_cast<PowerCutFile *>(file); }
    static sqlite3_file *system(sqlite3_file *file)
    {
        return reinterpret_cast<sqlite3_file *>(&of(file) + 1);
    }

    template <auto Method, class... Arguments>
    static auto pass(sqlite3_file *file, Arguments... arguments)
    {
        return (system(file)->pMethods->*Method)(system(file), arguments...);
    }

    static int open(sqlite3_vfs *vfs, const char *name, sqlite3_file *file, int flags,
                    int *flagsOut);
    static int close(sqlite3_file *file);
    static int read(sqlite3_file *file, void *bytes, int count, sqlite3_int64 offset);
    static int write(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 offset);
    static int truncate(sqlite3_file *file, sqlite3_int64 size);
    static int sync(sqlite3_file *file, int flags);
    static const sqlite3_io_methods methods;
};

// Version 2 has the shared memory that a log needs, and no memory-mapped access beside `read`.
const sqlite3_io_methods PowerCutFile::methods{
    .iVersion = 2,
    .xClose = close,
    .xRead = read,
    .xWrite = write,
    .xTruncate = truncate,
    .xSync = sync,
    .xFileSize = pass<&sqlite3_io_methods::xFileSize>,
    .xLock = pass<&sqlite3_io_methods::xLock>,
    .xUnlock = pass<&sqlite3_io_methods::xUnlock>,
    .xCheckReservedLock = pass<&sqlite3_io_methods::xCheckReservedLock>,
    .xFileControl = pass<&sqlite3_io_methods::xFileControl>,
    .xSectorSize = pass<&sqlite3_io_methods::xSectorSize>,
    .xDeviceCharacteristics = pass<&sqlite3_io_methods::xDeviceCharacteristics>,
    .xShmMap = pass<&sqlite3_io_methods::xShmMap>,
    .xShmLock = pass<&sqlite3_io_methods::xShmLock>,
    .xShmBarrier = pass<&sqlite3_io_methods::xShmBarrier>,
    .xShmUnmap = pass<&sqlite3_io_methods::xShmUnmap>,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

int PowerCutFile::open(sqlite3_vfs *vfs, const char *name, sqlite3_file *file, int flags,
                       int *flagsOut)
{
    auto *disk = static_cast<PowerCutVfs *>(vfs->pAppData);
    file->pMethods = nullptr;
    if (!disk->isPowered())
        return SQLITE_CANTOPEN;
    // Order: look for an existing file before the system creates it.
    const auto content = name ? disk->contentOf(QFile::decodeName(name)) : nullptr;
    const int result = disk->m_system->xOpen(disk->m_system, name, system(file), flags, flagsOut);
    if (result != SQLITE_OK)
        return result;
    const bool isJournal = (flags & (SQLITE_OPEN_WAL | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
    new (file) PowerCutFile{.base = {.pMethods = &methods},
                            .disk = disk,
                            .content = content,
                            .isDatabase = (flags & SQLITE_OPEN_MAIN_DB) != 0,
                            .syncsFolder = isJournal && (flags & SQLITE_OPEN_CREATE) != 0};
    ++disk->m_openFiles;
    return SQLITE_OK;
}

int PowerCutFile::close(sqlite3_file *file)
{
    const int result = system(file)->pMethods->xClose(system(file));
    --of(file).disk->m_openFiles;
    of(file).~PowerCutFile();
    return result;
}

int PowerCutFile::read(sqlite3_file *file, void *bytes, int count, sqlite3_int64 offset)
{
    if (!of(file).disk->isPowered())
        return SQLITE_IOERR_READ;
    return system(file)->pMethods->xRead(system(file), bytes, count, offset);
}

int PowerCutFile::write(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 offset)
{
    if (!of(file).disk->operate())
        return SQLITE_IOERR_WRITE;
    if (of(file).content)
        of(file).content->write(offset, QByteArray(static_cast<const char *>(bytes), count));
    return system(file)->pMethods->xWrite(system(file), bytes, count, offset);
}

int PowerCutFile::truncate(sqlite3_file *file, sqlite3_int64 size)
{
    if (!of(file).disk->operate())
        return SQLITE_IOERR_TRUNCATE;
    if (of(file).content)
        of(file).content->truncate(size);
    return system(file)->pMethods->xTruncate(system(file), size);
}

/// Does not sync the system's disk, since only this simulated disk counts.
int PowerCutFile::sync(sqlite3_file *file, int)
{
    PowerCutFile &self = of(file);
    if (!self.disk->operate())
        return SQLITE_IOERR_FSYNC;
    self.disk->m_databaseSyncs += self.isDatabase ? 1 : 0;
    if (self.disk->m_pretendsToSync || !self.content)
        return SQLITE_OK;
    self.content->sync();
    if (std::exchange(self.syncsFolder, false))
        self.disk->syncFolder();
    return SQLITE_OK;
}

PowerCutVfs::PowerCutVfs()
    : m_system(sqlite3_vfs_find(nullptr))
    , m_vfs(*m_system)
{
    m_vfs.zName = "power-cut";
    m_vfs.pAppData = this;
    m_vfs.szOsFile += int(sizeof(PowerCutFile));
    m_vfs.xOpen = PowerCutFile::open;
    m_vfs.xDelete = [](sqlite3_vfs *vfs, const char *path, int syncsFolder) {
        return static_cast<PowerCutVfs *>(vfs->pAppData)->remove(path, syncsFolder != 0);
    };
    sqlite3_vfs_register(&m_vfs, true);
}

PowerCutVfs::~PowerCutVfs()
{
    sqlite3_vfs_unregister(&m_vfs);
    sqlite3_vfs_register(m_system, true);
}

void PowerCutVfs::restorePower(Unsynced unsynced, QRandomGenerator &random)
{
    if (m_openFiles != 0)
        qFatal("a database is still open");
    QSet<QString> paths(m_folder.keyBegin(), m_folder.keyEnd());
    paths.unite({m_certainFolder.keyBegin(), m_certainFolder.keyEnd()});
    for (const QString &path : paths) {
        const bool isCertain = unsynced == Unsynced::Lost || random.bounded(2) == 0;
        const Content content = (isCertain ? m_certainFolder : m_folder).value(path);
        m_folder.remove(path);
        QFile::remove(path);
        QFile::remove(path + QStringLiteral("-shm"));
        if (!content)
            continue;
        content->losePower(unsynced, random);
        m_folder.insert(path, content);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(content->certain()) != content->certain().size())
            qFatal("cannot restore %s", qPrintable(path));
    }
    syncFolder();
    m_operationsLeft = -1;
}

bool PowerCutVfs::operate()
{
    if (!isPowered())
        return false;
    if (m_operationsLeft > 0)
        --m_operationsLeft;
    return true;
}

/// An existing file is certain as it is. An empty file was created just now, without SQLite, so
/// nothing about it is certain.
PowerCutVfs::Content PowerCutVfs::contentOf(const QString &path)
{
    auto &content = m_folder[path];
    if (content)
        return content;
    QFile file(path);
    const bool isKnown = file.open(QIODevice::ReadOnly) && file.size() > 0;
    content = std::make_shared<PowerCutContent>(isKnown ? file.readAll() : QByteArray());
    if (isKnown)
        m_certainFolder.insert(path, content);
    return content;
}

int PowerCutVfs::remove(const char *path, bool syncsFolder)
{
    if (!operate())
        return SQLITE_IOERR_DELETE;
    m_folder.remove(QFile::decodeName(path));
    if (syncsFolder && !m_pretendsToSync)
        syncFolder();
    return m_system->xDelete(m_system, path, false);
}

} // namespace quorvel::tests
