// The cost of the object store over plain SQLite, for a history of years.

#include "Benchmarks/Comparison.h"
#include "Benchmarks/Store/DataFolder.h"
#include "Benchmarks/Store/PlainStore.h"
#include "Benchmarks/Store/SampleVisits.h"
#include "Features/History/List/HistoryGrouping.h"
#include "Features/History/List/HistoryListModel.h"
#include "Platform/Clock/Clock.h"

#include <QFile>
#include <QStorageInfo>
#include <QTimeZone>
#include <QUuid>

#include <algorithm>
#include <cstdio>
#include <malloc.h>
#include <memory>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quorvel::benchmarks {

namespace {

using namespace Qt::StringLiterals;

constexpr int visitCount = 100'000;
constexpr int saveRounds = 400;
constexpr int loadRounds = 9;
constexpr int lookUpRounds = 400;
constexpr quint32 saveSeed = DataFolder::fillSeed + 1;
constexpr double bytesPerMegabyte = 1e6;

struct Memory
{
    double heapMegabytes = 0;
    double residentMegabytes = 0;

    static Memory now()
    {
        QFile status(u"/proc/self/statm"_s);
        if (!status.open(QIODevice::ReadOnly))
            qFatal("the process does not know its own size");
        const double residentPages = status.readAll().split(' ').at(1).toDouble();
        const auto heap = mallinfo2();
        return {double(heap.uordblks + heap.hblkhd) / bytesPerMegabyte,
                residentPages * double(sysconf(_SC_PAGESIZE)) / bytesPerMegabyte};
    }
};

void measureMemory(const DataFolder &folder)
{
    auto repository = folder.repository();
    (void)repository.hasCheckedInToday(SampleVisits::mapItemIdentifier(0));
    const Memory before = Memory::now();
    const auto visits = repository.allCheckIns();
    const Memory after = Memory::now();
    printRow("memory of all visits: heap", after.heapMegabytes - before.heapMegabytes, "MB",
             "< 45 MB");
    printRow("memory of all visits: resident", after.residentMegabytes - before.residentMegabytes,
             "MB", "< 45 MB");
}

PlainVisit plain(const CheckIn &visit)
{
    PlainVisit result{.date = visit.date().time_since_epoch().count(),
                      .note = visit.note().toStdString(),
                      .address = visit.address()->toStdString(),
                      .photoFilename = {},
                      .ratings = {visit.ratings().wifiSpeed, visit.ratings().outlets,
                                  visit.ratings().noise, visit.ratings().quietForCalls},
                      .weather = {},
                      .cafe = 1};
    std::ranges::copy(QUuid::createUuid().toRfc4122(), result.id.begin());
    if (const auto &weather = visit.weather()) {
        result.weather = PlainVisit::Weather{weather->temperatureC, weather->apparentTemperatureC,
                                             weather->weatherCode, weather->isDay,
                                             weather->capturedAt.time_since_epoch().count()};
    }
    return result;
}

void compareSaves(const DataFolder &folder, const DataFolder &plainFolder)
{
    SampleVisits visits(DataFolder::cafeCount, saveSeed);
    auto repository = folder.repository();
    PlainStore plainStore(plainFolder.store().toStdString());
    const auto cafe = repository.findOrCreateCafe(
        {.name = {}, .mapItemIdentifier = SampleVisits::mapItemIdentifier(0)});
    const auto ours = [&] {
        const auto visit = visits.nextAt(cafe);
        return timeOf([&] { repository.save(visit); });
    };
    const auto reference = [&] {
        const PlainVisit visit = plain(*visits.nextAt(cafe));
        return timeOf([&] { plainStore.save(visit); });
    };
    printRow("save one visit", interleaved(saveRounds, ours, reference), 1.3);
}

Milliseconds readPlainly(const DataFolder &folder)
{
    PlainStore plainStore(folder.store().toStdString());
    std::vector<PlainVisit> visits;
    return timeOf([&] { visits = plainStore.allVisits(); });
}

void compareLoads(const DataFolder &folder)
{
    const auto ours = [&] {
        auto repository = folder.repository();
        std::vector<std::shared_ptr<CheckIn>> visits;
        return timeOf([&] { visits = repository.allCheckIns(); });
    };
    const auto oursAgain = [&] {
        auto repository = folder.repository();
        const auto visits = repository.allCheckIns();
        std::vector<std::shared_ptr<CheckIn>> sameVisits;
        return timeOf([&] { sameVisits = repository.allCheckIns(); });
    };
    const auto reference = [&] { return readPlainly(folder); };
    printRow("load all visits", interleaved(loadRounds, ours, reference), 3);
    printRow("load all visits while they are loaded",
             interleaved(loadRounds, oursAgain, reference));
}

using Visits = std::vector<std::shared_ptr<CheckIn>>;

/// As seen from the last visit, in a zone whose clocks change twice a year.
std::vector<HistorySection> grouped(Visits visits)
{
    const Instant now = visits.front()->date();
    return HistoryGrouping::group(std::move(visits), now, Calendar{QTimeZone("Europe/Berlin")},
                                  QLocale(u"en_US"_s));
}

void compareGrouping(const DataFolder &folder)
{
    auto repository = folder.repository();
    const Visits visits = repository.allCheckIns();
    const auto ours = [&] {
        Visits given = visits;
        std::vector<HistorySection> sections;
        return timeOf([&] { sections = grouped(std::move(given)); });
    };
    printRow("group all visits, against reading them",
             interleaved(loadRounds, ours, [&] { return readPlainly(folder); }));
}

void compareListing(const DataFolder &folder)
{
    auto repository = folder.repository();
    const Visits visits = repository.allCheckIns();
    const auto before = grouped({visits.begin() + 1, visits.end()});
    const auto after = grouped(visits);
    const auto ours = [&] {
        HistoryListModel list;
        list.setSections(before, Calendar{QTimeZone::utc()}, QLocale::c());
        return timeOf([&] { list.setSections(after, Calendar{QTimeZone::utc()}, QLocale::c()); });
    };
    printRow("list one more on top, against reading all",
             interleaved(loadRounds, ours, [&] { return readPlainly(folder); }));
}

void compareLookUps(const DataFolder &folder)
{
    auto repository = folder.repository();
    PlainStore plainStore(folder.store().toStdString());
    const DateInterval today = Clock::system().calendar().day(Clock::system().now());
    int cafe = 0;
    const auto ours = [&] {
        const QString identifier = SampleVisits::mapItemIdentifier(++cafe % DataFolder::cafeCount);
        return timeOf([&] { (void)repository.hasCheckedInToday(identifier); });
    };
    const auto reference = [&] {
        const auto identifier =
            SampleVisits::mapItemIdentifier(cafe % DataFolder::cafeCount).toStdString();
        return timeOf([&] {
            (void)plainStore.hasVisit(identifier, today.start.time_since_epoch().count(),
                                      today.end.time_since_epoch().count());
        });
    };
    printRow("checked in today, among 200 visits", interleaved(lookUpRounds, ours, reference));
}

} // namespace

} // namespace quorvel::benchmarks

int main()
{
    using namespace quorvel::benchmarks;
    const DataFolder folder;
    const DataFolder plainFolder;
    std::printf("%d visits to %d cafés, on %s\n", visitCount, DataFolder::cafeCount,
                QStorageInfo(folder.folder.path()).fileSystemType().constData());
    folder.fill(visitCount);
    plainFolder.copyStore(folder);
    printHeading("Object store against plain SQLite");
    measureMemory(folder);
    compareSaves(folder, plainFolder);
    compareLoads(folder);
    compareGrouping(folder);
    compareListing(folder);
    compareLookUps(folder);
}
