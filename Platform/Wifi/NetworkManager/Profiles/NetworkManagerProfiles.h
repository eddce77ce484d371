#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"

#include <QObject>

#include <functional>

namespace quorvel {

/// A connection that the network service remembers.
struct NetworkManagerProfile
{
    QString path;
    /// Without the secrets, which have to be asked for one by one.
    NetworkManagerGroups settings;

    [[nodiscard]] QByteArray ssid() const;
    /// When it last was in use, 0 when never.
    [[nodiscard]] qulonglong timestamp() const;
    /// Whether it joins a network by a password that everybody there shares.
    [[nodiscard]] bool takesPassword() const;
    /// Whether it joins networks, where others let a network be joined.
    [[nodiscard]] bool isForJoining() const;
    /// Whether it is one user's alone, so that they may change it without being asked.
    [[nodiscard]] bool isOnlyOf(const QString &user) const;
};

/// Reads all profiles once, for whoever looks one up by its network. Destroys itself at its end.
class NetworkManagerProfiles final : public QObject
{
public:
    /// Hears the profiles, those last used first, or why there are none.
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
