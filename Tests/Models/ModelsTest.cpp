#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"
#include "Platform/ObjectStore/FetchDescriptor.h"
#include "Platform/ObjectStore/ModelContainer.h"
#include "Platform/ObjectStore/Sql/RowReader.h"
#include "Platform/ObjectStore/StoreError.h"

#include <QTest>
#include <QUuid>
#include <SQLiteCpp/SQLiteCpp.h>

#include <chrono>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

Schema schema()
{
    return {.version = {1, 0, 0}, .entities = {&Cafe::entity(), &CheckIn::entity()}};
}

std::shared_ptr<Cafe> cafe(const QString &name = u"A"_s)
{
    return std::make_shared<Cafe>(QUuid::createUuid(), name, 1.0, 2.0, std::nullopt, std::nullopt);
}

std::shared_ptr<CheckIn> visit(std::shared_ptr<Cafe> at)
{
    return std::make_shared<CheckIn>(QUuid::createUuid(), Instant(1ms), QString(), std::nullopt,
                                     std::nullopt, WorkRatings{3, 3, 3, 3}, std::nullopt,
                                     std::move(at));
}

/// Decodes a record from a row of literals.
template <class Record>
Record decoded(const std::string &select)
{
    SQLite::Database database(":memory:");
    SQLite::Statement statement(database, select);
    statement.executeStep();
    return decodeComposite<Record>(RowReader(statement), 0);
}

template <class Record>
QStringList keys()
{
    QStringList names;
    std::apply([&](const auto &...key) { (names.append(QString::fromLatin1(key.name)), ...); },
               Record::codingKeys());
    return names;
}

} // namespace

class ModelsTest final : public QObject
{
    Q_OBJECT

private slots:
    void recordsAreCodedUnderTheirKeys()
    {
        QCOMPARE(keys<WorkRatings>(),
                 (QStringList{u"wifiSpeed"_s, u"outlets"_s, u"noise"_s, u"quietForCalls"_s}));
        QCOMPARE(keys<WeatherSnapshot>(),
                 (QStringList{u"temperatureC"_s, u"apparentTemperatureC"_s, u"weatherCode"_s,
                              u"isDay"_s, u"capturedAt"_s}));
    }

    void ratingsDecodeAndAreNotClamped()
    {
        QCOMPARE(decoded<WorkRatings>("SELECT 1, 5, -9223372036854775808, 9223372036854775807"),
                 (WorkRatings{1, 5, std::numeric_limits<qint64>::min(),
                              std::numeric_limits<qint64>::max()}));
    }

    void everyKeyIsRequiredAndTyped_data()
    {
        QTest::addColumn<bool>("isWeather");
        QTest::addColumn<QString>("select");
        QTest::addColumn<QString>("complaint");
        const QStringList ratings{u"1"_s, u"2"_s, u"3"_s, u"4"_s};
        const QStringList weather{u"20.5"_s, u"21.5"_s, u"3"_s, u"1"_s, u"1000"_s};
        addRows(false, ratings, keys<WorkRatings>());
        addRows(true, weather, keys<WeatherSnapshot>());
    }

    void everyKeyIsRequiredAndTyped()
    {
        QFETCH(bool, isWeather);
        QFETCH(QString, select);
        QFETCH(QString, complaint);
        try {
            if (isWeather)
                (void)decoded<WeatherSnapshot>(select.toStdString());
            else
                (void)decoded<WorkRatings>(select.toStdString());
            QVERIFY2(complaint.isEmpty(), "was decoded");
        } catch (const StoreError &error) {
            QCOMPARE(error.code(), StoreError::Code::Decoding);
            QCOMPARE(error.errorDescription(), complaint);
        }
    }

    void equalityComparesEveryFieldOfRatings()
    {
        const WorkRatings ratings{1, 2, 3, 4};
        QCOMPARE(ratings, (WorkRatings{1, 2, 3, 4}));
        for (auto field : {&WorkRatings::wifiSpeed, &WorkRatings::outlets, &WorkRatings::noise,
                           &WorkRatings::quietForCalls}) {
            auto other = ratings;
            other.*field += 1;
            QVERIFY(other != ratings);
        }
    }

    void equalityComparesEveryFieldOfWeather()
    {
        const WeatherSnapshot weather{20, 21, 3, true, Instant(5ms)};
        QCOMPARE(weather, (WeatherSnapshot{20, 21, 3, true, Instant(5ms)}));
        QVERIFY(weather != (WeatherSnapshot{19, 21, 3, true, Instant(5ms)}));
        QVERIFY(weather != (WeatherSnapshot{20, 20, 3, true, Instant(5ms)}));
        QVERIFY(weather != (WeatherSnapshot{20, 21, 2, true, Instant(5ms)}));
        QVERIFY(weather != (WeatherSnapshot{20, 21, 3, false, Instant(5ms)}));
        QVERIFY(weather != (WeatherSnapshot{20, 21, 3, true, Instant(4ms)}));
    }

    void equalityComparesEveryFieldOfACandidate()
    {
        const PlaceCandidate place{.id = u"id"_s,
                                   .name = u"name"_s,
                                   .latitude = 1,
                                   .longitude = 2,
                                   .distanceMeters = 3,
                                   .category = u"Cafe"_s,
                                   .address = u"address"_s,
                                   .mapItemIdentifier = std::nullopt};
        auto other = place;
        QCOMPARE(other, place);
        other.distanceMeters = 3.5;
        QVERIFY(other != place);
        for (auto field : {&PlaceCandidate::id, &PlaceCandidate::name, &PlaceCandidate::category}) {
            other = place;
            other.*field = u"other"_s;
            QVERIFY(other != place);
        }
        for (auto field : {&PlaceCandidate::latitude, &PlaceCandidate::longitude}) {
            other = place;
            other.*field = 9;
            QVERIFY(other != place);
        }
        other = place;
        other.address = std::nullopt;
        QVERIFY(other != place);
        other = place;
        other.mapItemIdentifier = u""_s;
        QVERIFY(other != place);
    }

    void aCandidatesCoordinateIsItsPosition()
    {
        const PlaceCandidate place{.latitude = 10.77, .longitude = 106.7};
        QCOMPARE(place.coordinate(), (Coordinate{10.77, 106.7}));
    }

    void aNewCafeHasNoVisits() { QVERIFY(cafe()->checkIns().empty()); }

    void equalAttributesDoNotMakeOneCafe()
    {
        const auto one = cafe();
        const auto other = cafe();
        QVERIFY(one != other);
    }

    void deletingACafeTakesItsVisitsAlong()
    {
        ModelContainer container(schema(), {});
        auto &context = container.mainContext();
        const auto doomed = cafe(u"doomed"_s);
        const auto other = cafe(u"other"_s);
        for (const auto &at : {doomed, doomed, other})
            context.insert(visit(at));
        context.save();
        context.remove(doomed);
        context.save();
        const auto left = context.fetch<CheckIn>();
        QCOMPARE(left.size(), 1u);
        QCOMPARE(left.front()->cafe(), other);
        QCOMPARE(context.fetch<Cafe>().size(), 1u);
    }

    void deletingAVisitLeavesItsCafe()
    {
        ModelContainer container(schema(), {});
        auto &context = container.mainContext();
        const auto place = cafe();
        const auto gone = visit(place);
        const auto kept = visit(place);
        context.insert(gone);
        context.insert(kept);
        context.save();
        context.remove(gone);
        QCOMPARE(place->checkIns(), std::vector{kept});
        context.save();
        QCOMPARE(place->checkIns(), std::vector{kept});
        QVERIFY(place->isStored());
    }

    void everyAttributeMayBeWritten()
    {
        ModelContainer container(schema(), {});
        auto &context = container.mainContext();
        const auto place = cafe();
        const auto checkIn = visit(nullptr);
        context.insert(checkIn);
        context.insert(place);
        context.save();
        const auto id = QUuid::createUuid();
        const WeatherSnapshot weather{20, 21, 3, true, Instant(5ms)};
        checkIn->setId(id);
        checkIn->setDate(Instant(9ms));
        checkIn->setNote(u"note"_s);
        checkIn->setAddress(u"address"_s);
        checkIn->setPhotoFilename(u"photo"_s);
        checkIn->setRatings({1, 1, 1, 1});
        checkIn->setWeather(weather);
        checkIn->setCafe(place);
        place->setId(id);
        place->setName(u"B"_s);
        place->setLatitude(3);
        place->setLongitude(4);
        place->setLastKnownSSID(u"ssid"_s);
        place->setMapItemIdentifier(u"n/1"_s);
        context.save();
        QVERIFY(!context.hasChanges());
        const auto found = context.fetch(
            FetchDescriptor<Cafe>().whereEqual(Cafe::Keys::mapItemIdentifier, u"n/1"_s));
        QCOMPARE(found, std::vector{place});
        QCOMPARE(place->checkIns(), std::vector{checkIn});
        QCOMPARE(checkIn->weather(), std::optional(weather));
    }

private:
    /// One row that decodes. Then, for each key, one row without it and one with a text in its
    /// place.
    static void addRows(bool isWeather, const QStringList &values, const QStringList &keys)
    {
        const auto name = [&](const QString &what) {
            return (isWeather ? u"weather "_s : u"ratings "_s) + what;
        };
        const auto select = [&](const QStringList &literals) {
            QStringList columns;
            for (qsizetype i = 0; i < keys.size(); ++i)
                columns.append(literals[i] + u" AS "_s + keys[i]);
            return u"SELECT "_s + columns.join(u", "_s);
        };
        QTest::newRow(qPrintable(name(u"complete"_s))) << isWeather << select(values) << QString();
        for (qsizetype i = 0; i < keys.size(); ++i) {
            auto literals = values;
            literals[i] = u"NULL"_s;
            QTest::newRow(qPrintable(name(keys[i] + u" missing"_s)))
                << isWeather << select(literals)
                << u"The stored value “%1” is missing."_s.arg(keys[i]);
            literals[i] = u"'3'"_s;
            QTest::newRow(qPrintable(name(keys[i] + u" as text"_s)))
                << isWeather << select(literals)
                << u"The stored value “%1” is of the wrong type."_s.arg(keys[i]);
        }
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ModelsTest)
#include "ModelsTest.moc"
