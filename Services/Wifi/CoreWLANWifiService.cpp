#include "Services/Wifi/CoreWLANWifiService.h"

#include "Core/Support/AppError.h"
#include "Platform/Wifi/WifiError.h"
#include "Services/Wifi/WifiNetworkRanking.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 listedNetworks = 3;

AppError networkError(const WifiError &error)
{
    return AppError::network(error.errorDescription());
}

AppError notFoundNearby(const QString &ssid)
{
    return AppError::network(u"Network \""_s + ssid + u"\" not found nearby"_s);
}

QList<WifiNetwork> withNames(const QList<ScannedNetwork> &scanned)
{
    QList<WifiNetwork> named;
    for (const ScannedNetwork &network : scanned)
        if (network.name)
            named.append({.ssid = network.name->text, .rssiDBm = network.rssiDBm});
    return named;
}

std::optional<WifiName> firstOfName(const QList<ScannedNetwork> &scanned, const QString &ssid)
{
    const auto match =
        std::find_if(scanned.begin(), scanned.end(), [&ssid](const ScannedNetwork &network) {
            return network.name && network.name->text == ssid;
        });
    return match == scanned.end() ? std::nullopt : match->name;
}

// Lifetime: coroutines may outlive the service, so they are not members of it.

Task<QList<WifiNetwork>> scan(WifiClient *client)
{
    Pending<QList<ScannedNetwork>> pending;
    client->scan(pending.completion());
    try {
        const auto scanned = co_await pending;
        co_return WifiNetworkRanking::dedupeAndTop(withNames(scanned), listedNetworks);
    } catch (const WifiError &error) {
        // A machine without a radio hears no networks. That is not a failure.
        if (error.code() != WifiError::Code::NoInterface)
            throw networkError(error);
    }
    co_return QList<WifiNetwork>();
}

Task<> join(WifiClient *client, QString ssid, QString password)
{
    try {
        Pending<QList<ScannedNetwork>> scanning;
        client->scan(scanning.completion());
        const auto scanned = co_await scanning;
        const auto name = firstOfName(scanned, ssid);
        if (!name)
            throw notFoundNearby(ssid);
        Pending<std::monostate> associating;
        client->associate(*name, password, associating.completion());
        co_await associating;
    } catch (const WifiError &error) {
        throw networkError(error);
    }
}

} // namespace

CoreWLANWifiService::CoreWLANWifiService(WifiClient &client)
    : m_client(client)
{}

std::optional<QString> CoreWLANWifiService::currentSSID() const
{
    return m_client.ssid();
}

std::optional<WifiSignal> CoreWLANWifiService::currentSignal() const
{
    const qint64 rssi = m_client.rssiValue();
    return rssi == 0 ? std::nullopt : std::optional(WifiSignal(rssi));
}

Task<QList<WifiNetwork>> CoreWLANWifiService::scanNearbyNetworks()
{
    return scan(&m_client);
}

Task<> CoreWLANWifiService::connect(QString toSSID, QString password)
{
    return join(&m_client, std::move(toSSID), std::move(password));
}

} // namespace quorvel
