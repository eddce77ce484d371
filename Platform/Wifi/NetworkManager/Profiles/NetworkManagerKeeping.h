#pragma once

#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerProfiles.h"
#include "Platform/Wifi/WifiLimits.h"

namespace quorvel {

/// Has the service remember a connection that was made for now only, once it has proved right. The
/// user's own profile of the network is brought up to date where the user may change it unasked;
/// else the new one is kept beside it. Destroys itself at its end.
class NetworkManagerKeeping final : public QObject
{
public:
    struct Connection
    {
        QString temporaryProfile;
        NetworkManagerGroups settings;
    };

    /// Calls back when it is done, whether or not the service agreed: the connection stands.
    NetworkManagerKeeping(NetworkManagerBus bus, const WifiLimits &limits, QString user,
                          Connection connection, std::function<void()> done, QObject *parent);

private:
    void found(Outcome<QList<NetworkManagerProfile>> outcome);
    [[nodiscard]] bool isEarlier(const NetworkManagerProfile &profile) const;
    void updateIfPermitted(const NetworkManagerProfile &profile);
    void update(const NetworkManagerProfile &profile);
    [[nodiscard]] NetworkManagerGroups brought(NetworkManagerProfile profile) const;
    void save();
    void end();

    NetworkManagerBus m_bus;
    std::chrono::milliseconds m_limit;
    QString m_user;
    Connection m_connection;
    std::function<void()> m_done;
};

} // namespace quorvel
