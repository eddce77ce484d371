#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/Wifi/WifiName.h"

#include <QList>

#include <optional>
#include <variant>

namespace quorvel {

/// One access point of a scan.
struct ScannedNetwork
{
    /// Nothing if the network hides its name.
    std::optional<WifiName> name;
    qint64 rssiDBm = 0;

    friend bool operator==(const ScannedNetwork &, const ScannedNetwork &) = default;
};

/// The machine's wireless interface: its network, the networks nearby, and the stored passwords. Of
/// several interfaces, the one that carries the traffic counts. Calls fail with WifiError. When the
/// client is destroyed, open calls get no answer.
class WifiClient
{
public:
    virtual ~WifiClient() = default;

    /// These three answer at once, from the system's latest report.
    [[nodiscard]] virtual bool hasInterface() const = 0;
    /// The name of the network that the interface is on; nothing if it is on none.
    [[nodiscard]] virtual std::optional<QString> ssid() const = 0;
    /// The strength of that network in dBm; 0 without one.
    [[nodiscard]] virtual qint64 rssiValue() const = 0;

    /// Scans again and lists all access points heard, in no order.
    virtual void scan(Completion<QList<ScannedNetwork>> completion) = 0;

    /// Joins through the network's strongest access point. If it works, the system remembers the
    /// password. A failed join leaves nothing behind. An open network accepts any password.
    virtual void associate(const WifiName &name, const QString &password,
                           Completion<std::monostate> completion) = 0;

    /// The password that the system has stored for the network; nothing if there is none. The
    /// system may ask the user first, so this may take any time.
    virtual void storedPassword(const QString &ssid,
                                Completion<std::optional<QString>> completion) = 0;
};

} // namespace quorvel
