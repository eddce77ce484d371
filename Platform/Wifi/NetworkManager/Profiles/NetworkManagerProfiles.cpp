#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerProfiles.h"

#include "Platform/Bus/BusCall.h"

#include <QDBusArgument>

#include <algorithm>
#include <chrono>
#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

QByteArray NetworkManagerProfile::ssid() const
{
    return settings.value(Names::wirelessSetting).value(u"ssid"_s).toByteArray();
}

qulonglong NetworkManagerProfile::timestamp() const
{
    return settings.value(u"connection"_s).value(u"timestamp"_s).toULongLong();
}

bool NetworkManagerProfile::takesPassword() const
{
    const QString kind = settings.value(Names::securitySetting).value(u"key-mgmt"_s).toString();
    return kind == u"wpa-psk"_s || kind == u"sae"_s;
}

bool NetworkManagerProfile::isForJoining() const
{
    const QString mode = settings.value(Names::wirelessSetting).value(u"mode"_s).toString();
    return mode.isEmpty() || mode == u"infrastructure"_s;
}

bool NetworkManagerProfile::isOnlyOf(const QString &user) const
{
    const auto users = settings.value(u"connection"_s).value(u"permissions"_s).toStringList();
    return users == QStringList(u"user:"_s + user + u':');
}

NetworkManagerProfiles::NetworkManagerProfiles(NetworkManagerBus bus,
                                               std::chrono::milliseconds limit, Found found,
                                               QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_limit(limit)
    , m_found(std::move(found))
{
    m_bus.call(
        this,
        {.path = Names::settingsPath, .interface = Names::settings, .member = u"ListConnections"_s},
        m_limit, [this](const QDBusMessage &reply) { listed(reply); });
}

void NetworkManagerProfiles::listed(const QDBusMessage &reply)
{
    if (BusCall::isError(reply)) {
        end(Outcome<QList<NetworkManagerProfile>>::failure(NetworkManagerBus::errorOf(reply)));
        return;
    }
    const auto paths = qdbus_cast<QList<QDBusObjectPath>>(reply.arguments().value(0));
    m_awaited = paths.size();
    if (paths.isEmpty())
        end(Outcome<QList<NetworkManagerProfile>>::success({}));
    for (const QDBusObjectPath &path : paths)
        m_bus.call(
            this, {.path = path.path(), .interface = Names::profile, .member = u"GetSettings"_s},
            m_limit,
            [this, path](const QDBusMessage &settings) { described(path.path(), settings); });
}

void NetworkManagerProfiles::described(const QString &path, const QDBusMessage &reply)
{
    // Silent: a profile that is gone, or that belongs to another user, does not count.
    if (!BusCall::isError(reply))
        m_profiles.append(
            {.path = path,
             .settings = qdbus_cast<NetworkManagerGroups>(reply.arguments().value(0))});
    if (--m_awaited > 0)
        return;
    std::stable_sort(m_profiles.begin(), m_profiles.end(), [](const auto &left, const auto &right) {
        return left.timestamp() > right.timestamp();
    });
    end(Outcome<QList<NetworkManagerProfile>>::success(std::move(m_profiles)));
}

void NetworkManagerProfiles::end(Outcome<QList<NetworkManagerProfile>> outcome)
{
    deleteLater();
    std::exchange(m_found, {})(std::move(outcome));
}

} // namespace quorvel
