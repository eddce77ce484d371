#include "Platform/ObjectStore/Sql/StoreConnection.h"

#include "Tests/Platform/ObjectStore/LibraryEntities.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <SQLiteCpp/SQLiteCpp.h>

#include <optional>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

qsizetype openFiles()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
}

std::optional<StoreError> refusalOf(const QString &path)
{
    try {
        const StoreConnection connection(librarySchema(), {path});
    } catch (const StoreError &error) {
        return error;
    }
    return std::nullopt;
}

} // namespace

/// What the one connection asks of SQLite, and what it makes of SQLite's answers.
class StoreConnectionTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.emplace();
        m_path = m_folder->filePath(u"Library.store"_s);
    }

    void everyEntityHasItsTableAndItsIndexes()
    {
        {
            const StoreConnection connection(librarySchema(), {m_path});
        }
        const QStringList expected{
            uR"(CREATE TABLE "Author"(pk INTEGER PRIMARY KEY, "id" BLOB NOT NULL UNIQUE, )"
            uR"("name" TEXT NOT NULL))"_s,
            uR"(CREATE TABLE "Book"(pk INTEGER PRIMARY KEY, "id" BLOB NOT NULL UNIQUE, )"
            uR"("title" TEXT NOT NULL, "shelf" TEXT, "publisher" TEXT, )"
            uR"("printed" INTEGER NOT NULL, "price" REAL NOT NULL, "widthMillimeters" REAL, )"
            uR"("pageCount" INTEGER, "isHardcover" INTEGER, )"
            uR"("author" INTEGER REFERENCES "Author"(pk) ON DELETE SET NULL))"_s,
            uR"(CREATE INDEX "Book_shelf" ON "Book"("shelf"))"_s,
            uR"(CREATE INDEX "Book_author" ON "Book"("author"))"_s,
            uR"(CREATE TABLE "Bookmark"(pk INTEGER PRIMARY KEY, "id" BLOB NOT NULL UNIQUE, )"
            uR"("widthMillimeters" REAL NOT NULL, "pageCount" INTEGER NOT NULL, )"
            uR"("isHardcover" INTEGER NOT NULL, )"
            uR"("book" INTEGER REFERENCES "Book"(pk) ON DELETE CASCADE))"_s,
            uR"(CREATE INDEX "Bookmark_book" ON "Bookmark"("book"))"_s,
        };
        QCOMPARE(sqlOf(m_path), expected);
    }

    void aSaveIsSynchronousAndKeepsReferencesAndTheMemorySmall_data()
    {
        QTest::addColumn<QByteArray>("pragma");
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("journal") << "journal_mode"_ba
                                 << "wal"_ba;
        QTest::newRow("full synchronisation") << "synchronous"_ba
                                              << "2"_ba;
        QTest::newRow("references") << "foreign_keys"_ba
                                    << "1"_ba;
        QTest::newRow("256 kibibytes of pages") << "cache_size"_ba
                                                << "-256"_ba;
    }

    void aSaveIsSynchronousAndKeepsReferencesAndTheMemorySmall()
    {
        QFETCH(const QByteArray, pragma);
        StoreConnection connection(librarySchema(), {m_path});
        const StatementUse use(connection.statement("PRAGMA " + pragma));
        QVERIFY(use->executeStep());
        QTEST(QByteArray(use->getColumn(0).getText()), "value");
    }

    void aClosedStoreLeavesNoFileOpen()
    {
        const qsizetype before = openFiles();
        {
            const StoreConnection connection(librarySchema(), {m_path});
            QVERIFY(openFiles() > before);
        }
        QCOMPARE(openFiles(), before);
    }

    void aBlankDatabaseWithAVersionIsNotAStore()
    {
        SQLite::Database(m_path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
            .exec("PRAGMA user_version = 5");
        const auto error = refusalOf(m_path);
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::NotAStore);
    }

    void aStoreThatAnotherProgramKeepsForItselfIsBusy()
    {
        SQLite::Database other(m_path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        other.exec("BEGIN IMMEDIATE");
        const auto error = refusalOf(m_path);
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::Busy);
    }

    void everyFailureHasItsSentence_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<StoreError::Code>("code");
        QTest::addColumn<QString>("sentence");
        const auto row = [](const char *name, int result, StoreError::Code code,
                            const QString &sentence) {
            QTest::newRow(name) << result << code << sentence;
        };
        using Code = StoreError::Code;
        row("full", SQLITE_FULL, Code::Full, u"The disk is full."_s);
        row("disk", SQLITE_IOERR, Code::Failed, u"The disk could not be read or written."_s);
        row("busy", SQLITE_BUSY, Code::Busy, u"The store is in use by another program."_s);
        row("locked", SQLITE_LOCKED, Code::Busy, u"The store is in use by another program."_s);
        row("corrupt", SQLITE_CORRUPT, Code::Corrupt, u"The store is damaged."_s);
        row("no database", SQLITE_NOTADB, Code::Corrupt, u"The store is damaged."_s);
        row("read-only", SQLITE_READONLY, Code::ReadOnly, u"The store cannot be written."_s);
        row("constraint", SQLITE_CONSTRAINT, Code::Failed, u"The store failed: why."_s);
        row("another", SQLITE_TOOBIG, Code::Failed, u"The store failed: why."_s);
    }

    void everyFailureHasItsSentence()
    {
        QFETCH(const int, result);
        const StoreError error = storeErrorFor(SQLite::Exception("why", result));
        QTEST(error.code(), "code");
        QTEST(error.errorDescription(), "sentence");
    }

private:
    /// The tables and indexes in the order in which they were made.
    static QStringList sqlOf(const QString &path)
    {
        SQLite::Database file(path.toStdString());
        SQLite::Statement query(
            file, "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL ORDER BY rowid");
        QStringList result;
        while (query.executeStep())
            result.append(QString::fromUtf8(query.getColumn(0).getText()));
        return result;
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
};

} // namespace quorvel::tests

Q_DECLARE_METATYPE(quorvel::StoreError::Code)

QTEST_GUILESS_MAIN(quorvel::tests::StoreConnectionTest)
#include "StoreConnectionTest.moc"
