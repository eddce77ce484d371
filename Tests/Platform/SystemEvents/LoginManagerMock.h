#pragma once

#include "Tests/Support/Services/DBusMock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariant>

namespace quorvel::tests {

/// A login manager in a process of its own on this test's private bus, which tells of sleep as it
/// is told to.
class LoginManagerMock final
{
public:
    void start()
    {
        m_mock.start(QStringLiteral("logind"), [this] { return prepareForSleep(false); });
    }

    /// Says that the machine goes to sleep, or has woken up.
    bool prepareForSleep(bool begins) const
    {
        auto message = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.DBus.Mock"), QStringLiteral("EmitSignal"));
        message << QStringLiteral("org.freedesktop.login1.Manager")
                << QStringLiteral("PrepareForSleep") << QStringLiteral("b")
                << QVariant(QVariantList{begins});
        return m_bus.call(message).type() == QDBusMessage::ReplyMessage;
    }

private:
    /// The one that the backend under test is on, so that it hears of it before this returns.
    QDBusConnection m_bus = QDBusConnection::sessionBus();
    DBusMock m_mock;
};

} // namespace quorvel::tests
