#pragma once

#include "Tests/Support/Patience.h"

#include <QProcess>
#include <QTest>

namespace quorvel::tests {

/// The real keyring daemon on a private session bus, for the tests of one program. Create it before
/// anything uses the session bus.
class KeyringWorld final
{
public:
    KeyringWorld()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(
            QStringLiteral(QUORVEL_PYTHON),
            {QStringLiteral("-B"), QStringLiteral(QUORVEL_DAEMONS "/keyring_world.py")});
        const QByteArray address = answer();
        if (!address.startsWith("unix:"))
            qFatal("there is no world: %s", address.constData());
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    }
    KeyringWorld(const KeyringWorld &) = delete;
    KeyringWorld &operator=(const KeyringWorld &) = delete;
    ~KeyringWorld()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished(patienceMilliseconds);
    }

    /// Runs a command of keyring_world.py. The test ends if the command fails.
    void tell(const QByteArray &command)
    {
        m_process.write(command + '\n');
        const QByteArray said = answer();
        if (said != "done")
            qFatal("%s: %s", command.constData(), said.constData());
    }

private:
    QByteArray answer()
    {
        static_cast<void>(comes([this] { return m_process.canReadLine(); }));
        return m_process.readLine().trimmed();
    }

    QProcess m_process;
};

} // namespace quorvel::tests
