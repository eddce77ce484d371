#include "Platform/SessionBus/SessionBus.h"

#include <QFile>
#include <sys/stat.h>

#include <unistd.h>

namespace quorvel {

namespace {

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// The bus library looks for the same socket before it thinks of launching a bus.
bool isOwnSocket(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISSOCK(status.st_mode) &&
           status.st_uid == ::getuid();
}

bool sessionHasBus()
{
    if (!qEnvironmentVariableIsEmpty(addressVariable))
        return true;
    const QString runtimeDirectory = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtimeDirectory.isEmpty() && isOwnSocket(runtimeDirectory + QStringLiteral("/bus"));
}

} // namespace

QDBusConnection SessionBus::connection()
{
    // Qt's own code asks for the bus as well: an address that cannot be connected to keeps all of
    // this process, and the programs it starts, from launching one.
    if (!sessionHasBus())
        qputenv(addressVariable, "disabled:");
    return QDBusConnection::sessionBus();
}

} // namespace quorvel
