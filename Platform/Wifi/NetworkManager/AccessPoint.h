#pragma once

#include "Platform/Wifi/WifiName.h"

#include <QList>
#include <QVariantMap>

namespace quorvel {

class NetworkManagerModel;

/// The protection of a network.
enum class WifiSecurity { Open, EncryptedOpen, Password, StrongPassword, Enterprise, Outdated };

/// One access point as NetworkManager describes it.
struct AccessPoint
{
    QString path;
    QByteArray ssid;
    int strengthPercent = 0;
    WifiSecurity security = WifiSecurity::Open;

    [[nodiscard]] static AccessPoint fromValues(const QString &path, const QVariantMap &values);
    /// All access points that a radio hears, without those it has just lost.
    [[nodiscard]] static QList<AccessPoint> heardBy(const QString &radio,
                                                    const NetworkManagerModel &model);

    /// NetworkManager makes its percentage in two ways. This is the strength in dBm of a scanned
    /// access point.
    [[nodiscard]] qint64 scannedDBm() const;
    /// The strength in dBm of the network that the radio is on.
    [[nodiscard]] qint64 currentDBm() const;
};

} // namespace quorvel
