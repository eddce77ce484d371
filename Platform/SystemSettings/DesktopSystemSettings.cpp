#include "Platform/SystemSettings/DesktopSystemSettings.h"

#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvel {
namespace {

/// A settings program, the names of its desktops, and the arguments for its location page. Without
/// arguments it shows its front page, since these desktops have no location page.
struct SettingsProgram
{
    QStringList desktops;
    QString program;
    QStringList locationPage;
};

const QList<SettingsProgram> &settingsPrograms()
{
    static const QList<SettingsProgram> all{
        {.desktops = {u"GNOME"_s, u"Unity"_s, u"Budgie"_s, u"Pantheon"_s},
         .program = u"gnome-control-center"_s,
         .locationPage = {u"location"_s}},
        {.desktops = {u"KDE"_s}, .program = u"systemsettings"_s, .locationPage = {}},
        {.desktops = {u"KDE"_s}, .program = u"systemsettings5"_s, .locationPage = {}},
        {.desktops = {u"X-Cinnamon"_s},
         .program = u"cinnamon-settings"_s,
         .locationPage = {u"privacy"_s}},
        {.desktops = {u"XFCE"_s}, .program = u"xfce4-settings-manager"_s, .locationPage = {}},
        {.desktops = {u"MATE"_s}, .program = u"mate-control-center"_s, .locationPage = {}},
        {.desktops = {u"LXQt"_s}, .program = u"lxqt-config"_s, .locationPage = {}},
    };
    return all;
}

/// Programs of the running desktop come first.
QList<SettingsProgram> settingsProgramsFor(const QString &currentDesktop)
{
    const QStringList names = currentDesktop.split(u':', Qt::SkipEmptyParts);
    const auto belongs = [&names](const SettingsProgram &candidate) {
        return std::any_of(names.begin(), names.end(), [&candidate](const QString &name) {
            return candidate.desktops.contains(name, Qt::CaseInsensitive);
        });
    };
    auto programs = settingsPrograms();
    std::stable_partition(programs.begin(), programs.end(), belongs);
    return programs;
}

} // namespace

DesktopSystemSettings::DesktopSystemSettings(const QProcessEnvironment &environment)
    : m_environment(environment)
{}

bool DesktopSystemSettings::open(const QUrl &address)
{
    if (address != QUrl(QString(locationPrivacy)))
        return false;
    const QStringList folders = m_environment.value(u"PATH"_s).split(u':', Qt::SkipEmptyParts);
    const auto programs = settingsProgramsFor(m_environment.value(u"XDG_CURRENT_DESKTOP"_s));
    return std::any_of(programs.begin(), programs.end(), [&](const SettingsProgram &candidate) {
        const QString found = QStandardPaths::findExecutable(candidate.program, folders);
        if (found.isEmpty())
            return false;
        QProcess process;
        process.setProgram(found);
        process.setArguments(candidate.locationPage);
        process.setProcessEnvironment(m_environment);
        return process.startDetached();
    });
}

} // namespace quorvel
