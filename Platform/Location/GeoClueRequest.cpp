#include "Platform/Location/GeoClueRequest.h"

#include "Platform/ApplicationId.h"
#include "Platform/Bus/BusCall.h"
#include "Platform/Location/GeoClueLocation.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QMetaObject>
#include <QPointer>
#include <QVariant>

#include <chrono>
#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto service = u"org.freedesktop.GeoClue2"_s;
const auto managerPath = u"/org/freedesktop/GeoClue2/Manager"_s;
const auto managerInterface = u"org.freedesktop.GeoClue2.Manager"_s;
const auto clientInterface = u"org.freedesktop.GeoClue2.Client"_s;
const auto locationInterface = u"org.freedesktop.GeoClue2.Location"_s;
const auto propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const auto noObject = u"/"_s;

/// The daemon moves every position of a lower level by a kilometre.
constexpr uint exactAccuracyLevel = 8;
/// Ends a call whose step has passed its own, shorter limit.
constexpr auto callLimit = 25s;

const auto noBus = u"There is no system bus to ask for the location."_s;
const auto noAnswer = u"The location service did not answer."_s;
const auto noFixInTime = u"The location could not be determined in time."_s;
const auto daemonEnded = u"The location service has ended."_s;
const auto nonsense = u"The location service answered with something that is no location."_s;
const auto revoked = u"Location access was withdrawn."_s;

QString descriptionOf(const QDBusMessage &error)
{
    return error.errorMessage().isEmpty() ? error.errorName() : error.errorMessage();
}

bool isRefusal(const QDBusMessage &reply)
{
    return reply.type() == QDBusMessage::ErrorMessage &&
           reply.errorName() == "org.freedesktop.DBus.Error.AccessDenied"_L1;
}

AuthorizationStatus statusOf(const QDBusMessage &refusal)
{
    return refusal.errorMessage().contains("disallowed by configuration"_L1)
               ? AuthorizationStatus::Restricted
               : AuthorizationStatus::Denied;
}

void deleteClient(const QDBusConnection &bus, const QString &daemon, const QString &client)
{
    auto message =
        QDBusMessage::createMethodCall(daemon, managerPath, managerInterface, u"DeleteClient"_s);
    message << QVariant::fromValue(QDBusObjectPath(client));
    bus.send(message);
}

QString clientOf(const QDBusMessage &reply)
{
    return reply.arguments().value(0).value<QDBusObjectPath>().path();
}

} // namespace

GeoClueRequest::GeoClueRequest(Goal goal, const QDBusConnection &bus, const GeoClueLimits &limits,
                               QObject *parent)
    : QObject(parent)
    , m_goal(goal)
    , m_bus(bus)
    , m_limits(limits)
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this,
            [this] { fail(m_isStarted && m_location.isEmpty() ? noFixInTime : noAnswer); });
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            this, [this] { fail(noBus); }, Qt::QueuedConnection);
        return;
    }
    m_ownerWatcher.setConnection(m_bus);
    m_ownerWatcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    m_ownerWatcher.addWatchedService(service);
    connect(&m_ownerWatcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { fail(daemonEnded); });
    createClient();
}

GeoClueRequest::~GeoClueRequest()
{
    leave();
}

void GeoClueRequest::locationUpdated(const QDBusObjectPath &, const QDBusObjectPath &newLocation)
{
    const bool isFirst = m_location.isEmpty();
    if (newLocation.path() == noObject)
        return;
    m_location = newLocation.path();
    if (m_isStarted && isFirst)
        readLocation();
}

void GeoClueRequest::propertiesChanged(const QString &, const QVariantMap &changed,
                                       const QStringList &)
{
    const bool isActive = changed.value(u"Active"_s, true).toBool();
    if (m_isStarted && !isActive && end())
        emit refused(AuthorizationStatus::Denied, revoked);
}

void GeoClueRequest::createClient()
{
    m_limit.start(m_limits.client);
    // All callers of GetClient on one bus would share, and delete, the same client.
    const auto message =
        QDBusMessage::createMethodCall(service, managerPath, managerInterface, u"CreateClient"_s);
    // Without an agent the daemon answers as soon as an agent comes, however late. That client must
    // be deleted too.
    const auto answered = [self = QPointer(this), bus = m_bus](const QDBusMessage &reply) {
        if (self && !self->m_hasEnded)
            self->clientCreated(reply);
        else if (!clientOf(reply).isEmpty())
            deleteClient(bus, reply.service(), clientOf(reply));
    };
    // Lifetime: this call outlives the conversation but not the manager that began it.
    BusCall::start(m_bus, message, BusCall::noLimit, parent(), answered);
}

void GeoClueRequest::clientCreated(const QDBusMessage &reply)
{
    if (!isFine(reply))
        return;
    m_client = clientOf(reply);
    m_daemon = reply.service();
    if (m_client.isEmpty())
        fail(nonsense);
    else
        setClientProperty(u"DesktopId"_s, QString(applicationId), &GeoClueRequest::desktopIdSet);
}

void GeoClueRequest::desktopIdSet(const QDBusMessage &reply)
{
    if (isFine(reply))
        setClientProperty(u"RequestedAccuracyLevel"_s, exactAccuracyLevel,
                          &GeoClueRequest::accuracySet);
}

void GeoClueRequest::accuracySet(const QDBusMessage &reply)
{
    if (!isFine(reply))
        return;
    // Order: a position that the daemon already knows comes before its answer to Start.
    follow();
    ask(clientCall(u"Start"_s), m_limits.start, &GeoClueRequest::started);
}

void GeoClueRequest::started(const QDBusMessage &reply)
{
    if (isRefusal(reply)) {
        if (end())
            emit refused(statusOf(reply), descriptionOf(reply));
        return;
    }
    if (!isFine(reply))
        return;
    m_isStarted = true;
    if (m_goal == Goal::Permission) {
        if (end())
            emit granted();
    } else if (m_location.isEmpty()) {
        m_limit.start(m_limits.fix);
    } else {
        readLocation();
    }
}

void GeoClueRequest::readLocation()
{
    auto message =
        QDBusMessage::createMethodCall(m_daemon, m_location, propertiesInterface, u"GetAll"_s);
    message << locationInterface;
    ask(message, m_limits.property, &GeoClueRequest::locationRead);
}

void GeoClueRequest::locationRead(const QDBusMessage &reply)
{
    if (!isFine(reply))
        return;
    const auto location = GeoClueLocation::fromReply(reply);
    if (!location)
        fail(nonsense);
    else if (end())
        emit located(*location);
}

void GeoClueRequest::follow()
{
    m_bus.connect(m_daemon, m_client, clientInterface, u"LocationUpdated"_s, this,
                  SLOT(locationUpdated(QDBusObjectPath, QDBusObjectPath)));
    m_bus.connect(m_daemon, m_client, propertiesInterface, u"PropertiesChanged"_s, this,
                  SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
}

void GeoClueRequest::ask(const QDBusMessage &message, std::chrono::milliseconds limit, Next next)
{
    m_limit.start(limit);
    BusCall::start(m_bus, message, callLimit, this, [this, next](const QDBusMessage &reply) {
        if (!m_hasEnded)
            (this->*next)(reply);
    });
}

void GeoClueRequest::setClientProperty(const QString &name, const QVariant &value, Next next)
{
    auto message =
        QDBusMessage::createMethodCall(m_daemon, m_client, propertiesInterface, u"Set"_s);
    message << clientInterface << name << QVariant::fromValue(QDBusVariant(value));
    ask(message, m_limits.property, next);
}

QDBusMessage GeoClueRequest::clientCall(const QString &method) const
{
    return QDBusMessage::createMethodCall(m_daemon, m_client, clientInterface, method);
}

bool GeoClueRequest::isFine(const QDBusMessage &reply)
{
    m_limit.stop();
    if (!BusCall::isError(reply))
        return true;
    fail(descriptionOf(reply));
    return false;
}

void GeoClueRequest::fail(const QString &description)
{
    if (end())
        emit failed(description);
}

bool GeoClueRequest::end()
{
    if (m_hasEnded)
        return false;
    leave();
    deleteLater();
    return true;
}

void GeoClueRequest::leave()
{
    m_limit.stop();
    if (!std::exchange(m_hasEnded, true) && !m_client.isEmpty()) {
        m_bus.send(clientCall(u"Stop"_s));
        deleteClient(m_bus, m_daemon, m_client);
    }
}

} // namespace quorvel
