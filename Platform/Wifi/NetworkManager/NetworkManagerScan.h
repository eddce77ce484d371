#pragma once

#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"
#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiError.h"
#include "Platform/Wifi/WifiLimits.h"

#include <QDBusMessage>
#include <QObject>
#include <QVariant>

namespace quorvel {

/// One scan: makes the radio scan, waits for the end, and lists what it heard. After its time limit
/// it uses the latest known list. Destroys itself at the end.
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
    /// The time of the last scan before this one, on NetworkManager's clock.
    QVariant m_before;
    bool m_isAccepted = false;
};

} // namespace quorvel
