#pragma once

#include "Platform/Wifi/WifiName.h"

#include <QList>
#include <QVariantMap>

namespace quorvel {

class NetworkManagerModel;

/// How a network wants to be joined.
enum class WifiSecurity { Open, EncryptedOpen, Password, StrongPassword, Enterprise, Outdated };

/// One access point as the network service describes it.
struct AccessPoint
{
    QString path;
    QByteArray ssid;
    int strengthPercent = 0;
    WifiSecurity security = WifiSecurity::Open;

    [[nodiscard]] static AccessPoint fromValues(const QString &path, const QVariantMap &values);
    /// All that a radio hears, those it has just lost left out.
    [[nodiscard]] static QList<AccessPoint> heardBy(const QString &radio,
                                                    const NetworkManagerModel &model);

    /// The service makes its percentage in two ways. This undoes the one for what a scan heard.
    [[nodiscard]] qint64 scannedDBm() const;
    /// And this the one for the network that the radio is joined to.
    [[nodiscard]] qint64 currentDBm() const;
};

} // namespace quorvel
