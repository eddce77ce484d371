#include "Platform/Http/QtHttpClient.h"
#include "Platform/PointsOfInterest/OverpassPointsOfInterest.h"
#include "Platform/PointsOfInterest/PointOfInterest.h"
#include "Tests/Contract/PointsOfInterestSearch/PointsOfInterestSearchContract.h"
#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <memory>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

using Case = PointsOfInterestError::Case;
using Server = ScriptedHttpServer;

QJsonObject element(const PointOfInterest &place)
{
    QJsonObject tags{{u"amenity"_s, u"cafe"_s}};
    if (place.name)
        tags.insert(u"name"_s, *place.name);
    if (place.address)
        tags.insert(u"addr:full"_s, *place.address);
    return {{u"type"_s, place.identifier->section(u'/', 0, 0)},
            {u"id"_s, place.identifier->section(u'/', 1).toLongLong()},
            {u"lat"_s, place.coordinate.latitude},
            {u"lon"_s, place.coordinate.longitude},
            {u"tags"_s, tags}};
}

Server::Answer failure(Case kind)
{
    switch (kind) {
    case Case::Unreachable:
        return Server::raw({});
    case Case::Busy:
        return Server::whole(429, "too many requests");
    case Case::Refused:
        return Server::whole(400, "parse error");
    case Case::Unreadable:
        return Server::whole(200, "<html>");
    case Case::Cancelled:
        break;
    }
    qFatal("no server can do that");
}

} // namespace

/// Uses real connections to a server on this machine.
class OverpassPointsOfInterestContractTest final : public PointsOfInterestSearchContract
{
    Q_OBJECT

    std::unique_ptr<PointsOfInterestSearch> make() override
    {
        m_isHeld = false;
        return std::make_unique<OverpassPointsOfInterest>(m_client, Clock::system(),
                                                          QList<QUrl>{m_server.url()});
    }

    void willFind(const Places &places) override
    {
        QJsonArray elements;
        for (const PointOfInterest &place : places)
            elements.append(element(place));
        const QJsonObject reply{{u"elements"_s, elements}};
        m_next = Server::whole(200, QJsonDocument(reply).toJson());
    }
    void willFail(Case kind) override { m_next = failure(kind); }
    void willHold() override
    {
        m_next = [this](const auto &, QTcpSocket &) { m_isHeld = true; };
    }
    bool isHeld() const override { return m_isHeld; }

    Server::Answer m_next;
    bool m_isHeld = false;
    Server m_server{[this](const auto &request, QTcpSocket &socket) { m_next(request, socket); }};
    QtHttpClient m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::OverpassPointsOfInterestContractTest)
#include "OverpassPointsOfInterestContractTest.moc"
