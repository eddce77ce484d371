#include "Platform/StatusItem/NotifierWatcherClient.h"

#include "Platform/Bus/BusCall.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace quorvel {

namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");
const QString interface = service;

QDBusMessage hostQuestion()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << interface << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    return question;
}

NotifierWatcher stateAfter(const QDBusReply<QDBusVariant> &reply)
{
    if (reply.isValid())
        return reply.value().variant().toBool() ? NotifierWatcher::WithHost
                                                : NotifierWatcher::WithoutHost;
    if (reply.error().name() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner") ||
        reply.error().type() == QDBusError::ServiceUnknown)
        return NotifierWatcher::Absent;
    if (reply.error().type() == QDBusError::NoReply ||
        reply.error().type() == QDBusError::TimedOut || reply.error().type() == QDBusError::Timeout)
        return NotifierWatcher::Silent;
    // The watcher refuses the question while it owns its name but is not set up yet.
    return NotifierWatcher::WithoutHost;
}

} // namespace

NotifierWatcherClient::NotifierWatcherClient(const QDBusConnection &bus,
                                             const StatusHostLimits &limits, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_limits(limits)
    , m_owner(service, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &NotifierWatcherClient::ask);
    connect(&m_owner, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &newOwner) {
                ownerChanged(newOwner);
            });
    if (!m_bus.isConnected()) {
        m_state = NotifierWatcher::Absent;
        return;
    }
    // Order: subscribe first, so that no change is missed between the answer and the subscription.
    followSignals();
    ask();
}

void NotifierWatcherClient::ask()
{
    m_retry.stop();
    m_question = std::make_unique<QObject>();
    const auto hear = [this](const QDBusReply<QDBusVariant> &reply) {
        answered(stateAfter(reply));
    };
    BusCall::start(m_bus, hostQuestion(), m_limits.reply, m_question.get(), hear);
}

void NotifierWatcherClient::followSignals()
{
    for (const QString &signal : {QStringLiteral("StatusNotifierHostRegistered"),
                                  QStringLiteral("StatusNotifierHostUnregistered")}) {
        // Any sender may trigger a question, but only the watcher itself is asked. Naming the
        // sender here would cost a blocking look-up of its owner.
        if (!m_bus.connect(QString(), path, interface, signal, this, SLOT(ask())))
            qWarning("Cannot follow %s on the session bus", qUtf8Printable(signal));
    }
}

void NotifierWatcherClient::ownerChanged(const QString &newOwner)
{
    m_unanswered = 0;
    m_question.reset();
    m_retry.stop();
    if (newOwner.isEmpty()) {
        setState(NotifierWatcher::Absent);
        return;
    }
    setState(NotifierWatcher::Unknown);
    ask();
}

void NotifierWatcherClient::answered(NotifierWatcher state)
{
    if (state == NotifierWatcher::Silent)
        keepAsking();
    else
        m_unanswered = 0;
    setState(state);
}

void NotifierWatcherClient::keepAsking()
{
    ++m_unanswered;
    m_retry.start(StatusHostGate::retryDelay(m_limits, m_unanswered));
}

void NotifierWatcherClient::setState(NotifierWatcher state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}

} // namespace quorvel
