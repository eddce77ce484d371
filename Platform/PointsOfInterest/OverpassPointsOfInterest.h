#pragma once

#include "Platform/Clock/Clock.h"
#include "Platform/Http/HttpClient.h"
#include "Platform/PointsOfInterest/PointsOfInterestError.h"
#include "Platform/PointsOfInterest/PointsOfInterestSearch.h"

#include <QObject>
#include <QUrl>

#include <chrono>
#include <deque>
#include <optional>
#include <vector>

namespace quorvel {

/// The map of OpenStreetMap through its Overpass interface, whose servers are shared by everybody:
/// one request at a time, a pause when a server asks for it, and another server when one is down.
/// One object serves the whole process. Searches that are open when it is destroyed end as
/// cancelled.
class OverpassPointsOfInterest final : public QObject, public PointsOfInterestSearch
{
    Q_OBJECT

public:
    /// How long no server is asked after a server reported too many requests.
    static constexpr std::chrono::seconds backOff{30};
    /// Public servers with the data of the whole planet, in the order in which they are tried.
    static const QList<QUrl> defaultEndpoints;

    /// The client and the clock must outlive this. There must be at least one endpoint.
    OverpassPointsOfInterest(HttpClient &client, const Clock &clock,
                             QList<QUrl> endpoints = defaultEndpoints);
    ~OverpassPointsOfInterest() override;

    void search(const PointsOfInterestRequest &request,
                Completion<std::vector<PointOfInterest>> completion) override;

private:
    using Places = std::vector<PointOfInterest>;
    struct Search
    {
        QByteArray form;
        qsizetype endpointsLeft = 0;
        Completion<Places> completion;
    };

    void beginLater();
    void begin();
    void post();
    void hear(Outcome<HttpResponse> outcome);
    void judge(const HttpResponse &response);
    void tryElsewhere(const PointsOfInterestError &error);
    void end(Outcome<Places> outcome);
    void fail(const PointsOfInterestError &error);
    [[nodiscard]] bool isBackingOff() const;

    HttpClient *m_client;
    const Clock *m_clock;
    QList<QUrl> m_endpoints;
    /// The endpoint of the next request: the one that answered last.
    qsizetype m_endpoint = 0;
    std::optional<Instant> m_refusedAt;
    /// The first one is in progress.
    std::deque<Search> m_searches;
};

} // namespace quorvel
