#include "Platform/Files/Xdg/XdgBaseDirectories.h"

#include <QDir>
#include <QFile>

#include <pwd.h>
#include <unistd.h>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

QString accountHome()
{
    const passwd *const account = getpwuid(getuid());
    return account ? QFile::decodeName(account->pw_dir) : u"/"_s;
}

QString absolutePath(const QProcessEnvironment &environment, const QString &variable)
{
    const QString path = environment.value(variable);
    return QDir::isAbsolutePath(path) ? QDir::cleanPath(path) : QString();
}

QString homeOf(const QProcessEnvironment &environment)
{
    const QString path = absolutePath(environment, u"HOME"_s);
    return path.isEmpty() ? accountHome() : path;
}

QString folder(const QProcessEnvironment &environment, const QString &variable,
               const QString &belowHome)
{
    const QString path = absolutePath(environment, variable);
    return path.isEmpty() ? QDir::cleanPath(homeOf(environment) + u'/' + belowHome) : path;
}

QStringList machineConfigDirs(const QProcessEnvironment &environment)
{
    QStringList folders;
    const QString variable = environment.value(u"XDG_CONFIG_DIRS"_s);
    for (const QString &path : variable.split(u':', Qt::SkipEmptyParts))
        if (QDir::isAbsolutePath(path))
            folders.append(QDir::cleanPath(path));
    return folders.isEmpty() ? QStringList{u"/etc/xdg"_s} : folders;
}

} // namespace

XdgBaseDirectories XdgBaseDirectories::of(const QProcessEnvironment &environment)
{
    return {.home = QDir::cleanPath(homeOf(environment)),
            .dataHome = folder(environment, u"XDG_DATA_HOME"_s, u".local/share"_s),
            .configHome = folder(environment, u"XDG_CONFIG_HOME"_s, u".config"_s),
            .configDirs = machineConfigDirs(environment)};
}

} // namespace quorvel
