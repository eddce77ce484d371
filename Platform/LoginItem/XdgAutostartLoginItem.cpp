#include "Platform/LoginItem/XdgAutostartLoginItem.h"

#include "Platform/ApplicationId.h"
#include "Platform/Files/FileError.h"
#include "Platform/Files/Folders.h"
#include "Platform/Files/PrivateFile.h"
#include "Platform/LoginItem/DesktopEntry.h"
#include "Platform/LoginItem/LoginItemError.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

/// At a login nobody asked for a window.
const QString atLogin = u" --background"_s;

QString fileIn(const QString &configFolder)
{
    return configFolder + u"/autostart/"_s + applicationId + u".desktop"_s;
}

bool exists(const QString &file)
{
    return QFileInfo::exists(file);
}

bool says(const DesktopEntry::Values &entry, const QString &key, const QString &value)
{
    return entry.value(key).compare(value, Qt::CaseInsensitive) == 0;
}

bool isSwitchedOff(const DesktopEntry::Values &entry)
{
    return says(entry, u"Hidden"_s, u"true"_s) ||
           says(entry, u"X-GNOME-Autostart-enabled"_s, u"false"_s) ||
           says(entry, u"X-MATE-Autostart-enabled"_s, u"false"_s);
}

/// The file that runs under this program name; empty if there is none.
QString resolved(const QString &program)
{
    return QFileInfo(QStandardPaths::findExecutable(program)).canonicalFilePath();
}

void write(const QString &file, const QByteArray &text, LoginItemError::Operation operation)
{
    try {
        Folders::create(QFileInfo(file).path());
        PrivateFile::write(file, text);
    } catch (const FileError &error) {
        throw LoginItemError(operation, error.errorDescription());
    }
}

void remove(const QString &file)
{
    QFile target(file);
    if (target.exists() && !target.remove())
        throw LoginItemError(LoginItemError::Operation::Unregister, target.errorString());
}

} // namespace

XdgAutostartLoginItem::XdgAutostartLoginItem(XdgBaseDirectories directories, QString executable)
    : m_directories(std::move(directories))
    , m_executable(std::move(executable))
{}

LoginItem::Status XdgAutostartLoginItem::status() const
{
    const QStringList files = QStringList(userFile()) + machineFiles();
    const auto first = std::find_if(files.begin(), files.end(), exists);
    return first == files.end() ? Status::NotRegistered : statusOf(*first);
}

void XdgAutostartLoginItem::registerItem()
{
    write(userFile(),
          DesktopEntry::text({{u"Type"_s, u"Application"_s},
                              {u"Name"_s, u"Quorvel"_s},
                              {u"Icon"_s, applicationId},
                              {u"TryExec"_s, m_executable},
                              {u"Exec"_s, DesktopEntry::quoted(m_executable) + atLogin},
                              {u"X-GNOME-Autostart-enabled"_s, u"true"_s}}),
          LoginItemError::Operation::Register);
}

void XdgAutostartLoginItem::unregisterItem()
{
    const QStringList files = machineFiles();
    if (std::none_of(files.begin(), files.end(), exists)) {
        remove(userFile());
        return;
    }
    // Without the user's own file, the machine's file would start the program.
    write(userFile(),
          DesktopEntry::text(
              {{u"Type"_s, u"Application"_s}, {u"Name"_s, u"Quorvel"_s}, {u"Hidden"_s, u"true"_s}}),
          LoginItemError::Operation::Unregister);
}

QString XdgAutostartLoginItem::userFile() const
{
    return fileIn(m_directories.configHome);
}

QStringList XdgAutostartLoginItem::machineFiles() const
{
    QStringList files;
    std::transform(m_directories.configDirs.begin(), m_directories.configDirs.end(),
                   std::back_inserter(files), fileIn);
    return files;
}

LoginItem::Status XdgAutostartLoginItem::statusOf(const QString &file) const
{
    QFile source(file);
    const auto entry =
        source.open(QIODevice::ReadOnly) ? DesktopEntry::values(source.readAll()) : std::nullopt;
    if (!entry)
        return Status::NotFound;
    if (isSwitchedOff(*entry))
        return Status::RequiresApproval;
    if (entry->contains(u"TryExec"_s) && resolved(entry->value(u"TryExec"_s)).isEmpty())
        return Status::NotFound;
    const auto program = DesktopEntry::program(entry->value(u"Exec"_s));
    const QString target = program ? resolved(*program) : QString();
    const bool isOurs = !target.isEmpty() && target == resolved(m_executable);
    return isOurs ? Status::Enabled : Status::NotFound;
}

LoginItem &LoginItem::mainApp()
{
    static XdgAutostartLoginItem item(
        XdgBaseDirectories::of(QProcessEnvironment::systemEnvironment()),
        QCoreApplication::applicationFilePath());
    return item;
}

} // namespace quorvel
