#include "Core/Persistence/ModelContainer+App.h"
#include "Core/Persistence/SwiftDataCheckInRepository.h"
#include "Platform/Files/Xdg/XdgFileManager.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/SeededRandom.h"

#include <QDir>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr int killCount = 100;
constexpr int killsBetweenChecks = 10;
constexpr int cafeCount = 5;
/// A start takes about 20 ms, so some kills hit the opening of the store.
constexpr int longestLifeMilliseconds = 60;

QSet<QUuid> idsIn(const QByteArray &report)
{
    QSet<QUuid> ids;
    for (const QByteArray &line : report.split('\n'))
        if (const QUuid id = QUuid::fromString(QLatin1StringView(line)); !id.isNull())
            ids.insert(id);
    return ids;
}

/// Runs a process that checks in until it is killed, and returns the visits that it reported as
/// saved.
QSet<QUuid> checkInUntilKilled(const QString &dataFolder, QRandomGenerator &random)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(CHECK_IN_FOREVER), {dataFolder});
    const bool waitsForAReport = random.bounded(4) != 0;
    if (waitsForAReport && !process.waitForReadyRead(patienceMilliseconds))
        qFatal("no visit was reported");
    if (process.waitForFinished(random.bounded(longestLifeMilliseconds)))
        qFatal("it ended by itself");
    process.kill();
    process.waitForFinished();
    return idsIn(process.readAllStandardOutput());
}

QSet<QUuid> storedIds(const QString &dataFolder)
{
    const XdgFileManager files({.dataHome = dataFolder});
    SwiftDataCheckInRepository repository(AppModelContainer::make(InMemory::No, files),
                                          CheckInPhotoStore(files), Clock::system());
    QSet<QUuid> ids;
    for (const auto &checkIn : repository.allCheckIns())
        ids.insert(checkIn->id());
    return ids;
}

SQLite::Database inspect(const QString &dataFolder)
{
    return {QDir(dataFolder).filePath(u"Quorvel/Quorvel.store"_s).toStdString(),
            SQLite::OPEN_READWRITE};
}

} // namespace

class CrashTest final : public QObject
{
    Q_OBJECT

private slots:
    void aReportedVisitOutlivesEveryKill()
    {
        const QTemporaryDir folder;
        QRandomGenerator random = seededRandom();
        QSet<QUuid> reported;
        for (int kill = 1; kill <= killCount; ++kill) {
            reported.unite(checkInUntilKilled(folder.path(), random));
            if (kill % killsBetweenChecks != 0)
                continue;
            const QSet<QUuid> lost = reported - storedIds(folder.path());
            QVERIFY2(lost.isEmpty(),
                     qPrintable(u"%1 visits lost by kill %2"_s.arg(lost.size()).arg(kill)));
            auto file = inspect(folder.path());
            QCOMPARE(file.execAndGet("PRAGMA integrity_check").getText(), "ok");
            QVERIFY(!SQLite::Statement(file, "PRAGMA foreign_key_check").executeStep());
        }
        qInfo("%d kills, %d visits reported", killCount, int(reported.size()));
        QVERIFY(reported.size() > killCount / 2);
        QCOMPARE(inspect(folder.path()).execAndGet("SELECT count(*) FROM Cafe").getInt(),
                 cafeCount);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::CrashTest)
#include "CrashTest.moc"
