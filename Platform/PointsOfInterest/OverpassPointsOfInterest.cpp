#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"

#include "Platform/Http/HttpError.h"
#include "Platform/PointsOfInterest/OverpassReply.h"

#include <QMetaObject>
#include <QPointer>
#include <QUrl>

#include <chrono>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

using Case = PointsOfInterestError::Case;

/// The server's own limit plus the time of the network.
constexpr std::chrono::seconds serverLimit{15};
constexpr std::chrono::seconds timeout = serverLimit + std::chrono::seconds(5);

/// The server measures on a sphere, so a place slightly outside its radius may be inside ours.
constexpr double marginMeters = 1;

/// Ten-millionths of a degree, the precision of the map itself.
constexpr int decimals = 7;

QString filter(PointOfInterestCategory category)
{
    switch (category) {
    case PointOfInterestCategory::Cafe:
        return u"amenity=cafe"_s;
    }
    Q_UNREACHABLE();
}

QString query(const PointsOfInterestRequest &request)
{
    const QString around = u"around:%1,%2,%3"_s.arg(
        QString::number(std::ceil(request.radiusMeters + marginMeters), 'f', 0),
        QString::number(request.center.latitude, 'f', decimals),
        QString::number(request.center.longitude, 'f', decimals));
    QString text = u"[out:json][timeout:%1];"_s.arg(serverLimit.count());
    for (const PointOfInterestCategory category : request.categories)
        text += u"nwr[%1](%2);out tags center;"_s.arg(filter(category), around);
    return text;
}

bool isDown(int statusCode)
{
    return statusCode >= 500;
}

constexpr int tooManyRequests = 429;

PointsOfInterestError errorOf(int statusCode)
{
    constexpr int unavailable = 503;
    constexpr int gatewayTimeout = 504;
    if (statusCode == tooManyRequests || statusCode == unavailable || statusCode == gatewayTimeout)
        return PointsOfInterestError(Case::Busy);
    return PointsOfInterestError(Case::Refused, QString::number(statusCode));
}

Outcome<std::vector<PointOfInterest>> outcomeOf(const QByteArray &body)
{
    using Result = Outcome<std::vector<PointOfInterest>>;
    try {
        return Result::success(OverpassReply::pointsOfInterest(body));
    } catch (const PointsOfInterestError &error) {
        return Result::failure(error);
    }
}

} // namespace

const QList<QUrl> OverpassPointsOfInterest::defaultEndpoints{
    QUrl(u"https://overpass-api.de/api/interpreter"_s),
    QUrl(u"https://overpass.private.coffee/api/interpreter"_s)};

OverpassPointsOfInterest::OverpassPointsOfInterest(HttpClient &client, const Clock &clock,
                                                   QList<QUrl> endpoints)
    : m_client(&client)
    , m_clock(&clock)
    , m_endpoints(std::move(endpoints))
{}

OverpassPointsOfInterest::~OverpassPointsOfInterest()
{
    for (const Search &search : std::exchange(m_searches, {}))
        search.completion(Outcome<Places>::failure(PointsOfInterestError(Case::Cancelled)));
}

void OverpassPointsOfInterest::search(const PointsOfInterestRequest &request,
                                      Completion<Places> completion)
{
    m_searches.push_back({.form = "data=" + QUrl::toPercentEncoding(query(request)),
                          .endpointsLeft = m_endpoints.size(),
                          .completion = std::move(completion)});
    if (m_searches.size() == 1)
        beginLater();
}

void OverpassPointsOfInterest::beginLater()
{
    QMetaObject::invokeMethod(this, &OverpassPointsOfInterest::begin, Qt::QueuedConnection);
}

void OverpassPointsOfInterest::begin()
{
    if (isBackingOff())
        fail(PointsOfInterestError(Case::Busy));
    else
        post();
}

void OverpassPointsOfInterest::post()
{
    Search &search = m_searches.front();
    --search.endpointsLeft;
    // Lifetime: the client outlives this object, and so may the request.
    const auto hearIfAlive = [self = QPointer(this)](Outcome<HttpResponse> outcome) {
        if (self)
            self->hear(std::move(outcome));
    };
    m_client->send({.url = m_endpoints[m_endpoint],
                    .method = HttpRequest::Method::Post,
                    .body = search.form,
                    .timeout = timeout},
                   hearIfAlive);
}

void OverpassPointsOfInterest::hear(Outcome<HttpResponse> outcome)
{
    std::optional<HttpResponse> response;
    try {
        response = outcome.take();
    } catch (const HttpError &error) {
        if (error.kind() == HttpError::Case::Cancelled)
            fail(PointsOfInterestError(Case::Cancelled));
        else if (error.kind() == HttpError::Case::BodyTooLarge)
            fail(PointsOfInterestError(Case::Unreadable));
        else
            tryElsewhere(PointsOfInterestError(Case::Unreachable, error.errorDescription()));
        return;
    }
    judge(*response);
}

void OverpassPointsOfInterest::judge(const HttpResponse &response)
{
    const auto status = response.statusCode;
    if (!status)
        return fail(PointsOfInterestError(Case::Unreadable));
    if (response.isSuccess())
        return end(outcomeOf(response.body));
    if (isDown(*status))
        return tryElsewhere(errorOf(*status));
    if (status == tooManyRequests)
        m_refusedAt = m_clock->now();
    fail(errorOf(*status));
}

void OverpassPointsOfInterest::tryElsewhere(const PointsOfInterestError &error)
{
    m_endpoint = (m_endpoint + 1) % m_endpoints.size();
    if (m_searches.front().endpointsLeft > 0)
        post();
    else
        fail(error);
}

void OverpassPointsOfInterest::end(Outcome<Places> outcome)
{
    const Search search = std::move(m_searches.front());
    m_searches.pop_front();
    if (!m_searches.empty())
        beginLater();
    // Order: the receiver of the result may destroy this object.
    search.completion(std::move(outcome));
}

void OverpassPointsOfInterest::fail(const PointsOfInterestError &error)
{
    end(Outcome<Places>::failure(error));
}

bool OverpassPointsOfInterest::isBackingOff() const
{
    if (!m_refusedAt)
        return false;
    const auto elapsed = m_clock->now() - *m_refusedAt;
    // If the clock was set back, the pause ends. Otherwise it could last for ever.
    return elapsed >= elapsed.zero() && elapsed < backOff;
}

} // namespace quorvel
