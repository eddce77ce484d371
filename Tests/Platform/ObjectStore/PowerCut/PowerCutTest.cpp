#include "Platform/ObjectStore/StoreError.h"
#include "Tests/Platform/ObjectStore/LibraryEntities.h"
#include "Tests/Platform/ObjectStore/PowerCut/PowerCutVfs.h"
#include "Tests/Support/SeededRandom.h"

#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <SQLiteCpp/SQLiteCpp.h>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(quorvel::tests::Unsynced)

namespace quorvel::tests {

namespace {

constexpr int roundCount = 60;
constexpr int maximumSavesPerRound = 8;
constexpr int booksPerSave = 3;
/// The approximate number of operations for opening, a round of saves and closing.
constexpr int maximumOperationsPerRound = 300;
/// The size of the log. It is small, so that its pages move to the database often.
constexpr int pagesBetweenCheckpoints = 12;

/// The latest connection, since the store does not give its own away.
sqlite3 *openedLast = nullptr;

int noteConnection(sqlite3 *connection)
{
    openedLast = connection;
    return SQLITE_OK;
}

/// A library on a disk that loses power, with the data that must survive and the data that may be
/// lost.
class FragileLibrary
{
public:
    FragileLibrary() { sqlite3_auto_extension(extension()); }
    ~FragileLibrary() { sqlite3_cancel_auto_extension(extension()); }

    void open()
    {
        m_container = std::make_unique<ModelContainer>(librarySchema(), configuration());
        sqlite3_wal_autocheckpoint(openedLast, pagesBetweenCheckpoints);
    }
    void close() { m_container.reset(); }

    /// One save of several rows in two tables. The shelf of its books identifies it.
    void save()
    {
        m_attempted = u"shelf %1"_s.arg(m_nextShelf++);
        auto &context = m_container->mainContext();
        const auto author = std::make_shared<Author>(m_attempted);
        for (int i = 0; i < booksPerSave; ++i) {
            const auto book = std::make_shared<Book>(u"Số đỏ"_s.repeated(20), author);
            book->setShelf(m_attempted);
            context.insert(book);
        }
        context.save();
        m_saved.insert(m_attempted);
    }

    /// The process ends with the power. The disk comes back.
    void restart(Unsynced unsynced)
    {
        disk.cutPower();
        close();
        disk.restorePower(unsynced, random);
    }

    /// The saves that returned but are not in the store with all their books.
    [[nodiscard]] QSet<QString> lost() { return m_saved - completeShelves(); }

    /// Whether the interrupted save is in the store. After this call it counts as a save that
    /// returned, or as one that must never appear. A partial save fails the test.
    [[nodiscard]] bool keepsInterrupted()
    {
        const QString attempted = std::exchange(m_attempted, {});
        if (m_saved.contains(attempted) || !completeShelves().contains(attempted))
            return false;
        m_saved.insert(attempted);
        return true;
    }

    [[nodiscard]] QSet<QString> strangers() { return completeShelves() - m_saved; }

    [[nodiscard]] bool isSound()
    {
        SQLite::Database file(path().toStdString(), SQLite::OPEN_READWRITE);
        return file.execAndGet("PRAGMA integrity_check").getString() == "ok" &&
               !SQLite::Statement(file, "PRAGMA foreign_key_check").executeStep();
    }

    [[nodiscard]] qsizetype savedCount() const { return m_saved.size(); }

    PowerCutVfs disk;
    QRandomGenerator random = seededRandom();

private:
    using Extension = void (*)();
    static Extension extension() { return reinterpret_cast<Extension>(noteConnection); }

    [[nodiscard]] QString path() const { return m_folder.filePath(u"Library.store"_s); }
    [[nodiscard]] StoreConfiguration configuration() const { return {path()}; }

    QSet<QString> completeShelves()
    {
        ModelContainer container(librarySchema(), configuration());
        QHash<QString, int> books;
        for (const auto &book : container.mainContext().fetch<Book>())
            ++books[book->shelf().value()];
        for (const auto [shelf, count] : books.asKeyValueRange()) {
            if (count != booksPerSave)
                qFatal("%s holds %d books", qPrintable(shelf), count);
        }
        return {books.keyBegin(), books.keyEnd()};
    }

    QTemporaryDir m_folder;
    std::unique_ptr<ModelContainer> m_container;
    QSet<QString> m_saved;
    QString m_attempted;
    int m_nextShelf = 0;
};

void addRowsForUnsynced()
{
    QTest::addColumn<Unsynced>("unsynced");
    QTest::newRow("what was not synced is lost") << Unsynced::Lost;
    QTest::newRow("the first of it is kept") << Unsynced::FirstOnes;
    QTest::newRow("all of it is kept") << Unsynced::Kept;
    QTest::newRow("scattered sectors of it are kept") << Unsynced::Scattered;
}

} // namespace

class PowerCutTest final : public QObject
{
    Q_OBJECT

private slots:
    void aSaveThatReturnedSurvivesTheCut_data() { addRowsForUnsynced(); }

    void aSaveThatReturnedSurvivesTheCut()
    {
        QFETCH(const Unsynced, unsynced);
        FragileLibrary library;
        int checkpoints = 0;
        for (int round = 0; round < roundCount; ++round) {
            library.open();
            const int syncsBefore = library.disk.databaseSyncs();
            const int saves = library.random.bounded(1, maximumSavesPerRound + 1);
            for (int i = 0; i < saves; ++i)
                library.save();
            checkpoints += library.disk.databaseSyncs() - syncsBefore;
            library.restart(unsynced);
            QCOMPARE(library.lost(), QSet<QString>());
            QCOMPARE(library.strangers(), QSet<QString>());
            QVERIFY(library.isSound());
        }
        qInfo("%d saves, %d checkpoints amid them", int(library.savedCount()), checkpoints);
        QVERIFY(checkpoints > roundCount / 2);
    }

    void aSaveThatIsCutOffIsThereWhollyOrNotAtAll_data() { addRowsForUnsynced(); }

    void aSaveThatIsCutOffIsThereWhollyOrNotAtAll()
    {
        QFETCH(const Unsynced, unsynced);
        FragileLibrary library;
        int cutOff = 0;
        int kept = 0;
        for (int round = 0; round < roundCount; ++round) {
            library.disk.cutPowerAfter(library.random.bounded(maximumOperationsPerRound));
            try {
                library.open();
                for (int i = 0; i < maximumSavesPerRound; ++i)
                    library.save();
                library.close();
            } catch (const StoreError &) {
                ++cutOff;
            }
            library.restart(unsynced);
            kept += library.keepsInterrupted() ? 1 : 0;
            QCOMPARE(library.lost(), QSet<QString>());
            QCOMPARE(library.strangers(), QSet<QString>());
            QVERIFY(library.isSound());
        }
        qInfo("%d saves, %d cut off, %d of these kept", int(library.savedCount()), cutOff, kept);
        QVERIFY(library.savedCount() > roundCount);
        QVERIFY(cutOff > kept);
    }

    void aSaveMayBeCutOffAtAnyMoment_data() { addRowsForUnsynced(); }

    void aSaveMayBeCutOffAtAnyMoment()
    {
        QFETCH(const Unsynced, unsynced);
        FragileLibrary library;
        bool returned = false;
        int moment = 0;
        int kept = 0;
        for (; !returned; ++moment) {
            library.open();
            library.save();
            library.disk.cutPowerAfter(moment);
            try {
                library.save();
                returned = true;
            } catch (const StoreError &) {
            }
            library.restart(unsynced);
            kept += library.keepsInterrupted() ? 1 : 0;
            QCOMPARE(library.lost(), QSet<QString>());
            QCOMPARE(library.strangers(), QSet<QString>());
        }
        QVERIFY(moment > booksPerSave);
        QVERIFY(unsynced != Unsynced::Lost || kept == 0);
        QVERIFY(unsynced != Unsynced::Kept || kept > 0);
    }

    void aDiskThatOnlyPretendsToSyncLosesSaves()
    {
        FragileLibrary library;
        library.open();
        library.save();
        library.restart(Unsynced::Lost);
        QCOMPARE(library.lost(), QSet<QString>());
        library.disk.pretendToSync();
        library.open();
        library.save();
        library.save();
        library.restart(Unsynced::Lost);
        QCOMPARE(library.lost(), (QSet{u"shelf 1"_s, u"shelf 2"_s}));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::PowerCutTest)
#include "PowerCutTest.moc"
