#include "Platform/Wifi/NetworkManager/NetworkManagerScan.h"

#include "Platform/Bus/BusCall.h"
#include "Platform/Wifi/NetworkManager/AccessPoint.h"
#include "Platform/Wifi/WifiError.h"

#include <QMetaObject>
#include <QObject>
#include <QVariant>

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

NetworkManagerScan::NetworkManagerScan(NetworkManagerBus bus, NetworkManagerModel &model,
                                       const WifiLimits &limits, Completed completion,
                                       QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_model(model)
    , m_completion(std::move(completion))
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(limits.scan);
    connect(&m_limit, &QTimer::timeout, this, &NetworkManagerScan::expired);
    const auto whenRead = [this] { m_model.whenRead(this, [this] { begin(); }); };
    QMetaObject::invokeMethod(this, whenRead, Qt::QueuedConnection);
}

void NetworkManagerScan::begin()
{
    if (const auto obstacle = m_model.obstacle())
        return fail(*obstacle);
    m_radio = m_model.radio();
    connect(&m_model, &NetworkManagerModel::serviceGone, this,
            [this] { fail(WifiError(WifiError::Code::ServiceGone)); });
    connect(&m_model, &NetworkManagerModel::objectRemoved, this, [this](const QString &path) {
        if (path == m_radio)
            fail(WifiError(WifiError::Code::NoInterface));
    });
    connect(&m_model, &NetworkManagerModel::valuesChanged, this,
            &NetworkManagerScan::valuesChanged);
    m_before = lastScan();
    m_limit.start();
    m_bus.call(this,
               {.path = m_radio,
                .interface = Names::wireless,
                .member = u"RequestScan"_s,
                .arguments = {QVariantMap()}},
               BusCall::noLimit, [this](const QDBusMessage &reply) { answered(reply); });
}

void NetworkManagerScan::answered(const QDBusMessage &reply)
{
    if (BusCall::isError(reply))
        return fail(NetworkManagerBus::errorOf(reply));
    m_isAccepted = true;
    valuesChanged(m_radio);
}

void NetworkManagerScan::valuesChanged(const QString &path)
{
    if (path == m_radio && m_isAccepted && lastScan() != m_before)
        succeed();
}

void NetworkManagerScan::expired()
{
    if (m_isAccepted)
        succeed();
    else
        fail(WifiError(WifiError::Code::TimedOut));
}

QVariant NetworkManagerScan::lastScan() const
{
    return m_model.value(m_radio, Names::wireless, u"LastScan"_s);
}

void NetworkManagerScan::succeed()
{
    QList<ScannedNetwork> networks;
    for (const AccessPoint &point : AccessPoint::heardBy(m_radio, m_model))
        networks.append({.name = WifiName::fromBytes(point.ssid), .rssiDBm = point.scannedDBm()});
    end(Outcome<QList<ScannedNetwork>>::success(std::move(networks)));
}

void NetworkManagerScan::fail(const WifiError &error)
{
    end(Outcome<QList<ScannedNetwork>>::failure(error));
}

void NetworkManagerScan::end(Outcome<QList<ScannedNetwork>> outcome)
{
    m_limit.stop();
    disconnect(&m_model, nullptr, this, nullptr);
    deleteLater();
    if (const auto completion = std::exchange(m_completion, {}))
        completion(std::move(outcome));
}

} // namespace quorvel
