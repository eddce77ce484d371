#pragma once

#include "Core/Support/Tasks/Task.h"

#include <QList>
#include <QString>

#include <optional>

namespace quorvel {

/// The strength of a network as people read it.
struct WifiSignal
{
    explicit WifiSignal(qint64 strength);

    qint64 rssiDBm;
    int bars;      ///< how many of four are lit, at least one
    QString label; ///< "Weak", "Fair", "Good" or "Strong"

    friend bool operator==(const WifiSignal &, const WifiSignal &) = default;
};

/// A network nearby. Its name is its identity, so a list that is shown holds each name once.
struct WifiNetwork
{
    QString ssid;
    qint64 rssiDBm = 0; ///< negative, and stronger the closer it is to 0

    [[nodiscard]] const QString &id() const { return ssid; }
    [[nodiscard]] WifiSignal signal() const { return WifiSignal(rssiDBm); }

    friend bool operator==(const WifiNetwork &, const WifiNetwork &) = default;
};

/// The radio, for the check-in screen and all who note which network the user is on.
class WifiService
{
public:
    virtual ~WifiService() = default;

    /// The name of the network that the machine is joined to; nothing when it is to none.
    [[nodiscard]] virtual std::optional<QString> currentSSID() const = 0;
    /// The strength of that network; nothing when the machine is joined to none.
    [[nodiscard]] virtual std::optional<WifiSignal> currentSignal() const = 0;

    /// Listens anew. At most three networks, each name once, the strongest first; none where there
    /// is no radio. Throws AppError::network.
    [[nodiscard]] virtual Task<QList<WifiNetwork>> scanNearbyNetworks() = 0;

    /// Ends once the machine is on that network. Throws AppError::network.
    [[nodiscard]] virtual Task<> connect(QString toSSID, QString password) = 0;
};

} // namespace quorvel
