#pragma once

#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerProfiles.h"
#include "Platform/Wifi/WifiLimits.h"

#include <chrono>
#include <functional>

namespace quorvel {

/// Makes NetworkManager remember a temporary connection that has worked. If the user may change
/// their own profile of the network without being asked, that one is updated; otherwise the new one
/// is kept beside it. Destroys itself at the end.
class NetworkManagerKeeping final : public QObject
{
public:
    struct Connection
    {
        QString temporaryProfile;
        NetworkManagerGroups settings;
    };

    /// Calls back when it is done, even if the service refused: the connection works anyway.
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
