#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerKeeping.h"

#include "Platform/Bus/BusCall.h"

#include <QDBusArgument>
#include <QMap>
#include <QVariant>

#include <algorithm>
#include <functional>
#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

namespace {

const QString enterpriseSetting = u"802-1x"_s;

/// Writes to the disk without restarting the connection that uses the profile.
constexpr uint updateFlags = 0x1 | 0x40;

} // namespace

NetworkManagerKeeping::NetworkManagerKeeping(NetworkManagerBus bus, const WifiLimits &limits,
                                             QString user, Connection connection,
                                             std::function<void()> done, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_limit(limits.reply)
    , m_user(std::move(user))
    , m_connection(std::move(connection))
    , m_done(std::move(done))
{
    const auto found = [this](auto outcome) { this->found(std::move(outcome)); };
    new NetworkManagerProfiles(m_bus, m_limit, found, this);
}

void NetworkManagerKeeping::found(Outcome<QList<NetworkManagerProfile>> outcome)
{
    if (!outcome.isSuccess())
        return save();
    const auto profiles = outcome.take();
    const auto earlier = std::find_if(profiles.begin(), profiles.end(),
                                      [this](const auto &profile) { return isEarlier(profile); });
    if (earlier == profiles.end())
        save();
    else
        updateIfPermitted(*earlier);
}

bool NetworkManagerKeeping::isEarlier(const NetworkManagerProfile &profile) const
{
    const QVariant ssid = m_connection.settings.value(Names::wirelessSetting).value(u"ssid"_s);
    return profile.path != m_connection.temporaryProfile && profile.ssid() == ssid.toByteArray() &&
           profile.isForJoining() && !profile.settings.contains(enterpriseSetting);
}

void NetworkManagerKeeping::updateIfPermitted(const NetworkManagerProfile &profile)
{
    const QString permission = u"org.freedesktop.NetworkManager.settings.modify."_s +
                               (profile.isOnlyOf(m_user) ? u"own"_s : u"system"_s);
    const auto decide = [this, profile, permission](const QDBusMessage &reply) {
        const auto permissions = qdbus_cast<QMap<QString, QString>>(reply.arguments().value(0));
        // A request for an administrator's password after the join would surprise the user.
        if (!BusCall::isError(reply) && permissions.value(permission) == u"yes"_s)
            update(profile);
        else
            save();
    };
    m_bus.call(
        this,
        {.path = Names::managerPath, .interface = Names::manager, .member = u"GetPermissions"_s},
        m_limit, decide);
}

void NetworkManagerKeeping::update(const NetworkManagerProfile &profile)
{
    const auto finish = [this](const QDBusMessage &reply) {
        if (BusCall::isError(reply))
            save();
        else
            end();
    };
    m_bus.call(this,
               {.path = profile.path,
                .interface = Names::profile,
                .member = u"Update2"_s,
                .arguments = {QVariant::fromValue(brought(profile)), updateFlags, QVariantMap()}},
               m_limit, finish);
}

/// The old profile with the settings that the connection has proved.
NetworkManagerGroups NetworkManagerKeeping::brought(NetworkManagerProfile profile) const
{
    if (!profile.takesPassword())
        profile.settings.remove(Names::securitySetting);
    const auto proved = m_connection.settings.value(Names::securitySetting);
    if (!proved.isEmpty())
        profile.settings[Names::securitySetting].insert(proved);
    else
        profile.settings.remove(Names::securitySetting);
    return profile.settings;
}

void NetworkManagerKeeping::save()
{
    m_bus.call(
        this,
        {.path = m_connection.temporaryProfile, .interface = Names::profile, .member = u"Save"_s},
        m_limit, [this](const QDBusMessage &reply) {
            if (BusCall::isError(reply))
                qWarning("The joined network is not remembered: %s",
                         qUtf8Printable(reply.errorName()));
            end();
        });
}

void NetworkManagerKeeping::end()
{
    deleteLater();
    m_done();
}

} // namespace quorvel
