#include "Benchmarks/Comparison.h"
#include "Platform/PointsOfInterest/OverpassReply.h"
#include "Services/Places/PlacesRanking.h"

#include <QJsonDocument>
#include <QRandomGenerator>

#include <algorithm>
#include <utility>
#include <vector>

namespace quorvel::benchmarks {

namespace {

using namespace Qt::StringLiterals;

constexpr int candidateCount = 10000;
constexpr double farthestMeters = 125;
constexpr double radiusMeters = 100;
constexpr qsizetype replyBytes = qsizetype(1024) * 1024;
constexpr int roundCount = 101;
constexpr quint32 seed = 3;

std::vector<PlaceCandidate> someCandidates()
{
    QRandomGenerator random(seed);
    std::vector<PlaceCandidate> candidates;
    candidates.reserve(candidateCount);
    for (int i = 0; i < candidateCount; ++i) {
        const QString identifier = u"node/%1"_s.arg(i);
        candidates.push_back({.id = identifier,
                              .name = u"Café %1"_s.arg(i),
                              .latitude = random.generateDouble(),
                              .longitude = random.generateDouble(),
                              .distanceMeters = random.bounded(farthestMeters),
                              .category = u"Cafe"_s,
                              .address = u"%1 Benchmark Street"_s.arg(i),
                              .mapItemIdentifier = identifier});
    }
    return candidates;
}

std::vector<double> distancesOf(const std::vector<PlaceCandidate> &candidates)
{
    std::vector<double> distances;
    distances.reserve(candidates.size());
    for (const PlaceCandidate &candidate : candidates)
        distances.push_back(candidate.distanceMeters);
    return distances;
}

std::vector<double> plainlySorted(std::vector<double> distances)
{
    std::erase_if(distances, [](double distance) { return !(distance <= radiusMeters); });
    std::ranges::stable_sort(distances);
    return distances;
}

/// Nodes and ways in turns, with the usual tags of cafés.
QByteArray someReply()
{
    QByteArray elements;
    for (int id = 1; elements.size() < replyBytes; ++id) {
        const QByteArray position = "\"lat\": 10.7769420, \"lon\": 106.7010130";
        elements += id > 1 ? ",\n{\n  \"id\": " : "\n{\n  \"id\": ";
        elements += QByteArray::number(id);
        elements += id % 2 == 0 ? ",\n  \"type\": \"node\",\n  " + position
                                : ",\n  \"type\": \"way\",\n  \"center\": {" + position + "}";
        elements += ",\n  \"tags\": {\n    \"addr:housenumber\": \"12\",\n"
                    "    \"addr:street\": \"Đường Đo Lường\",\n    \"amenity\": \"cafe\",\n"
                    "    \"cuisine\": \"coffee_shop\",\n    \"internet_access\": \"wlan\",\n"
                    "    \"name\": \"Quán Đo\",\n    \"opening_hours\": \"Mo-Su 07:00-22:00\"\n  "
                    "}\n}";
    }
    return "{\"version\": 0.6, \"elements\": [" + elements + "]}";
}

void compareRankings()
{
    const auto candidates = someCandidates();
    const auto distances = distancesOf(candidates);
    const auto ours = [&] {
        auto found = candidates;
        std::vector<PlaceCandidate> sorted;
        return timeOf(
            [&] { sorted = PlacesRanking::sortedWithinRadius(std::move(found), radiusMeters); });
    };
    const auto reference = [&] {
        auto found = distances;
        std::vector<double> sorted;
        return timeOf([&] { sorted = plainlySorted(std::move(found)); });
    };
    printRow("rank 10,000 candidates", interleaved(roundCount, ours, reference));
}

void compareReplies()
{
    const QByteArray reply = someReply();
    const auto ours = [&] {
        std::vector<PointOfInterest> points;
        return timeOf([&] { points = OverpassReply::pointsOfInterest(reply); });
    };
    const auto reference = [&] {
        QJsonDocument document;
        return timeOf([&] { document = QJsonDocument::fromJson(reply); });
    };
    printRow("map a reply of 1 MB", interleaved(roundCount, ours, reference));
}

} // namespace

} // namespace quorvel::benchmarks

int main()
{
    using namespace quorvel::benchmarks;
    printHeading("Places against sorted numbers and parsed JSON");
    compareRankings();
    compareReplies();
}
