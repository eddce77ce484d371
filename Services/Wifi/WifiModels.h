#pragma once

#include "Core/Support/Tasks/Task.h"

#include <QList>
#include <QString>

#include <optional>

namespace quorvel {

/// The signal strength of a network, in a form for people.
struct WifiSignal
{
    explicit WifiSignal(qint64 strength);

    qint64 rssiDBm;
    int bars;      ///< how many of four are lit, at least one
    QString label; ///< "Weak", "Fair", "Good" or "Strong"

    friend bool operator==(const WifiSignal &, const WifiSignal &) = default;
};

/// A network nearby. Its name identifies it, so a shown list has each name once.
struct WifiNetwork
{
    QString ssid;
    qint64 rssiDBm = 0; ///< negative, and stronger the closer it is to 0

    [[nodiscard]] const QString &id() const { return ssid; }
    [[nodiscard]] WifiSignal signal() const { return WifiSignal(rssiDBm); }

    friend bool operator==(const WifiNetwork &, const WifiNetwork &) = default;
};

/// The radio, for the check-in screen and for everything that records the current network.
class WifiService
{
public:
    virtual ~WifiService() = default;

    /// The name of the network that the machine is on; nothing if it is on none.
    [[nodiscard]] virtual std::optional<QString> currentSSID() const = 0;
    /// The strength of that network; nothing if the machine is on none.
    [[nodiscard]] virtual std::optional<WifiSignal> currentSignal() const = 0;

    /// Scans again. Returns at most three networks, each name once, strongest first; none without a
    /// radio. Throws AppError::network.
    [[nodiscard]] virtual Task<QList<WifiNetwork>> scanNearbyNetworks() = 0;

    /// Returns when the machine is on that network. Throws AppError::network.
    [[nodiscard]] virtual Task<> connect(QString toSSID, QString password) = 0;
};

} // namespace quorvel
