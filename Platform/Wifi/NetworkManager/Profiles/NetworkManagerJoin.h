#pragma once

#include "Platform/Wifi/NetworkManager/AccessPoint.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerStates.h"
#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiLimits.h"

#include <QDBusMessage>
#include <QObject>

#include <variant>

namespace quorvel {

/// One attempt to join a network. Its profile disappears with its connection, so a failure leaves
/// nothing behind even if the program is gone by then. A successful profile is kept. Destroys
/// itself at the end; if it is destroyed earlier, it ends its connection.
class NetworkManagerJoin final : public QObject
{
public:
    using Completed = Completion<std::monostate>;

    struct Request
    {
        WifiName name;
        QString password;
        /// The owner of the profile. Nobody else has to agree to it.
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
    /// Our connection, while it is up or coming up.
    QString m_active;
    bool m_isAwaitingPermission = false;
    bool m_hasEnded = false;
    WifiError m_expiry{WifiError::Code::TimedOut};
    QTimer m_limit;
};

} // namespace quorvel
