#pragma once

#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiLimits.h"

#include <functional>
#include <memory>
#include <optional>
#include <variant>

class QDBusConnection;
class QObject;

namespace quorvel {

class NetworkManagerBus;
class NetworkManagerModel;

/// The wireless interface through NetworkManager, which most desktops use. It starts reading at
/// once. Until the service has answered, and on a machine without it, there is no interface. When
/// the client is destroyed, it ends an open join.
class NetworkManagerWifiClient final : public WifiClient
{
public:
    /// The system bus, or a closed connection if there is none.
    explicit NetworkManagerWifiClient(const QDBusConnection &bus, const WifiLimits &limits = {});
    ~NetworkManagerWifiClient() override;

    /// Calls back when the service has described the radio or failed; at once if it already has.
    /// Until then there is no interface.
    void whenRead(QObject *context, std::function<void()> action);

    [[nodiscard]] bool hasInterface() const override;
    [[nodiscard]] std::optional<QString> ssid() const override;
    [[nodiscard]] qint64 rssiValue() const override;

    void scan(Completion<QList<ScannedNetwork>> completion) override;
    void associate(const WifiName &name, const QString &password,
                   Completion<std::monostate> completion) override;
    void storedPassword(const QString &ssid,
                        Completion<std::optional<QString>> completion) override;

private:
    [[nodiscard]] QString currentAccessPoint() const;

    WifiLimits m_limits;
    std::unique_ptr<NetworkManagerBus> m_bus;
    std::unique_ptr<NetworkManagerModel> m_model;
    /// Lifetime: open calls are its children and end before the objects that they use.
    std::unique_ptr<QObject> m_calls;
};

} // namespace quorvel
