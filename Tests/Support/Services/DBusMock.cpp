#include "Tests/Support/Services/DBusMock.h"

#include "Tests/Support/Patience.h"

#include <QProcessEnvironment>
#include <sys/wait.h>

#include <csignal>

namespace quorvel::tests {

DBusMock::~DBusMock()
{
    stop();
}

void DBusMock::start(const QString &serviceTemplate, const std::function<bool()> &isServing)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"),
                       environment.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    m_process.setProcessEnvironment(environment);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(QUORVEL_PYTHON),
                    {QStringLiteral("-B"), QStringLiteral("-m"), QStringLiteral("dbusmock"),
                     QStringLiteral("--template"), serviceTemplate});
    if (!comes(isServing))
        qFatal("%s does not come up", qUtf8Printable(serviceTemplate));
}

void DBusMock::stop()
{
    m_process.kill();
    m_process.waitForFinished();
}

void DBusMock::freeze()
{
    const auto id = id_t(m_process.processId());
    ::kill(pid_t(id), SIGSTOP);
    // The signal is not immediate, and an answer can still come before it.
    siginfo_t change;
    ::waitid(P_PID, id, &change, WSTOPPED | WEXITED | WNOWAIT);
}

void DBusMock::thaw()
{
    ::kill(pid_t(m_process.processId()), SIGCONT);
}

} // namespace quorvel::tests
