#include "Features/Terminal/LocatedJson.h"

#include "Services/Share/Export/VisitJson.h"

#include <QJsonArray>
#include <QJsonValue>

#include <optional>
#include <vector>

namespace quorvel::LocatedJson {

using namespace Qt::StringLiterals;

namespace {

QJsonArray cafes(const std::vector<PlaceCandidate> &candidates)
{
    QJsonArray result;
    for (const PlaceCandidate &candidate : candidates)
        result.append(cafe(candidate));
    return result;
}

QJsonValue wifi(const LocatedSnapshot &snapshot)
{
    if (!snapshot.ssid)
        return QJsonValue::Null;
    QJsonObject network{{u"ssid"_s, *snapshot.ssid},
                        {u"hasRememberedPassword"_s, snapshot.hasRememberedPassword},
                        {u"rssiDBm"_s, QJsonValue::Null},
                        {u"bars"_s, QJsonValue::Null},
                        {u"label"_s, QJsonValue::Null}};
    if (const auto &signal = snapshot.signal) {
        network[u"rssiDBm"_s] = signal->rssiDBm;
        network[u"bars"_s] = signal->bars;
        network[u"label"_s] = signal->label;
    }
    return network;
}

QString status(const ViewState<LocatedSnapshot> &state)
{
    if (state.isError())
        return u"locationDenied"_s;
    return state.loadedValue()->selectedCafe ? u"located"_s : u"noCafe"_s;
}

} // namespace

QJsonObject result(const ViewState<LocatedSnapshot> &state)
{
    const auto *loaded = state.loadedValue();
    const LocatedSnapshot snapshot = loaded ? *loaded : LocatedSnapshot();
    return {{u"version"_s, 1},
            {u"status"_s, status(state)},
            {u"selectedCafe"_s, cafe(snapshot.selectedCafe)},
            {u"nearbyCandidates"_s, cafes(snapshot.nearbyCandidates)},
            {u"weather"_s, VisitJson::weather(snapshot.weather)},
            {u"wifi"_s, wifi(snapshot)}};
}

QJsonValue cafe(const std::optional<PlaceCandidate> &candidate)
{
    if (!candidate)
        return QJsonValue::Null;
    return QJsonObject{{u"id"_s, candidate->id},
                       {u"name"_s, candidate->name},
                       {u"latitude"_s, candidate->latitude},
                       {u"longitude"_s, candidate->longitude},
                       {u"distanceMeters"_s, candidate->distanceMeters},
                       {u"category"_s, candidate->category},
                       {u"address"_s, VisitJson::text(candidate->address)},
                       {u"mapItemIdentifier"_s, VisitJson::text(candidate->mapItemIdentifier)}};
}

} // namespace quorvel::LocatedJson
