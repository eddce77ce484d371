#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Platform/Wifi/WifiClient.h"

#include <optional>
#include <utility>
#include <variant>

namespace quorvel {

/// A radio that answers from a test's script.
class FakeWifiClient final : public WifiClient
{
public:
    struct Association
    {
        WifiName name;
        QString password;

        friend bool operator==(const Association &, const Association &) = default;
    };

    [[nodiscard]] bool hasInterface() const override { return interfaceThere; }
    [[nodiscard]] std::optional<QString> ssid() const override { return currentSSID; }
    [[nodiscard]] qint64 rssiValue() const override { return currentRSSI; }

    void scan(Completion<QList<ScannedNetwork>> completion) override
    {
        scans.call(std::move(completion));
    }
    void associate(const WifiName &name, const QString &password,
                   Completion<std::monostate> completion) override
    {
        associations.call(std::move(completion), {.name = name, .password = password});
    }
    void storedPassword(const QString &ssid, Completion<std::optional<QString>> completion) override
    {
        storedPasswords.call(std::move(completion), ssid);
    }

    bool interfaceThere = true;
    std::optional<QString> currentSSID;
    qint64 currentRSSI = 0;
    FakeAnswers<QList<ScannedNetwork>> scans{"FakeWifiClient::scan"};
    FakeAnswers<std::monostate, Association> associations{"FakeWifiClient::associate"};
    FakeAnswers<std::optional<QString>, QString> storedPasswords{"FakeWifiClient::storedPassword"};
};

} // namespace quorvel
