#pragma once

#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"
#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerProfiles.h"
#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiError.h"
#include "Platform/Wifi/WifiLimits.h"

#include <QDBusMessage>

#include <optional>

namespace quorvel {

/// Looks up the stored password of a network, in the last used profile that has one. Destroys
/// itself at the end.
class NetworkManagerSecret final : public QObject
{
public:
    using Completed = Completion<std::optional<QString>>;

    NetworkManagerSecret(NetworkManagerBus bus, NetworkManagerModel &model,
                         const WifiLimits &limits, QString ssid, Completed completion,
                         QObject *parent);

private:
    void found(Outcome<QList<NetworkManagerProfile>> outcome);
    void told(const QDBusMessage &reply);
    void fail(const WifiError &error);
    void end(Outcome<std::optional<QString>> outcome);

    NetworkManagerBus m_bus;
    QString m_ssid;
    Completed m_completion;
};

} // namespace quorvel
