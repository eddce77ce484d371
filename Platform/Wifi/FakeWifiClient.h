#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Platform/Wifi/WifiClient.h"

namespace quorvel {

/// A radio that hears, joins and remembers what a test has scripted, and keeps what it was asked.
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
        ++scanCount;
        scans.call(std::move(completion));
    }
    void associate(const WifiName &name, const QString &password,
                   Completion<std::monostate> completion) override
    {
        associated.append({.name = name, .password = password});
        associations.call(std::move(completion));
    }
    void storedPassword(const QString &ssid, Completion<std::optional<QString>> completion) override
    {
        passwordsAskedFor.append(ssid);
        storedPasswords.call(std::move(completion));
    }

    bool interfaceThere = true;
    std::optional<QString> currentSSID;
    qint64 currentRSSI = 0;
    FakeAnswers<QList<ScannedNetwork>> scans{"FakeWifiClient::scan"};
    FakeAnswers<std::monostate> associations{"FakeWifiClient::associate"};
    FakeAnswers<std::optional<QString>> storedPasswords{"FakeWifiClient::storedPassword"};

    int scanCount = 0;
    QList<Association> associated;
    QStringList passwordsAskedFor;
};

} // namespace quorvel
