#pragma once

#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"
#include "Tests/Support/Services/DBusMock.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDBusVariant>

namespace quorvel::tests {

/// The district's network service, as a separate process on this test's private bus.
class NetworkManagerMock final
{
public:
    void start()
    {
        m_mock.start(QStringLiteral(QUORVEL_DAEMONS "/networkmanager_mock.py"),
                     [this] { return isServing(); });
    }

    /// Ends it as a crash would.
    void stop() { m_mock.stop(); }

    /// Keeps its bus name and answers nobody.
    void freeze() { m_mock.freeze(); }
    void thaw() { m_mock.thaw(); }

    QVariant call(const QString &member, const QVariantList &arguments = {}) const
    {
        auto message = QDBusMessage::createMethodCall(
            NetworkManagerNames::service, NetworkManagerNames::objectsPath,
            QStringLiteral("org.freedesktop.DBus.Mock"), member);
        message.setArguments(arguments);
        const QDBusMessage reply = m_bus.call(message);
        if (reply.type() != QDBusMessage::ReplyMessage)
            qFatal("%s: %s", qUtf8Printable(member), qUtf8Printable(reply.errorMessage()));
        return reply.arguments().value(0);
    }

    void script(const QString &key, const QVariant &what) const
    {
        call(QStringLiteral("Script"), {key, QVariant::fromValue(QDBusVariant(what))});
    }

    QString addRadio(const QString &name = QStringLiteral("wlan0")) const
    {
        return call(QStringLiteral("AddRadio"), {name}).toString();
    }

    struct Security
    {
        uint flags = 0x1;
        uint wpa = 0;
        uint rsn = 0x100;
    };

    QString addNetwork(const QString &radio, const QByteArray &ssid, uchar percent,
                       Security security) const
    {
        return call(QStringLiteral("AddNetwork"), {radio, ssid, QVariant::fromValue(percent),
                                                   security.flags, security.wpa, security.rsn})
            .toString();
    }
    QString addNetwork(const QString &radio, const QByteArray &ssid, uchar percent = 80) const
    {
        return addNetwork(radio, ssid, percent, Security());
    }

    void change(const QString &path, const QString &interface, const QVariantMap &values) const
    {
        call(QStringLiteral("Change"), {path, interface, values});
    }

    QString addProfile(const NetworkManagerGroups &settings) const
    {
        return call(QStringLiteral("AddProfile"), {QVariant::fromValue(settings)}).toString();
    }

    QList<NetworkManagerGroups> profiles() const
    {
        return qdbus_cast<QList<NetworkManagerGroups>>(call(QStringLiteral("Profiles")));
    }
    /// The number of answers that are still to come.
    uint waitingCount() const { return call(QStringLiteral("CountWaiting")).toUInt(); }
    uint profileCount() const { return call(QStringLiteral("CountProfiles")).toUInt(); }

    /// How often this method of the service was called since the last `Clear`.
    qsizetype callCount(const QString &member) const
    {
        auto message = QDBusMessage::createMethodCall(
            NetworkManagerNames::service, NetworkManagerNames::managerPath,
            QStringLiteral("org.freedesktop.DBus.Mock"), QStringLiteral("GetMethodCalls"));
        message << member;
        const auto calls = m_bus.call(message).arguments().value(0).value<QDBusArgument>();
        qsizetype count = 0;
        calls.beginArray();
        for (; !calls.atEnd(); ++count)
            static_cast<void>(calls.asVariant());
        calls.endArray();
        return count;
    }

    QVariant property(const QString &path, const QString &interface, const QString &name) const
    {
        auto message =
            QDBusMessage::createMethodCall(NetworkManagerNames::service, path,
                                           NetworkManagerNames::properties, QStringLiteral("Get"));
        message << interface << name;
        return m_bus.call(message).arguments().value(0).value<QDBusVariant>().variant();
    }

private:
    bool isServing() const
    {
        auto message = QDBusMessage::createMethodCall(
            NetworkManagerNames::service, NetworkManagerNames::objectsPath,
            QStringLiteral("org.freedesktop.DBus.Mock"), QStringLiteral("Clear"));
        return m_bus.call(message).type() == QDBusMessage::ReplyMessage;
    }

    /// The connection of the client under test, so that the client receives a change before this
    /// call returns.
    QDBusConnection m_bus = QDBusConnection::sessionBus();
    DBusMock m_mock;
};

} // namespace quorvel::tests
