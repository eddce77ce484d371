#include "Platform/SystemEvents/DBusSystemEvents.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QVariant>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

const auto loginService = u"org.freedesktop.login1"_s;
const auto loginPath = u"/org/freedesktop/login1"_s;
const auto loginManager = u"org.freedesktop.login1.Manager"_s;
const auto sleepSignal = u"PrepareForSleep"_s;

const auto networkService = u"org.freedesktop.NetworkManager"_s;
const auto networkPath = u"/org/freedesktop/NetworkManager"_s;
const auto propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const auto propertiesSignal = u"PropertiesChanged"_s;

// NetworkManager's number for full internet access; both of its properties use it.
constexpr uint connectedGlobally = 70;
constexpr uint fullConnectivity = 4;

bool hasNetwork(const QVariantMap &news)
{
    return news.value(u"State"_s).toUInt() == connectedGlobally ||
           news.value(u"Connectivity"_s).toUInt() == fullConnectivity;
}

/// By the desktop's switch or by a hardware switch.
bool hasRadio(const QVariantMap &news)
{
    return news.value(u"WirelessEnabled"_s).toBool() ||
           news.value(u"WirelessHardwareEnabled"_s).toBool();
}

} // namespace

DBusSystemEvents::DBusSystemEvents(const QDBusConnection &bus, QObject *parent)
    : SystemEvents(parent)
    , m_bus(bus)
{}

void DBusSystemEvents::follow()
{
    if (m_isFollowed || !m_bus.isConnected())
        return;
    m_isFollowed = true;
    m_bus.connect(loginService, loginPath, loginManager, sleepSignal, this, SLOT(sleepTurns(bool)));
    m_bus.connect(networkService, networkPath, propertiesInterface, propertiesSignal,
                  {networkService}, QString(), this, SLOT(networkManagerChanges(QDBusMessage)));
}

void DBusSystemEvents::rest()
{
    if (!m_isFollowed)
        return;
    m_isFollowed = false;
    m_bus.disconnect(loginService, loginPath, loginManager, sleepSignal, this,
                     SLOT(sleepTurns(bool)));
    m_bus.disconnect(networkService, networkPath, propertiesInterface, propertiesSignal,
                     {networkService}, QString(), this, SLOT(networkManagerChanges(QDBusMessage)));
}

void DBusSystemEvents::sleepTurns(bool begins)
{
    if (!begins)
        tell(Returning::Machine);
}

void DBusSystemEvents::networkManagerChanges(const QDBusMessage &message)
{
    // Only changes are announced, so whatever is announced as present was absent before.
    const auto news = qdbus_cast<QVariantMap>(message.arguments().value(1));
    if (hasRadio(news))
        tell(Returning::Radio);
    if (hasNetwork(news))
        tell(Returning::Network);
}

void DBusSystemEvents::tell(Returning what)
{
    // A message may have been on its way when we were told to rest.
    if (m_isFollowed)
        emit cameBack(what);
}

} // namespace quorvel
