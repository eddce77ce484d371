#pragma once

#include "Tests/Support/Patience.h"

#include <QProcess>
#include <QTest>

namespace quorvel::tests {

/// The real GeoClue daemon on a system bus of its own, for the tests of one program. Make it before
/// anything asks for the system bus.
class GeoClueWorld final
{
public:
    /// Why it could not start; empty when it did.
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

    /// One of the commands of geoclue_world.py; false, with a warning, when it failed.
    [[nodiscard]] bool tell(const QByteArray &command)
    {
        m_process.write(command + '\n');
        const QByteArray said = answer();
        if (said != "done")
            qWarning("%s: %s", command.constData(), said.constData());
        return said == "done";
    }

private:
    /// The event loop turns meanwhile: what was asked of the daemon goes on.
    QByteArray answer()
    {
        static_cast<void>(comes([this] { return m_process.canReadLine(); }));
        return m_process.readLine().trimmed();
    }

    QProcess m_process;
};

} // namespace quorvel::tests
