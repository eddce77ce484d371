#include "Tests/Contract/PointsOfInterestSearch/PointsOfInterestSearchContract.h"

#include "Tests/Support/Heard.h"
#include "Tests/Support/Patience.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

using Places = std::vector<PointOfInterest>;
using Case = PointsOfInterestError::Case;

const PointsOfInterestRequest cafesAround{.center = {.latitude = 10.7769, .longitude = 106.7009},
                                          .radiusMeters = 100,
                                          .categories = {PointOfInterestCategory::Cafe}};

PointOfInterest cafe(const QString &identifier, const std::optional<QString> &name = {},
                     const std::optional<QString> &address = {})
{
    return {.identifier = identifier,
            .name = name,
            .coordinate = cafesAround.center,
            .category = u"MKPOICategoryCafe"_s,
            .address = address};
}

std::shared_ptr<Heard<Places>> find(PointsOfInterestSearch &map)
{
    return hear<Places>(
        [&](Completion<Places> completion) { map.search(cafesAround, std::move(completion)); });
}

} // namespace

void PointsOfInterestSearchContract::everyPlaceIsFoundWithAllThatIsKnownOfIt()
{
    const Places places{cafe(u"node/1"_s, u"Cà phê \"<b>\""_s, u"18 Đường Mưa Rào"_s),
                        cafe(u"way/2"_s, u"Blue Door"_s), cafe(u"relation/3"_s)};
    willFind(places);
    const auto heard = find(*m_map);
    QVERIFY2(heard->value.has_value(), qPrintable(heard->error));
    // In any order, since the map promises none.
    QVERIFY(heard->value->size() == places.size() &&
            std::is_permutation(places.begin(), places.end(), heard->value->begin()));
    QCoreApplication::processEvents();
    QCOMPARE(heard->count, 1);
}

void PointsOfInterestSearchContract::anEmptyDistrictIsNoFailure()
{
    willFind({});
    QVERIFY(find(*m_map)->value == Places());
}

void PointsOfInterestSearchContract::everyFailureHasItsSentence_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *name, Case kind, const QString &sentence) {
        QTest::newRow(name) << int(kind) << sentence;
    };
    row("unreachable", Case::Unreachable, u"The map service cannot be reached: "_s);
    row("busy", Case::Busy, u"The map service is busy. Try again in a while."_s);
    row("refused", Case::Refused, u"The map service returned HTTP 400."_s);
    row("unreadable", Case::Unreadable, u"The map service sent an answer that makes no sense."_s);
}

void PointsOfInterestSearchContract::everyFailureHasItsSentence()
{
    QFETCH(const int, kind);
    QFETCH(const QString, sentence);
    willFail(Case(kind));
    const auto heard = find(*m_map);
    QVERIFY(!heard->value);
    QVERIFY2(heard->error.startsWith(sentence), qPrintable(heard->error));
}

void PointsOfInterestSearchContract::aMapIsSearchedAgainAndAgain()
{
    for (const auto &identifier : {u"node/1"_s, u"node/2"_s}) {
        willFind({cafe(identifier)});
        QVERIFY(find(*m_map)->value == Places{cafe(identifier)});
    }
}

void PointsOfInterestSearchContract::openSearchesEndAsCancelledWithTheMap()
{
    willHold();
    const auto heard = std::make_shared<Heard<Places>>();
    m_map->search(cafesAround, Heard<Places>::by(heard));
    QTRY_VERIFY(isHeld());
    QCOMPARE(heard->count, 0);
    m_map.reset();
    QTRY_COMPARE(heard->count, 1);
    QCOMPARE(heard->error, PointsOfInterestError(Case::Cancelled).errorDescription());
}

void PointsOfInterestSearchContract::whoWaitsMayDestroyTheMap()
{
    willFind({});
    int count = 0;
    m_map->search(cafesAround, [&](const Outcome<Places> &) {
        ++count;
        m_map.reset();
    });
    QTRY_COMPARE(count, 1);
    QVERIFY(!m_map);
}

} // namespace quorvel::tests
