#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/Wifi/WifiName.h"

#include <QList>

namespace quorvel {

/// One access point that a scan has heard.
struct ScannedNetwork
{
    /// Nothing where the network hides its name.
    std::optional<WifiName> name;
    qint64 rssiDBm = 0;

    friend bool operator==(const ScannedNetwork &, const ScannedNetwork &) = default;
};

/// The machine's wireless interface: where it is joined to, what it hears, and the passwords that
/// the system has stored. Of several interfaces the one that carries the traffic counts. Calls fail
/// with WifiError; those that are open when the client is destroyed are dropped without an answer.
class WifiClient
{
public:
    virtual ~WifiClient() = default;

    /// These three answer at once, from what the system last reported.
    [[nodiscard]] virtual bool hasInterface() const = 0;
    /// The name of the network that the interface is joined to; nothing when it is to none.
    [[nodiscard]] virtual std::optional<QString> ssid() const = 0;
    /// The strength of that network in dBm, 0 when there is none.
    [[nodiscard]] virtual qint64 rssiValue() const = 0;

    /// Listens anew and lists every access point heard, in no order.
    virtual void scan(Completion<QList<ScannedNetwork>> completion) = 0;

    /// Joins through the network's strongest access point, and has the system remember the password
    /// once it has proved right. A join that fails leaves nothing behind. An open network takes any
    /// password.
    virtual void associate(const WifiName &name, const QString &password,
                           Completion<std::monostate> completion) = 0;

    /// The password that the system has stored for the network; nothing when it has none. The
    /// system may ask the user first, so this takes as long as they do.
    virtual void storedPassword(const QString &ssid,
                                Completion<std::optional<QString>> completion) = 0;
};

} // namespace quorvel
