#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"

#include "Platform/Clock/FakeClock.h"
#include "Platform/Http/FakeHttpClient.h"
#include "Platform/Http/HttpRequest.h"
#include "Platform/Http/HttpResponse.h"
#include "Platform/Http/QtHttpClient.h"
#include "Platform/PointsOfInterest/PointOfInterest.h"
#include "Tests/Support/Heard.h"
#include "Tests/Support/Instants.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Places = std::vector<PointOfInterest>;
using Answer = std::shared_ptr<Heard<Places>>;

const QString busy = u"The map service is busy. Try again in a while."_s;
const QString unreadable = u"The map service sent an answer that makes no sense."_s;

const QUrl first(u"https://first.example/api/interpreter"_s);
const QUrl second(u"https://second.example/api/interpreter"_s);

PointsOfInterestRequest around(double latitude, double longitude, double radiusMeters = 100)
{
    return {.center = {.latitude = latitude, .longitude = longitude},
            .radiusMeters = radiusMeters,
            .categories = {PointOfInterestCategory::Cafe}};
}

HttpResponse answer(int status, const QByteArray &body)
{
    return {.statusCode = status, .body = body};
}

HttpResponse cafe(int id = 1)
{
    return answer(200, "{\"elements\": [{\"type\": \"node\", \"lat\": 1, \"lon\": 2, \"id\": " +
                           QByteArray::number(id) + "}]}");
}

HttpResponse nothing()
{
    return answer(200, R"({"elements": []})");
}

Answer ask(PointsOfInterestSearch &map, const PointsOfInterestRequest &request = around(1, 2))
{
    return hear<Places>(
        [&](Completion<Places> completion) { map.search(request, std::move(completion)); });
}

} // namespace

class OverpassPointsOfInterestTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_clock.instant = instant(u"2026-05-02T09:20:00Z"_s);
        m_web = std::make_unique<FakeHttpClient>();
        m_map =
            std::make_unique<OverpassPointsOfInterest>(*m_web, m_clock, QList<QUrl>{first, second});
    }

    void theQueryIsWrittenToTheLetter_data()
    {
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<double>("radius");
        QTest::addColumn<QByteArray>("area");
        QTest::newRow("plain") << 10.7769 << 106.7009 << 100.0
                               << QByteArray("101,10.7769000,106.7009000");
        QTest::newRow("south and west")
            << -33.8688 << -70.25 << 100.0 << QByteArray("101,-33.8688000,-70.2500000");
        QTest::newRow("near zero") << 1e-7 << 0.0 << 99.5 << QByteArray("101,0.0000001,0.0000000");
    }

    void theQueryIsWrittenToTheLetter()
    {
        QFETCH(const double, latitude);
        QFETCH(const double, longitude);
        QFETCH(const double, radius);
        QFETCH(const QByteArray, area);
        m_web->calls.willSucceed(nothing());
        QVERIFY(ask(*m_map, around(latitude, longitude, radius))->value);
        const HttpRequest request = m_web->calls.requests.front();
        QCOMPARE(request.url, first);
        QVERIFY(request.method == HttpRequest::Method::Post);
        QCOMPARE(request.timeout, 20s);
        QVERIFY(request.body.startsWith("data=%5Bout%3Ajson%5D"));
        QCOMPARE(QByteArray::fromPercentEncoding(request.body),
                 "data=[out:json][timeout:15];nwr[amenity=cafe](around:" + area +
                     ");out tags center;");
    }

    void thePlacesAreThoseOfTheReply()
    {
        m_web->calls.willSucceed(cafe(5));
        const auto heard = ask(*m_map);
        QCOMPARE(heard->value->size(), 1U);
        QCOMPARE(heard->value->front().identifier, u"node/5"_s);
        m_web->calls.willSucceed(nothing());
        QVERIFY(ask(*m_map)->value->empty());
    }

    void answersThatAreNoneFail_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("sentence");
        const QByteArray page("<html><title>Response</title></html>");
        QTest::newRow("page") << 200 << page << unreadable;
        QTest::newRow("no content") << 204 << QByteArray() << unreadable;
        QTest::newRow("gave up") << 200
                                 << QByteArray(
                                        R"({"elements": [], "remark": "runtime error: too slow"})")
                                 << busy;
        for (const int status : {199, 300, 304, 400, 404, 406})
            QTest::addRow("%d", status)
                << status << page << u"The map service returned HTTP %1."_s.arg(status);
        QTest::newRow("429") << 429 << page << busy;
    }

    void answersThatAreNoneFail()
    {
        QFETCH(const int, status);
        QFETCH(const QByteArray, body);
        QFETCH(const QString, sentence);
        m_web->calls.willSucceed(answer(status, body));
        const auto heard = ask(*m_map);
        QCOMPARE(heard->error, sentence);
        QCOMPARE(heard->count, 1);
        QCOMPARE(m_web->calls.requests.size(), 1U);
    }

    void anAnswerThatIsNotHttpFails()
    {
        m_web->calls.willSucceed({.statusCode = std::nullopt, .body = nothing().body});
        QCOMPARE(ask(*m_map)->error, unreadable);
    }

    void anAnswerThatIsTooLargeFails()
    {
        m_web->calls.willFail(HttpError(HttpError::Case::BodyTooLarge));
        QCOMPARE(ask(*m_map)->error, unreadable);
        QCOMPARE(m_web->calls.requests.size(), 1U);
    }

    void aServerThatIsDownIsReplacedByTheNext_data()
    {
        QTest::addColumn<int>("status");
        QTest::newRow("no answer") << 0;
        for (const int status : {500, 502, 503, 504, 599})
            QTest::addRow("%d", status) << status;
    }

    void aServerThatIsDownIsReplacedByTheNext()
    {
        QFETCH(const int, status);
        if (status == 0)
            m_web->calls.willFail(HttpError::transport(u"Connection refused"_s));
        else
            m_web->calls.willSucceed(answer(status, "down"));
        m_web->calls.willSucceed(cafe());
        QCOMPARE(ask(*m_map)->value->size(), 1U);
        QCOMPARE(urls(), QList<QUrl>({first, second}));
        QCOMPARE(m_web->calls.requests[0].body, m_web->calls.requests[1].body);
    }

    void theServerThatAnsweredIsAskedNextTime()
    {
        m_web->calls.willFail(HttpError(HttpError::Case::TimedOut));
        m_web->calls.willSucceed(cafe());
        m_web->calls.willSucceed(cafe());
        QVERIFY(ask(*m_map)->value);
        QVERIFY(ask(*m_map)->value);
        QCOMPARE(urls(), QList<QUrl>({first, second, second}));
    }

    void whenEveryServerIsDownTheLastOneIsTold_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("500") << 500 << u"The map service returned HTTP 500."_s;
        QTest::newRow("502") << 502 << u"The map service returned HTTP 502."_s;
        QTest::newRow("503") << 503 << busy;
        QTest::newRow("504") << 504 << busy;
    }

    void whenEveryServerIsDownTheLastOneIsTold()
    {
        QFETCH(const int, status);
        m_web->calls.willFail(HttpError::transport(u"Connection refused"_s));
        m_web->calls.willSucceed(answer(status, "down"));
        QTEST(ask(*m_map)->error, "sentence");
        QCOMPARE(urls(), QList<QUrl>({first, second}));
    }

    void aTransportThatFailsEverywhereSpeaksForItself()
    {
        m_web->calls.willFail(HttpError(HttpError::Case::TimedOut));
        m_web->calls.willFail(HttpError::transport(u"Connection refused"_s));
        QCOMPARE(ask(*m_map)->error, u"The map service cannot be reached: Connection refused"_s);
    }

    void afterTooManyRequestsNoServerIsAskedForThirtySeconds()
    {
        m_web->calls.willSucceed(answer(429, "too many"));
        QCOMPARE(ask(*m_map)->error, busy);
        m_clock.instant += 29999ms;
        QCOMPARE(ask(*m_map)->error, busy);
        QCOMPARE(urls(), QList<QUrl>({first}));

        m_clock.instant += 1ms;
        m_web->calls.willSucceed(cafe());
        QVERIFY(ask(*m_map)->value);
        QCOMPARE(urls(), QList<QUrl>({first, first}));
    }

    void aClockThatIsSetBackEndsThePause()
    {
        m_web->calls.willSucceed(answer(429, "too many"));
        QCOMPARE(ask(*m_map)->error, busy);
        m_clock.instant -= 1ms;
        m_web->calls.willSucceed(cafe());
        QVERIFY(ask(*m_map)->value);
    }

    void otherFailuresDoNotPause()
    {
        m_web->calls.willSucceed(answer(406, "no"));
        QVERIFY(!ask(*m_map)->value);
        m_web->calls.willSucceed(cafe());
        QVERIFY(ask(*m_map)->value);
    }

    void requestsGoOutOneAtATime()
    {
        m_web->calls.willHold();
        m_web->calls.willSucceed(cafe(2));
        m_web->calls.willSucceed(cafe(3));
        const std::array heard{begin(), begin(), begin()};
        turnEventLoop();
        QCOMPARE(m_web->calls.requests.size(), 1U);
        m_web->calls.release(Outcome<HttpResponse>::success(cafe(1)));
        QTRY_COMPARE(heard[2]->count, 1);
        for (std::size_t i = 0; i < heard.size(); ++i)
            QCOMPARE(heard[i]->value->front().identifier, u"node/%1"_s.arg(i + 1));
        QCOMPARE(m_web->calls.requests.size(), 3U);
    }

    void waitingSearchesEndWhenThePauseBegins()
    {
        m_web->calls.willSucceed(answer(429, "too many"));
        const std::array heard{begin(), begin()};
        QTRY_COMPARE(heard[1]->count, 1);
        QCOMPARE(heard[0]->error, busy);
        QCOMPARE(heard[1]->error, busy);
        QCOMPARE(m_web->calls.requests.size(), 1U);
    }

    void destroyingTheMapCancelsWhatIsOpenAndWhatWaits()
    {
        m_web->calls.willHold();
        const std::array heard{begin(), begin()};
        turnEventLoop();
        m_map.reset();
        for (const Answer &each : heard) {
            QCOMPARE(each->count, 1);
            QCOMPARE(each->error, u"The search was cancelled."_s);
        }
        m_web->calls.release(Outcome<HttpResponse>::success(cafe()));
        turnEventLoop();
        QCOMPARE(heard[0]->count, 1);
    }

    void destroyingTheMapBeforeItBeginsAsksNobody()
    {
        const Answer heard = begin();
        m_map.reset();
        turnEventLoop();
        QCOMPARE(heard->count, 1);
        QVERIFY(m_web->calls.requests.empty());
    }

    void aSessionThatEndsIsNotTriedElsewhere()
    {
        m_web->calls.willFail(HttpError(HttpError::Case::Cancelled));
        QCOMPARE(ask(*m_map)->error, u"The search was cancelled."_s);
        QCOMPARE(m_web->calls.requests.size(), 1U);
    }

    void whoWaitsMayDestroyTheMap()
    {
        m_web->calls.willSucceed(cafe());
        int count = 0;
        m_map->search(around(1, 2), [&](const Outcome<Places> &) {
            ++count;
            m_map.reset();
        });
        const Answer waiting = begin();
        QTRY_COMPARE(count, 1);
        QCOMPARE(waiting->error, u"The search was cancelled."_s);
    }

    void thereIsMoreThanOneServerByDefault()
    {
        QVERIFY(OverpassPointsOfInterest::defaultEndpoints.size() > 1);
        for (const QUrl &url : OverpassPointsOfInterest::defaultEndpoints)
            QCOMPARE(url.scheme(), u"https"_s);
    }

    void realServersAreAskedOverRealConnections()
    {
        ScriptedHttpServer down(ScriptedHttpServer::raw("not HTTP"));
        ScriptedHttpServer up(ScriptedHttpServer::whole(200, cafe(9).body));
        QtHttpClient client;
        OverpassPointsOfInterest map(client, m_clock, {down.url(), up.url()});
        const auto heard = ask(map, around(10.5, 106.25));
        QCOMPARE(heard->value->front().identifier, u"node/9"_s);
        QCOMPARE(up.requests.size(), 1);
        QCOMPARE(QByteArray::fromPercentEncoding(up.requests.first().body),
                 "data=[out:json][timeout:15];"
                 "nwr[amenity=cafe](around:101,10.5000000,106.2500000);out tags center;");
    }

private:
    [[nodiscard]] Answer begin() const
    {
        auto heard = std::make_shared<Heard<Places>>();
        m_map->search(around(1, 2), Heard<Places>::by(heard));
        return heard;
    }

    [[nodiscard]] QList<QUrl> urls() const
    {
        QList<QUrl> urls;
        for (const HttpRequest &request : m_web->calls.requests)
            urls.append(request.url);
        return urls;
    }

    FakeClock m_clock{Instant()};
    std::unique_ptr<FakeHttpClient> m_web;
    std::unique_ptr<OverpassPointsOfInterest> m_map;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::OverpassPointsOfInterestTest)
#include "OverpassPointsOfInterestTest.moc"
