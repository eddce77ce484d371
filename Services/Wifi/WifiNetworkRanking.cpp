#include "Services/Wifi/WifiNetworkRanking.h"

#include <QHash>

#include <algorithm>

namespace quorvel::WifiNetworkRanking {

namespace {

QList<WifiNetwork> bestOfEachName(const QList<WifiNetwork> &networks)
{
    QList<WifiNetwork> best;
    QHash<QString, qsizetype> places;
    for (const WifiNetwork &network : networks) {
        const auto place = places.constFind(network.ssid);
        if (place == places.constEnd()) {
            places.insert(network.ssid, best.size());
            best.append(network);
        } else if (best[*place].rssiDBm < network.rssiDBm) {
            best[*place] = network;
        }
    }
    return best;
}

} // namespace

QList<WifiNetwork> dedupeAndTop(const QList<WifiNetwork> &networks, qint64 limit)
{
    if (limit < 0)
        qFatal("WifiNetworkRanking::dedupeAndTop: the limit %lld is negative", limit);
    QList<WifiNetwork> ranked = bestOfEachName(networks);
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const WifiNetwork &left, const WifiNetwork &right) {
                         return left.rssiDBm > right.rssiDBm;
                     });
    return ranked.first(std::min<qint64>(limit, ranked.size()));
}

} // namespace quorvel::WifiNetworkRanking
