#include "Platform/SingleInstance/SessionBus.h"

#include <QFile>
#include <QProcessEnvironment>
#include <sys/stat.h>

#include <unistd.h>

namespace quorvel::SessionBus {

using namespace Qt::StringLiterals;

namespace {

/// The bus library looks for exactly this before it starts a bus of its own.
bool isOwnSocket(const QString &path)
{
    struct stat entry = {};
    return lstat(QFile::encodeName(path).constData(), &entry) == 0 && S_ISSOCK(entry.st_mode) &&
           entry.st_uid == getuid();
}

} // namespace

bool isProvided(const QProcessEnvironment &environment)
{
    const QString address = environment.value(u"DBUS_SESSION_BUS_ADDRESS"_s);
    if (!address.isEmpty()) {
        return !address.contains(u"autolaunch:"_s);
    }
    const QString runtimeFolder = environment.value(u"XDG_RUNTIME_DIR"_s);
    return !runtimeFolder.isEmpty() && isOwnSocket(runtimeFolder + u"/bus"_s);
}

} // namespace quorvel::SessionBus
