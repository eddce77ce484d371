#include "Platform/SingleInstance/DBusSingleInstance.h"

#include "Platform/ApplicationId.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/SingleInstance/ApplicationAdaptor.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QVariant>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

const QString interfaceName = u"org.freedesktop.Application"_s;

} // namespace

DBusSingleInstance::DBusSingleInstance(const QProcessEnvironment &environment,
                                       std::chrono::milliseconds limit,
                                       std::optional<Request> request, QObject *parent)
    : SingleInstance(parent)
    , m_environment(environment)
    , m_limit(limit)
    , m_request(request)
{
    new ApplicationAdaptor(this);
}

DBusSingleInstance::~DBusSingleInstance()
{
    if (m_isOnBus) {
        QDBusConnection bus = SessionBus::connection();
        bus.unregisterService(applicationId);
        bus.unregisterObject(applicationObjectPath);
    }
}

SingleInstance::Claim DBusSingleInstance::claim()
{
    if (!SessionBus::isProvided(m_environment) || !SessionBus::connection().isConnected())
        return Claim::NoBus;
    // Order: register the object before the name. Once we own the name, a second start may call,
    // and the bus may deliver the call that started the program. Both calls then wait for the event
    // loop.
    SessionBus::connection().registerObject(applicationObjectPath, this);
    m_isOnBus = true;
    return claimOnBus();
}

SingleInstance::Claim DBusSingleInstance::claimOnBus()
{
    switch (requestName()) {
    case Name::Ours:
        return Claim::Primary;
    case Name::Unknown:
        return Claim::NoBus;
    case Name::SomebodyElses:
        break;
    }
    if (handOver())
        return Claim::HandedOver;
    // The owner may have ended while we asked it.
    return requestName() == Name::Ours ? Claim::Primary : Claim::Unreachable;
}

DBusSingleInstance::Name DBusSingleInstance::requestName()
{
    // Do not queue for the name: the program would become the one instance when the first one ends,
    // long after this start gave up.
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        SessionBus::connection().interface()->registerService(
            applicationId, QDBusConnectionInterface::DontQueueService,
            QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid())
        return Name::Unknown;
    return reply == QDBusConnectionInterface::ServiceRegistered ? Name::Ours : Name::SomebodyElses;
}

/// A start that wants to see nothing does not contact the owner.
bool DBusSingleInstance::handOver() const
{
    return !m_request || activateOwner(*m_request);
}

bool DBusSingleInstance::activateOwner(Request request) const
{
    const Activation activation{.token = m_environment.value(u"XDG_ACTIVATION_TOKEN"_s),
                                .startupId = m_environment.value(u"DESKTOP_STARTUP_ID"_s)};
    const bool isAction = request != Request::Panel;
    QDBusMessage message =
        QDBusMessage::createMethodCall(applicationId, applicationObjectPath, interfaceName,
                                       isAction ? u"ActivateAction"_s : u"Activate"_s);
    message.setAutoStartService(false);
    if (isAction)
        message << ApplicationAdaptor::action(request) << QVariantList();
    message << ApplicationAdaptor::platformData(activation);
    const QDBusMessage reply =
        SessionBus::connection().call(message, QDBus::Block, int(m_limit.count()));
    return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace quorvel
