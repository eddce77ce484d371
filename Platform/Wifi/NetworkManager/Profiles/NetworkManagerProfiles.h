#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"

#include <QObject>

#include <chrono>
#include <functional>

namespace quorvel {

/// A connection that NetworkManager remembers.
struct NetworkManagerProfile
{
    QString path;
    /// Without the secrets, which need a separate call each.
    NetworkManagerGroups settings;

    [[nodiscard]] QByteArray ssid() const;
    /// The time of its last use; 0 for never.
    [[nodiscard]] qulonglong timestamp() const;
    /// Whether it joins a network with a password that all its users share.
    [[nodiscard]] bool takesPassword() const;
    /// Whether this profile joins a network, as opposed to opening a hotspot.
    [[nodiscard]] bool isForJoining() const;
    /// Whether it belongs to one user alone, who may then change it without being asked.
    [[nodiscard]] bool isOnlyOf(const QString &user) const;
};

/// Reads all profiles once, for look-ups by network. Destroys itself at the end.
class NetworkManagerProfiles final : public QObject
{
public:
    /// Receives the profiles, last used first, or the reason of the failure.
    using Found = std::function<void(Outcome<QList<NetworkManagerProfile>>)>;

    NetworkManagerProfiles(NetworkManagerBus bus, std::chrono::milliseconds limit, Found found,
                           QObject *parent);

private:
    void listed(const QDBusMessage &reply);
    void described(const QString &path, const QDBusMessage &reply);
    void end(Outcome<QList<NetworkManagerProfile>> outcome);

    NetworkManagerBus m_bus;
    std::chrono::milliseconds m_limit;
    Found m_found;
    QList<NetworkManagerProfile> m_profiles;
    qsizetype m_awaited = 0;
};

} // namespace quorvel
