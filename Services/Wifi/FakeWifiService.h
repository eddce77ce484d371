#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Services/Wifi/WifiModels.h"

#include <optional>
#include <variant>

namespace quorvel {

/// A radio that answers from a test's script and records what it was asked.
class FakeWifiService final : public WifiService
{
public:
    struct Joining
    {
        QString ssid;
        QString password;

        friend bool operator==(const Joining &, const Joining &) = default;
    };

    [[nodiscard]] std::optional<QString> currentSSID() const override { return ssid; }
    [[nodiscard]] std::optional<WifiSignal> currentSignal() const override { return signal; }

    [[nodiscard]] Task<QList<WifiNetwork>> scanNearbyNetworks() override
    {
        ++scanCount;
        Pending<QList<WifiNetwork>> pending;
        scans.call(pending.completion());
        const auto networks = co_await pending;
        co_return networks;
    }

    [[nodiscard]] Task<> connect(QString toSSID, QString password) override
    {
        joined.append({.ssid = toSSID, .password = password});
        Pending<std::monostate> pending;
        joins.call(pending.completion());
        co_await pending;
    }

    std::optional<QString> ssid;
    std::optional<WifiSignal> signal;
    FakeAnswers<QList<WifiNetwork>> scans{"FakeWifiService::scanNearbyNetworks"};
    FakeAnswers<std::monostate> joins{"FakeWifiService::connect"};

    int scanCount = 0;
    QList<Joining> joined;
};

} // namespace quorvel
