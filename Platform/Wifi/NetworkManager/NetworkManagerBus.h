#pragma once

#include "Platform/Bus/BusCall.h"
#include "Platform/Wifi/WifiError.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMap>
#include <QObject>
#include <QVariant>

#include <chrono>

namespace quorvel {

/// Groups of values by name: the properties of an object's interfaces, or a profile's settings.
using NetworkManagerGroups = QMap<QString, QVariantMap>;
using NetworkManagerObjects = QMap<QDBusObjectPath, NetworkManagerGroups>;

/// NetworkManager's names on the bus.
namespace NetworkManagerNames {

inline const QString service = QStringLiteral("org.freedesktop.NetworkManager");
inline const QString managerPath = QStringLiteral("/org/freedesktop/NetworkManager");
inline const QString settingsPath = QStringLiteral("/org/freedesktop/NetworkManager/Settings");
inline const QString objectsPath = QStringLiteral("/org/freedesktop");

inline const QString manager = service;
inline const QString device = QStringLiteral("org.freedesktop.NetworkManager.Device");
inline const QString wireless = QStringLiteral("org.freedesktop.NetworkManager.Device.Wireless");
inline const QString accessPoint = QStringLiteral("org.freedesktop.NetworkManager.AccessPoint");
inline const QString active = QStringLiteral("org.freedesktop.NetworkManager.Connection.Active");
inline const QString settings = QStringLiteral("org.freedesktop.NetworkManager.Settings");
inline const QString profile = QStringLiteral("org.freedesktop.NetworkManager.Settings.Connection");
inline const QString objectManager = QStringLiteral("org.freedesktop.DBus.ObjectManager");
inline const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

// The groups of a profile's settings.
inline const QString wirelessSetting = QStringLiteral("802-11-wireless");
inline const QString securitySetting = QStringLiteral("802-11-wireless-security");

} // namespace NetworkManagerNames

/// One call to NetworkManager.
struct NetworkManagerCall
{
    QString path;
    QString interface;
    QString member;
    QVariantList arguments = {};
};

/// Calls NetworkManager, for all classes that use it. Never blocks, never starts the service.
class NetworkManagerBus final
{
public:
    explicit NetworkManagerBus(QDBusConnection connection);

    [[nodiscard]] QDBusConnection connection() const { return m_connection; }

    /// As `BusCall::start`.
    void call(QObject *context, const NetworkManagerCall &call, std::chrono::milliseconds limit,
              const BusCall::Handler &handler) const;

    /// For calls whose reply nobody needs.
    void send(const NetworkManagerCall &call) const;

    /// Translates a bus error into ours.
    [[nodiscard]] static WifiError errorOf(const QDBusMessage &reply);

private:
    QDBusConnection m_connection;
};

} // namespace quorvel
