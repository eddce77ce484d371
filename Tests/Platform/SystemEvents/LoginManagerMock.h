#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <QTest>

namespace quorvel::tests {

/// A login manager in a process of its own on this test's private bus, which tells of sleep as it
/// is told to.
class LoginManagerMock final
{
public:
    ~LoginManagerMock()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    void start()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"),
                           environment.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
        m_process.setProcessEnvironment(environment);
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(NETWORK_MANAGER_PYTHON),
                        {QStringLiteral("-B"), QStringLiteral("-m"), QStringLiteral("dbusmock"),
                         QStringLiteral("--template"), QStringLiteral("logind")});
        if (!QTest::qWaitFor([this] { return prepareForSleep(false); }, 20'000))
            qFatal("the login manager does not come up");
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
    QProcess m_process;
};

} // namespace quorvel::tests
