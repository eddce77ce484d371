#pragma once

#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiLimits.h"

#include <functional>
#include <memory>

class QDBusConnection;
class QObject;

namespace quorvel {

class NetworkManagerBus;
class NetworkManagerModel;

/// The wireless interface as NetworkManager manages it, which most desktops rely on. Starts reading
/// at once; until the service has answered, and on a machine without it, there is no interface. A
/// join that is open when the client is destroyed is taken down.
class NetworkManagerWifiClient final : public WifiClient
{
public:
    /// The bus is the system's, or a closed connection where there is none.
    explicit NetworkManagerWifiClient(const QDBusConnection &bus, const WifiLimits &limits = {});
    ~NetworkManagerWifiClient() override;

    /// Calls back once the service has described the radio, or failed to: at once where it has
    /// before. Until then there is no interface.
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
    /// Lifetime: the calls that are open are its children, and end before what they refer to.
    std::unique_ptr<QObject> m_calls;
};

} // namespace quorvel
