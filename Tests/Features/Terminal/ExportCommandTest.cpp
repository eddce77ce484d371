#include "Features/Terminal/Commands/ExportCommand.h"

#include "Models/CheckIn.h"
#include "Models/WorkRatings.h"
#include "Platform/Files/FileError.h"
#include "Tests/Features/Terminal/TerminalWorld.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>

#include <cerrno>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

std::shared_ptr<CheckIn> visit()
{
    return std::make_shared<CheckIn>(QUuid::createUuid(), instant(u"2026-11-20T10:00:00Z"_s),
                                     u"calm"_s, std::nullopt, std::nullopt, WorkRatings(),
                                     std::nullopt, nullptr);
}

} // namespace

class ExportCommandTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world.emplace();
        m_world->store.visits = {visit(), visit()};
    }

    void eachFormatIsPrinted_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QByteArray>("beginning");
        QTest::newRow("json") << u"json"_s << QByteArray("{\"version\":1,\"visits\":[\n{");
        QTest::newRow("csv") << u"csv"_s << QByteArray("id,date,");
        QTest::newRow("geojson") << u"geojson"_s
                                 << QByteArray("{\"type\":\"FeatureCollection\",\"features\":[\n{");
    }

    void eachFormatIsPrinted()
    {
        QFETCH(const QString, format);
        QFETCH(const QByteArray, beginning);
        QCOMPARE(m_world->run({u"export"_s, u"--format"_s, format}), done);
        QVERIFY(m_world->terminal.printed.startsWith(beginning));
        QCOMPARE(m_world->terminal.printed.count("calm"), 2);
        QCOMPARE(m_world->noted(), QString());
    }

    void aDashIsStandardOutput()
    {
        QCOMPARE(m_world->run({u"export"_s, u"--format=csv"_s, u"--output"_s, u"-"_s}), done);
        QCOMPARE(m_world->terminal.printed.count("calm"), 2);
        QVERIFY(m_world->files.files.isEmpty());
    }

    void aFileIsWrittenForItsUserAlone()
    {
        const QString path = m_folder.filePath(u"visits.csv"_s);
        QCOMPARE(m_world->run({u"export"_s, u"--format=csv"_s, u"--output"_s, path}), done);
        QCOMPARE(m_world->files.files.keys(), QStringList({path}));
        QCOMPARE(m_world->files.files[path].count("calm"), 2);
        QCOMPARE(m_world->printed(), QString());
    }

    void aRelativePathIsFromHere()
    {
        QCOMPARE(m_world->run({u"export"_s, u"--format=csv"_s, u"--output=visits.csv"_s}), done);
        QCOMPARE(m_world->files.files.keys(),
                 QStringList({QDir::current().absoluteFilePath(u"visits.csv"_s)}));
    }

    void aFileThatCannotBeWrittenIsAFailure()
    {
        const QString path = m_folder.filePath(u"visits.csv"_s);
        m_world->files.failures.insert(path, {FileError::Operation::WriteFile, path, ENOSPC});
        QCOMPARE(m_world->run({u"export"_s, u"--format=csv"_s, u"--output"_s, path}), failure);
        QVERIFY(m_world->noted().contains(path));
        QVERIFY(m_world->noted().contains(u"No space left on device"_s));
    }

    void whatIsNoFileIsRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("a folder") << m_folder.path();
        QTest::newRow("a folder to be") << m_folder.filePath(u"new/"_s);
        QTest::newRow("a device") << u"/dev/null"_s;
        QTest::newRow("nothing") << QString();
    }

    void whatIsNoFileIsRefused()
    {
        QFETCH(const QString, path);
        QCOMPARE(m_world->run({u"export"_s, u"--format=csv"_s, u"--output"_s, path}), usage);
        QVERIFY(m_world->noted().startsWith(u"quorvel: “%1” is no file to write to\n"_s.arg(path)));
        QVERIFY(m_world->files.files.isEmpty());
    }

    void aFormatIsNeeded()
    {
        QCOMPARE(m_world->run({u"export"_s}), usage);
        QVERIFY(
            m_world->noted().startsWith(u"quorvel: “--format” says how: json, csv or geojson\n"_s));
        QCOMPARE(m_world->run({u"export"_s, u"--format"_s, u"xml"_s}), usage);
        QVERIFY(
            m_world->noted().startsWith(u"quorvel: “xml” is no format: json, csv or geojson\n"_s));
        QVERIFY(m_world->store.calls.isEmpty());
    }

    void aStoreThatFailsIsAFailureAndWritesNothing()
    {
        const QString path = m_folder.filePath(u"visits.csv"_s);
        m_world->store.failing = {u"allCheckIns"_s};
        m_world->store.failure = u"The store is damaged."_s;
        QCOMPARE(m_world->run({u"export"_s, u"--format=csv"_s, u"--output"_s, path}), failure);
        QCOMPARE(m_world->noted(), u"quorvel: The store is damaged.\n"_s);
        QVERIFY(m_world->files.files.isEmpty());
    }

    void outputThatCannotBeWrittenIsAFailure()
    {
        m_world->terminal.failure = EBADF;
        QCOMPARE(m_world->run({u"export"_s, u"--format=csv"_s}), failure);
        QVERIFY(m_world->noted().contains(u"The output could not be written"_s));
    }

    void passwordsAreNotAskedFor()
    {
        m_world->loopFailure.emplace(u"No service is needed."_s);
        QCOMPARE(m_world->run({u"export"_s, u"--format=json"_s}), done);
    }

private:
    QTemporaryDir m_folder;
    std::optional<TerminalWorld> m_world;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ExportCommandTest)
#include "ExportCommandTest.moc"
