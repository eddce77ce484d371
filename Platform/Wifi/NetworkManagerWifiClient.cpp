#include "Platform/Wifi/NetworkManagerWifiClient.h"

#include "Platform/Wifi/NetworkManager/AccessPoint.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerScan.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerStates.h"
#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerJoin.h"
#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerSecret.h"

#include <QDBusConnection>
#include <QObject>

#include <optional>
#include <pwd.h>
#include <unistd.h>
#include <utility>
#include <variant>

namespace quorvel {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

namespace {

QString userName()
{
    const passwd *entry = ::getpwuid(::getuid());
    return entry == nullptr ? QString() : QString::fromLocal8Bit(entry->pw_name);
}

/// The name counts once the network has accepted us. Before that, a radio already names the network
/// that it tries.
bool isJoined(uint state)
{
    return state >= NetworkManagerStates::deviceGetsAddress &&
           state <= NetworkManagerStates::deviceActivated;
}

} // namespace

NetworkManagerWifiClient::NetworkManagerWifiClient(const QDBusConnection &bus,
                                                   const WifiLimits &limits)
    : m_limits(limits)
    , m_bus(std::make_unique<NetworkManagerBus>(bus))
    , m_model(std::make_unique<NetworkManagerModel>(
          *m_bus, NetworkManagerModel::Limits{.reply = limits.reply, .retry = limits.retry}))
    , m_calls(std::make_unique<QObject>())
{}

NetworkManagerWifiClient::~NetworkManagerWifiClient() = default;

void NetworkManagerWifiClient::whenRead(QObject *context, std::function<void()> action)
{
    m_model->whenRead(context, std::move(action));
}

bool NetworkManagerWifiClient::hasInterface() const
{
    return !m_model->radio().isEmpty();
}

std::optional<QString> NetworkManagerWifiClient::ssid() const
{
    const QString point = currentAccessPoint();
    const auto name =
        WifiName::fromBytes(m_model->value(point, Names::accessPoint, u"Ssid"_s).toByteArray());
    return name ? std::optional(name->text) : std::nullopt;
}

qint64 NetworkManagerWifiClient::rssiValue() const
{
    const QString point = currentAccessPoint();
    if (point.isEmpty())
        return 0;
    return AccessPoint::fromValues(point, m_model->values(point, Names::accessPoint)).currentDBm();
}

void NetworkManagerWifiClient::scan(Completion<QList<ScannedNetwork>> completion)
{
    new NetworkManagerScan(*m_bus, *m_model, m_limits, std::move(completion), m_calls.get());
}

void NetworkManagerWifiClient::associate(const WifiName &name, const QString &password,
                                         Completion<std::monostate> completion)
{
    new NetworkManagerJoin(*m_bus, *m_model, m_limits,
                           {.name = name, .password = password, .user = userName()},
                           std::move(completion), m_calls.get());
}

void NetworkManagerWifiClient::storedPassword(const QString &ssid,
                                              Completion<std::optional<QString>> completion)
{
    new NetworkManagerSecret(*m_bus, *m_model, m_limits, ssid, std::move(completion),
                             m_calls.get());
}

QString NetworkManagerWifiClient::currentAccessPoint() const
{
    const QString radio = m_model->radio();
    if (!isJoined(m_model->value(radio, Names::device, u"State"_s).toUInt()))
        return {};
    const QString point = m_model->pathValue(radio, Names::wireless, u"ActiveAccessPoint"_s);
    return m_model->contains(point) ? point : QString();
}

} // namespace quorvel
