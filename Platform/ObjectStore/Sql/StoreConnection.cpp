#include "Platform/ObjectStore/Sql/StoreConnection.h"

#include "Platform/Errors/SystemReason.h"
#include "Platform/ObjectStore/Sql/EntitySql.h"
#include "Platform/ObjectStore/StoreError.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>
#include <SQLiteCpp/Transaction.h>
#include <sys/stat.h>

#include <cerrno>
#include <fcntl.h>
#include <sqlite3.h>
#include <string>
#include <unistd.h>

namespace quorvel {

namespace {

using namespace Qt::StringLiterals;

/// Marks the file as ours, for the `file` command and for us: "Qrvl".
constexpr qint32 applicationId = 0x5172'766C;
/// How long a statement waits for another process, whose commit takes milliseconds.
constexpr int busyTimeoutMilliseconds = 2000;
constexpr int busyRetryMilliseconds = 5;
/// Without SQLite's lock per value read: only the main thread uses the store.
constexpr int openFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
/// Saving a visit touches a dozen pages of 4 KiB, and a list reads each page once. SQLite would
/// never give back its default of 2000 pages.
constexpr int pageCacheKibibytes = 256;
constexpr mode_t privateFileMode = 0600;
constexpr int partFactor = 1000;

/// The version as `PRAGMA user_version` stores it: 1.0.0 is 1000000.
qint32 encoded(const SchemaVersion &version)
{
    return (version.majorNumber * partFactor + version.minorNumber) * partFactor +
           version.patchNumber;
}

QString versionText(qint32 encodedVersion)
{
    return u"%1.%2.%3"_s.arg(encodedVersion / (partFactor * partFactor))
        .arg(encodedVersion / partFactor % partFactor)
        .arg(encodedVersion % partFactor);
}

/// Creates the file before SQLite does, so that others can never read it. SQLite's log and index
/// beside it take over its mode.
void makePrivateFile(const QString &path)
{
    const int file =
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, privateFileMode);
    if (file < 0) {
        const int error = errno;
        throw StoreError(
            StoreError::Code::CannotOpen,
            u"The store “%1” could not be opened: %2."_s.arg(path, systemReason(error)));
    }
    ::close(file);
}

/// A store that others can read was restored or copied by hand. It is private again from now on.
void closeToOthers(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (::stat(name.constData(), &status) == 0 && (status.st_mode & 0777) != privateFileMode)
        ::chmod(name.constData(), privateFileMode);
}

SQLite::Database open(const QString &name, const StoreConfiguration &configuration)
{
    if (!configuration.path)
        return {":memory:", openFlags | SQLite::OPEN_CREATE};
    makePrivateFile(*configuration.path);
    try {
        return {QFile::encodeName(*configuration.path).toStdString(), openFlags,
                busyTimeoutMilliseconds};
    } catch (const SQLite::Exception &exception) {
        throw StoreError(StoreError::Code::CannotOpen,
                         u"The store “%1” could not be opened: %2."_s.arg(
                             name, QString::fromUtf8(exception.what())));
    }
}

StoreError damaged(const QString &name, const SQLite::Exception &exception)
{
    return {StoreError::Code::Corrupt,
            u"The store “%1” is damaged: %2."_s.arg(name, QString::fromUtf8(exception.what()))};
}

} // namespace

StoreConnection::StoreConnection(const Schema &schema, const StoreConfiguration &configuration)
    : m_name(configuration.path.value_or(u"in memory"_s))
    , m_database(open(m_name, configuration))
{
    try {
        // Order: recognise the file before writing anything to it.
        recognise(schema);
        if (configuration.path)
            closeToOthers(*configuration.path);
        useWriteAheadLog();
        m_database.exec("PRAGMA synchronous = FULL");
        m_database.exec("PRAGMA foreign_keys = ON");
        m_database.exec("PRAGMA cache_size = " + std::to_string(-pageCacheKibibytes));
        createTables(schema);
        checkTables(schema);
    } catch (const SQLite::Exception &exception) {
        const StoreError error = storeErrorFor(exception);
        // A statement that does not fit means a missing table or column.
        if (error.code() == StoreError::Code::Corrupt || exception.getErrorCode() == SQLITE_ERROR)
            throw damaged(m_name, exception);
        throw StoreError(error.code(), u"The store “%1” could not be opened: %2"_s.arg(
                                           m_name, error.errorDescription()));
    }
}

void StoreConnection::recognise(const Schema &schema)
{
    // One snapshot: another process may be creating the store right now.
    SQLite::Transaction snapshot(m_database);
    const qint32 version = pragma("user_version");
    const qint32 owner = pragma("application_id");
    if (owner == 0 && version == 0 && isBlank())
        return;
    if (owner != applicationId) {
        throw StoreError(StoreError::Code::NotAStore,
                         u"“%1” is not a store of this program."_s.arg(m_name));
    }
    const qint32 ours = encoded(schema.version);
    if (version != ours) {
        const auto text =
            version > ours ? u"The store “%1” was written by a newer version of this program: its "
                             u"schema version "
                             u"is %2, this program reads %3."_s
                           : u"The store “%1” has the schema version %2; this program reads %3."_s;
        throw StoreError(StoreError::Code::WrongVersion,
                         text.arg(m_name, versionText(version), versionText(ours)));
    }
}

bool StoreConnection::isBlank()
{
    SQLite::Statement count(m_database, "SELECT count(*) FROM sqlite_schema");
    return count.executeStep() && count.getColumn(0).getInt() == 0;
}

/// Changing the journal needs exclusive access, and SQLite does not wait for it by itself.
void StoreConnection::useWriteAheadLog()
{
    const QDeadlineTimer deadline(busyTimeoutMilliseconds);
    while (true) {
        try {
            m_database.exec("PRAGMA journal_mode = WAL");
            return;
        } catch (const SQLite::Exception &exception) {
            if (exception.getErrorCode() != SQLITE_BUSY || deadline.hasExpired())
                throw;
            QThread::msleep(busyRetryMilliseconds);
        }
    }
}

void StoreConnection::createTables(const Schema &schema)
{
    if (pragma("user_version") != 0)
        return;
    SQLite::Transaction transaction(m_database, SQLite::TransactionBehavior::IMMEDIATE);
    // Another process may have created them while this one waited for the lock.
    if (pragma("user_version") != 0)
        return;
    for (const EntityDescription *entity : schema.entities)
        m_database.exec(EntitySql::create(*entity).constData());
    m_database.exec("PRAGMA application_id = " + std::to_string(applicationId));
    m_database.exec("PRAGMA user_version = " + std::to_string(encoded(schema.version)));
    transaction.commit();
}

/// Detects a file that claims to be ours but lacks a table or column now, instead of at the first
/// visit.
void StoreConnection::checkTables(const Schema &schema)
{
    for (const EntityDescription *entity : schema.entities)
        (void)statement(EntitySql::select(*entity));
}

SQLite::Statement &StoreConnection::statement(const QByteArray &sql)
{
    return m_statements.try_emplace(sql, m_database, sql.constData()).first->second;
}

qint32 StoreConnection::externalVersion()
{
    const StatementUse use(statement("PRAGMA data_version"));
    use->executeStep();
    return use->getColumn(0).getInt();
}

qint32 StoreConnection::pragma(const char *name)
{
    SQLite::Statement query(m_database, std::string("PRAGMA ") + name);
    query.executeStep();
    return query.getColumn(0).getInt();
}

StoreError storeErrorFor(const SQLite::Exception &exception)
{
    switch (exception.getErrorCode()) {
    case SQLITE_FULL:
        return {StoreError::Code::Full, u"The disk is full."_s};
    case SQLITE_IOERR:
        return {StoreError::Code::Failed, u"The disk could not be read or written."_s};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {StoreError::Code::Busy, u"The store is in use by another program."_s};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return {StoreError::Code::Corrupt, u"The store is damaged."_s};
    case SQLITE_READONLY:
        return {StoreError::Code::ReadOnly, u"The store cannot be written."_s};
    case SQLITE_CONSTRAINT:
        if (exception.getExtendedErrorCode() == SQLITE_CONSTRAINT_UNIQUE)
            return {StoreError::Code::Duplicate, u"The store already holds that object."_s};
        [[fallthrough]];
    default:
        return {StoreError::Code::Failed,
                u"The store failed: %1."_s.arg(QString::fromUtf8(exception.what()))};
    }
}

} // namespace quorvel
