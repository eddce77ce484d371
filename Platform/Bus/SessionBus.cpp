#include "Platform/Bus/SessionBus.h"

#include <QFile>
#include <QLatin1String>
#include <QProcessEnvironment>
#include <sys/stat.h>

#include <unistd.h>

namespace quorvel {

namespace {

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// The bus library looks for the same socket before it launches a bus.
bool isOwnSocket(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISSOCK(status.st_mode) &&
           status.st_uid == ::getuid();
}

} // namespace

bool SessionBus::isProvided(const QProcessEnvironment &environment)
{
    const QString address = environment.value(QLatin1String(addressVariable));
    if (!address.isEmpty())
        return !address.contains(QStringLiteral("autolaunch:"));
    const QString runtimeDirectory = environment.value(QStringLiteral("XDG_RUNTIME_DIR"));
    return !runtimeDirectory.isEmpty() && isOwnSocket(runtimeDirectory + QStringLiteral("/bus"));
}

QDBusConnection SessionBus::connection()
{
    // Qt's own code asks for the bus as well. An address that cannot be connected to keeps this
    // process, and the programs that it starts, from launching a bus.
    if (!isProvided(QProcessEnvironment::systemEnvironment()))
        qputenv(addressVariable, "disabled:");
    return QDBusConnection::sessionBus();
}

} // namespace quorvel
