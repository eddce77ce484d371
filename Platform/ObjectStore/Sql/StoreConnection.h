#pragma once

#include "Platform/ObjectStore/ModelContainer.h"
#include "Platform/ObjectStore/Schema/EntityDescription.h"
#include "Platform/ObjectStore/StoreError.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <unordered_map>

namespace quorvel {

/// The one SQLite connection of a container. It opens and recognises the file, and keeps the
/// prepared statements. The journal is a write-ahead log and every commit is synchronous, so a save
/// that returned survives a killed process and a power cut.
class StoreConnection final
{
public:
    /// Throws StoreError.
    StoreConnection(const Schema &schema, const StoreConfiguration &configuration);

    [[nodiscard]] SQLite::Database &database() { return m_database; }

    /// The prepared statement for this text, the same one each time. Use it through StatementUse.
    [[nodiscard]] SQLite::Statement &statement(const QByteArray &sql);

    /// A number that changes after every commit of another process.
    [[nodiscard]] qint32 externalVersion();

private:
    void recognise(const Schema &schema);
    void useWriteAheadLog();
    void createTables(const Schema &schema);
    void checkTables(const Schema &schema);
    [[nodiscard]] qint32 pragma(const char *name);
    [[nodiscard]] bool isBlank();

    QString m_name; ///< what the user knows the store by, in errors
    SQLite::Database m_database;
    std::unordered_map<QByteArray, SQLite::Statement> m_statements;
};

/// A prepared statement in use. The end of its scope releases it in every case.
class StatementUse final
{
public:
    explicit StatementUse(SQLite::Statement &statement)
        : m_statement(statement)
    {}
    StatementUse(const StatementUse &) = delete;
    StatementUse &operator=(const StatementUse &) = delete;
    ~StatementUse() { m_statement.tryReset(); }

    SQLite::Statement *operator->() const { return &m_statement; }
    SQLite::Statement &operator*() const { return m_statement; }

private:
    SQLite::Statement &m_statement;
};

/// Translates an SQLite failure for the users of the store.
[[nodiscard]] StoreError storeErrorFor(const SQLite::Exception &exception);

} // namespace quorvel
