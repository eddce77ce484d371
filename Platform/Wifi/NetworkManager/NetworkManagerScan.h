#pragma once

#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"
#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiLimits.h"

namespace quorvel {

/// One scan: has the radio listen anew, waits until it has, and lists what it heard. Where it is
/// told to wait for too long, what was heard last counts. Destroys itself at its end.
class NetworkManagerScan final : public QObject
{
public:
    using Completed = Completion<QList<ScannedNetwork>>;

    NetworkManagerScan(NetworkManagerBus bus, NetworkManagerModel &model, const WifiLimits &limits,
                       Completed completion, QObject *parent);

private:
    void begin();
    void answered(const QDBusMessage &reply);
    void valuesChanged(const QString &path);
    void expired();
    [[nodiscard]] QVariant lastScan() const;
    void succeed();
    void fail(const WifiError &error);
    void end(Outcome<QList<ScannedNetwork>> outcome);

    NetworkManagerBus m_bus;
    NetworkManagerModel &m_model;
    Completed m_completion;
    QTimer m_limit;
    QString m_radio;
    /// When the radio had last listened before this scan, on the service's own clock.
    QVariant m_before;
    bool m_isAccepted = false;
};

} // namespace quorvel
