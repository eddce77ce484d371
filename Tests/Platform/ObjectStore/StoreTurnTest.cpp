#include "Platform/ObjectStore/Sql/StoreTurn.h"

#include "Platform/ObjectStore/ModelContext.h"
#include "Platform/ObjectStore/StoreError.h"
#include "Tests/Platform/ObjectStore/LibraryEntities.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <sys/wait.h>

#include <csignal>
#include <exception>
#include <memory>
#include <optional>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr int writers = 8;

std::optional<StoreError> refusalOf(const QString &path)
{
    try {
        const StoreTurn turn(path);
    } catch (const StoreError &error) {
        return error;
    }
    return std::nullopt;
}

} // namespace

class StoreTurnTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.emplace();
        m_path = m_folder->filePath(u"Library.store"_s);
    }

    void aTurnComesWhenTheOtherIsOver()
    {
        {
            const StoreTurn turn(m_path);
        }
        QVERIFY(!refusalOf(m_path));
    }

    void aTurnThatDoesNotComeIsRefused()
    {
        const StoreTurn other(m_path);
        const auto error = refusalOf(m_path);
        QVERIFY(error);
        QCOMPARE(error->code(), StoreError::Code::Busy);
        QCOMPARE(error->errorDescription(), u"The store is in use by another program."_s);
    }

    void othersStayOutWhileAContainerHasItsTurn()
    {
        ModelContainer container(librarySchema(), {m_path});
        std::optional<StoreError> refused;
        container.inTurn([&] { refused = refusalOf(m_path); });
        QVERIFY(refused);
        QVERIFY(!refusalOf(m_path));
    }

    void aTurnThatIsRefusedLeavesNoFileOpen()
    {
        const StoreTurn other(m_path);
        const auto openFiles = [] {
            return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
        };
        const qsizetype before = openFiles();
        QVERIFY(refusalOf(m_path));
        QCOMPARE(openFiles(), before);
    }

    void aProcessThatIsKilledLeavesItsTurn()
    {
        int ready[2];
        QCOMPARE(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const StoreTurn turn(m_path);
            [[maybe_unused]] const auto told = ::write(ready[1], "1", 1);
            ::pause();
            ::_exit(0);
        }
        char word = 0;
        QCOMPARE(::read(ready[0], &word, 1), 1);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        QVERIFY(!refusalOf(m_path));
    }

    void aPlaceThatCannotBeLockedKeepsNobodyOut()
    {
        const QString nowhere = m_folder->filePath(u"nowhere/Library.store"_s);
        const StoreTurn first(nowhere);
        QVERIFY(!refusalOf(nowhere));
    }

    void ofManyProcessesAtOnceOneIsTheFirst()
    {
        {
            const ModelContainer made(librarySchema(), {m_path});
        }
        std::vector<pid_t> children;
        for (int i = 0; i < writers; ++i) {
            const pid_t child = ::fork();
            if (child == 0)
                ::_exit(addFirstBook());
            children.push_back(child);
        }
        for (const pid_t child : children) {
            int status = 0;
            QCOMPARE(::waitpid(child, &status, 0), child);
            QCOMPARE(status, 0);
        }
        ModelContainer container(librarySchema(), {m_path});
        QCOMPARE(container.mainContext().fetch<Book>().size(), 1U);
    }

    void aStoreInMemoryIsNobodyElses()
    {
        ModelContainer container(librarySchema(), {});
        int runs = 0;
        container.inTurn([&runs] { ++runs; });
        QCOMPARE(runs, 1);
    }

private:
    /// Only if there is none.
    int addFirstBook()
    {
        try {
            ModelContainer container(librarySchema(), {m_path});
            container.inTurn([&container] {
                ModelContext &context = container.mainContext();
                if (!context.fetch<Book>().empty())
                    return;
                context.insert(std::make_shared<Book>(u"B"_s));
                context.save();
            });
            return 0;
        } catch (const std::exception &) {
            return 1;
        }
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::StoreTurnTest)
#include "StoreTurnTest.moc"
