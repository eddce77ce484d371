#pragma once

#include "Platform/Wifi/NetworkManager/AccessPoint.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerStates.h"
#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiLimits.h"

namespace quorvel {

/// One attempt to join a network. The profile that it makes vanishes with its connection, so that a
/// failure leaves nothing behind even if the program is gone by then; one that worked is kept.
/// Destroys itself at its end, and takes its connection down if it is destroyed before.
class NetworkManagerJoin final : public QObject
{
public:
    using Completed = Completion<std::monostate>;

    struct Request
    {
        WifiName name;
        QString password;
        /// Who the profile is for: nobody but its owner may need to agree to it.
        QString user;
    };

    NetworkManagerJoin(NetworkManagerBus bus, NetworkManagerModel &model, const WifiLimits &limits,
                       Request request, Completed completion, QObject *parent);
    ~NetworkManagerJoin() override;

private:
    void begin();
    void activate(const AccessPoint &point);
    void activated(const QDBusMessage &reply);
    void follow();
    void deviceStateChanged(const QString &device, uint state, uint reason);
    void connectionChanged(uint state);
    void connectionEnded(uint reason);
    void keep();
    void takeDown();
    void fail(const WifiError &error);
    void end(Outcome<std::monostate> outcome);

    NetworkManagerBus m_bus;
    NetworkManagerModel &m_model;
    WifiLimits m_limits;
    Request m_request;
    Completed m_completion;
    NetworkManagerGroups m_settings;
    NetworkManagerStates::Secured m_secured = NetworkManagerStates::Secured::No;
    QString m_radio;
    QString m_profile;
    /// Our connection, as long as it is up or on its way.
    QString m_active;
    bool m_isAwaitingPermission = false;
    bool m_hasEnded = false;
    WifiError m_expiry{WifiError::Code::TimedOut};
    QTimer m_limit;
};

} // namespace quorvel
