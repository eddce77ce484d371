#pragma once

#include "Platform/Wifi/WifiClient.h"
#include "Services/Wifi/WifiModels.h"

#include <optional>

namespace quorvel {

/// The radio, over the system's wireless client. It caches nothing: every call asks the client.
class CoreWLANWifiService final : public WifiService
{
public:
    /// The client must outlive the service.
    explicit CoreWLANWifiService(WifiClient &client);

    [[nodiscard]] std::optional<QString> currentSSID() const override;
    [[nodiscard]] std::optional<WifiSignal> currentSignal() const override;
    [[nodiscard]] Task<QList<WifiNetwork>> scanNearbyNetworks() override;
    [[nodiscard]] Task<> connect(QString toSSID, QString password) override;

private:
    WifiClient &m_client;
};

} // namespace quorvel
