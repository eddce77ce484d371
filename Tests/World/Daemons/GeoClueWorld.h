#pragma once

#include "Tests/Support/Patience.h"

#include <QProcess>
#include <QTest>

namespace quorvel::tests {

/// The real GeoClue daemon on a private system bus, for the tests of one program. Create it before
/// anything uses the system bus.
class GeoClueWorld final
{
public:
    /// Why it could not start; empty if it did.
    [[nodiscard]] QString start()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(
            QStringLiteral(QUORVEL_PYTHON),
            {QStringLiteral("-B"), QStringLiteral(QUORVEL_DAEMONS "/geoclue_world.py")});
        const QByteArray address = answer();
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
        return address.startsWith("unix:") ? QString() : QStringLiteral("there is no world");
    }

    ~GeoClueWorld()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished(patienceMilliseconds);
    }

    /// Runs a command of geoclue_world.py. Returns false and warns if it failed.
    [[nodiscard]] bool tell(const QByteArray &command)
    {
        m_process.write(command + '\n');
        const QByteArray said = answer();
        if (said != "done")
            qWarning("%s: %s", command.constData(), said.constData());
        return said == "done";
    }

private:
    /// The event loop runs meanwhile, so that open requests to the daemon go on.
    QByteArray answer()
    {
        static_cast<void>(comes([this] { return m_process.canReadLine(); }));
        return m_process.readLine().trimmed();
    }

    QProcess m_process;
};

} // namespace quorvel::tests
