#pragma once

#include <QObject>
#include <QString>

namespace quorvel {

/// One network of the Wi-Fi block, as its row shows it.
struct WifiRow
{
    Q_GADGET
    Q_PROPERTY(QString ssid MEMBER ssid)
    Q_PROPERTY(bool isOpen MEMBER isOpen)
    Q_PROPERTY(bool isConnected MEMBER isConnected)
    Q_PROPERTY(bool isSaved MEMBER isSaved)
    Q_PROPERTY(QString detailText MEMBER detailText)
    Q_PROPERTY(int bars MEMBER bars)
    Q_PROPERTY(QString description MEMBER description)

public:
    QString ssid = {};
    bool isOpen = false;
    bool isConnected = false;
    bool isSaved = false;     ///< our keychain has its password
    QString detailText = {};  ///< "Good · -65 dBm"
    int bars = 0;             ///< of four
    QString description = {}; ///< all of it for a screen reader

    [[nodiscard]] const QString &id() const { return ssid; }

    friend bool operator==(const WifiRow &, const WifiRow &) = default;
};

} // namespace quorvel
