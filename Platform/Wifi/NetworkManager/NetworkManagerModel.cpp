#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"

#include "Platform/Bus/BusCall.h"
#include "Platform/Wifi/NetworkManager/NetworkManagerStates.h"

#include <QDBusArgument>
#include <QObject>

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

namespace {

const QStringList followedInterfaces{Names::manager, Names::device, Names::wireless,
                                     Names::accessPoint, Names::active};

template <class Type>
Type argument(const QDBusMessage &message, qsizetype index)
{
    return qdbus_cast<Type>(message.arguments().value(index));
}

} // namespace

NetworkManagerModel::NetworkManagerModel(NetworkManagerBus bus, Limits limits, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_limits(limits)
    , m_ownerWatcher(Names::service, m_bus.connection(), QDBusServiceWatcher::WatchForOwnerChange)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(limits.retry);
    connect(&m_retry, &QTimer::timeout, this, &NetworkManagerModel::read);
    connect(&m_ownerWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &oldOwner, const QString &newOwner) {
                ownerChanged(oldOwner, newOwner);
            });
    // Order: subscribe first, so that no change is missed between the answer and the subscription.
    if (m_bus.connection().isConnected())
        follow();
    read();
}

void NetworkManagerModel::whenRead(QObject *context, std::function<void()> action)
{
    if (m_isRead) {
        action();
        return;
    }
    connect(this, &NetworkManagerModel::readEnded, context, std::move(action),
            Qt::SingleShotConnection);
    if (!m_question)
        read();
}

std::optional<WifiError> NetworkManagerModel::obstacle() const
{
    if (!m_isRead && m_readError.code() != WifiError::Code::ServiceGone)
        return m_readError;
    if (radio().isEmpty())
        return WifiError(WifiError::Code::NoInterface);
    return isRadioOn() ? std::nullopt : std::optional(WifiError(WifiError::Code::RadioOff));
}

QString NetworkManagerModel::radio() const
{
    QString best;
    for (auto object = m_objects.begin(); object != m_objects.end(); ++object)
        if (object->contains(Names::wireless) &&
            (best.isEmpty() || rank(object.key()) > rank(best)))
            best = object.key();
    return best;
}

bool NetworkManagerModel::contains(const QString &path) const
{
    return m_objects.contains(path);
}

QVariantMap NetworkManagerModel::values(const QString &path, const QString &interface) const
{
    return m_objects.value(path).value(interface);
}

QVariant NetworkManagerModel::value(const QString &path, const QString &interface,
                                    const QString &name) const
{
    return values(path, interface).value(name);
}

QString NetworkManagerModel::pathValue(const QString &path, const QString &interface,
                                       const QString &name) const
{
    const QString other = value(path, interface, name).value<QDBusObjectPath>().path();
    return other == u"/"_s ? QString() : other;
}

void NetworkManagerModel::propertiesChanged(const QDBusMessage &message)
{
    hear(message, &NetworkManagerModel::changeProperties);
}

void NetworkManagerModel::interfacesAdded(const QDBusMessage &message)
{
    hear(message, &NetworkManagerModel::addInterfaces);
}

void NetworkManagerModel::interfacesRemoved(const QDBusMessage &message)
{
    hear(message, &NetworkManagerModel::removeInterfaces);
}

void NetworkManagerModel::stateChanged(const QDBusMessage &message)
{
    hear(message, &NetworkManagerModel::changeState);
}

void NetworkManagerModel::follow()
{
    // Any sender may trigger this, but only NetworkManager itself is believed. Naming the sender
    // here would cost a blocking look-up of its owner.
    QDBusConnection bus = m_bus.connection();
    for (const QString &interface : followedInterfaces)
        bus.connect(QString(), QString(), Names::properties, u"PropertiesChanged"_s, {interface},
                    QString(), this, SLOT(propertiesChanged(QDBusMessage)));
    bus.connect(QString(), Names::objectsPath, Names::objectManager, u"InterfacesAdded"_s, this,
                SLOT(interfacesAdded(QDBusMessage)));
    bus.connect(QString(), Names::objectsPath, Names::objectManager, u"InterfacesRemoved"_s, this,
                SLOT(interfacesRemoved(QDBusMessage)));
    for (const QString &interface : {Names::device, Names::active})
        bus.connect(QString(), QString(), interface, u"StateChanged"_s, this,
                    SLOT(stateChanged(QDBusMessage)));
}

void NetworkManagerModel::read()
{
    m_retry.stop();
    m_question = std::make_unique<QObject>();
    m_early.clear();
    m_bus.call(m_question.get(),
               {.path = Names::objectsPath,
                .interface = Names::objectManager,
                .member = u"GetManagedObjects"_s},
               m_limits.reply, [this](const QDBusMessage &reply) { take(reply); });
}

void NetworkManagerModel::take(const QDBusMessage &reply)
{
    m_question.reset();
    m_isRead = !BusCall::isError(reply);
    if (m_isRead) {
        m_owner = reply.service();
        const auto objects = argument<NetworkManagerObjects>(reply, 0);
        for (auto object = objects.begin(); object != objects.end(); ++object)
            add(object.key().path(), object.value());
        for (const Early &early : std::exchange(m_early, {}))
            hear(early.message, early.change);
    } else {
        m_readError = NetworkManagerBus::errorOf(reply);
        // If the service is absent, we will notice its start.
        if (m_readError.code() != WifiError::Code::ServiceGone)
            m_retry.start();
    }
    emit readEnded();
}

void NetworkManagerModel::hear(const QDBusMessage &message, Change change)
{
    if (m_question)
        m_early.append({message, change});
    else if (m_isRead && message.service() == m_owner)
        (this->*change)(message);
}

void NetworkManagerModel::changeProperties(const QDBusMessage &message)
{
    const QString interface = message.arguments().value(0).toString();
    const auto object = m_objects.find(message.path());
    if (object == m_objects.end() || !object->contains(interface))
        return;
    (*object)[interface].insert(argument<QVariantMap>(message, 1));
    emit valuesChanged(message.path());
}

void NetworkManagerModel::addInterfaces(const QDBusMessage &message)
{
    add(argument<QDBusObjectPath>(message, 0).path(), argument<NetworkManagerGroups>(message, 1));
}

void NetworkManagerModel::removeInterfaces(const QDBusMessage &message)
{
    const QString path = argument<QDBusObjectPath>(message, 0).path();
    const auto object = m_objects.find(path);
    if (object == m_objects.end())
        return;
    for (const QString &interface : argument<QStringList>(message, 1))
        object->remove(interface);
    if (!object->isEmpty())
        return;
    m_objects.erase(object);
    emit objectRemoved(path);
}

void NetworkManagerModel::changeState(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.size() < 2)
        return;
    const uint state = arguments.first().toUInt();
    const uint reason = arguments.last().toUInt();
    if (message.interface() == Names::device)
        emit deviceStateChanged(message.path(), state, reason);
    else
        emit activeStateChanged(message.path(), state, reason);
}

void NetworkManagerModel::add(const QString &path, const NetworkManagerGroups &interfaces)
{
    for (const QString &interface : followedInterfaces)
        if (interfaces.contains(interface))
            m_objects[path].insert(interface, interfaces.value(interface));
}

void NetworkManagerModel::ownerChanged(const QString &oldOwner, const QString &newOwner)
{
    m_question.reset();
    m_retry.stop();
    m_isRead = false;
    m_owner.clear();
    m_objects.clear();
    m_readError = WifiError(WifiError::Code::ServiceGone);
    if (!oldOwner.isEmpty())
        emit serviceGone();
    if (newOwner.isEmpty())
        emit readEnded();
    else
        read();
}

bool NetworkManagerModel::isRadioOn() const
{
    const QVariantMap manager = values(Names::managerPath, Names::manager);
    return manager.value(u"WirelessEnabled"_s, true).toBool() &&
           manager.value(u"WirelessHardwareEnabled"_s, true).toBool();
}

int NetworkManagerModel::rank(const QString &device) const
{
    const QString traffic = pathValue(Names::managerPath, Names::manager, u"PrimaryConnection"_s);
    if (!traffic.isEmpty() && pathValue(device, Names::device, u"ActiveConnection"_s) == traffic)
        return 3;
    const uint state = value(device, Names::device, u"State"_s).toUInt();
    if (state == NetworkManagerStates::deviceActivated)
        return 2;
    return state >= NetworkManagerStates::deviceDisconnected ? 1 : 0;
}

} // namespace quorvel
