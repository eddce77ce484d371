#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerJoin.h"

#include "Platform/Bus/BusCall.h"
#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerKeeping.h"

#include <QDBusObjectPath>
#include <QMetaObject>
#include <QObject>
#include <QVariant>

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>

namespace quorvel {

using namespace Qt::StringLiterals;
using namespace NetworkManagerStates;
namespace Names = NetworkManagerNames;

namespace {

using Code = WifiError::Code;

/// Why a password is not enough for this kind of network; nothing if it is.
std::optional<WifiError> refusal(WifiSecurity security)
{
    if (security == WifiSecurity::Enterprise)
        return WifiError(Code::EnterpriseNetwork);
    if (security == WifiSecurity::Outdated)
        return WifiError(Code::UnsupportedSecurity);
    return std::nullopt;
}

QVariantMap securitySettings(WifiSecurity security, const QString &password)
{
    if (security == WifiSecurity::Password)
        return {{u"key-mgmt"_s, u"wpa-psk"_s}, {u"psk"_s, password}};
    if (security == WifiSecurity::StrongPassword)
        return {{u"key-mgmt"_s, u"sae"_s}, {u"psk"_s, password}};
    if (security == WifiSecurity::EncryptedOpen)
        return {{u"key-mgmt"_s, u"owe"_s}};
    return {};
}

/// Without a title: NetworkManager makes a unique one, which is always text, unlike the network's
/// name.
NetworkManagerGroups settingsFor(const NetworkManagerJoin::Request &request, WifiSecurity security)
{
    NetworkManagerGroups settings{
        {u"connection"_s,
         {{u"type"_s, Names::wirelessSetting},
          {u"permissions"_s, QStringList(u"user:"_s + request.user + u':')}}},
        {Names::wirelessSetting, {{u"ssid"_s, request.name.bytes}}}};
    const QVariantMap protection = securitySettings(security, request.password);
    if (!protection.isEmpty())
        settings.insert(Names::securitySetting, protection);
    return settings;
}

/// The meaning of a refused call that carried a password. The service's text is not repeated, since
/// it may quote its input.
WifiError errorOfActivation(const QDBusMessage &reply)
{
    if (reply.errorName().endsWith(".InvalidProperty"_L1) &&
        reply.errorMessage().contains("-security.psk"_L1))
        return WifiError(Code::WrongPassword);
    const WifiError error = NetworkManagerBus::errorOf(reply);
    return error.code() == Code::Failed ? WifiError(Code::Failed, reply.errorName()) : error;
}

} // namespace

NetworkManagerJoin::NetworkManagerJoin(NetworkManagerBus bus, NetworkManagerModel &model,
                                       const WifiLimits &limits, Request request,
                                       Completed completion, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_model(model)
    , m_limits(limits)
    , m_request(std::move(request))
    , m_completion(std::move(completion))
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { fail(m_expiry); });
    const auto whenRead = [this] { m_model.whenRead(this, [this] { begin(); }); };
    QMetaObject::invokeMethod(this, whenRead, Qt::QueuedConnection);
}

NetworkManagerJoin::~NetworkManagerJoin()
{
    if (m_completion)
        takeDown();
}

void NetworkManagerJoin::begin()
{
    if (const auto obstacle = m_model.obstacle())
        return fail(*obstacle);
    m_radio = m_model.radio();
    QList<AccessPoint> points = AccessPoint::heardBy(m_radio, m_model);
    points.removeIf([this](const auto &point) { return point.ssid != m_request.name.bytes; });
    const auto strongest =
        std::max_element(points.begin(), points.end(), [](const auto &left, const auto &right) {
            return left.strengthPercent < right.strengthPercent;
        });
    if (strongest == points.end())
        return fail(WifiError(Code::NotFound));
    if (const auto error = refusal(strongest->security))
        return fail(*error);
    activate(*strongest);
}

void NetworkManagerJoin::activate(const AccessPoint &point)
{
    m_settings = settingsFor(m_request, point.security);
    m_secured =
        point.security == WifiSecurity::Password || point.security == WifiSecurity::StrongPassword
            ? Secured::Yes
            : Secured::No;
    follow();
    m_isAwaitingPermission = true;
    m_limit.start(m_limits.permission);
    const QVariantList arguments{QVariant::fromValue(m_settings),
                                 QVariant::fromValue(QDBusObjectPath(m_radio)),
                                 QVariant::fromValue(QDBusObjectPath(point.path)),
                                 QVariantMap{{u"persist"_s, u"volatile"_s}}};
    m_bus.call(this,
               {.path = Names::managerPath,
                .interface = Names::manager,
                .member = u"AddAndActivateConnection2"_s,
                .arguments = arguments},
               BusCall::noLimit, [this](const QDBusMessage &reply) { activated(reply); });
}

void NetworkManagerJoin::activated(const QDBusMessage &reply)
{
    m_isAwaitingPermission = false;
    if (BusCall::isError(reply))
        return fail(errorOfActivation(reply));
    m_profile = reply.arguments().value(0).value<QDBusObjectPath>().path();
    m_active = reply.arguments().value(1).value<QDBusObjectPath>().path();
    if (!m_completion) {
        // The permission came after we had given up.
        takeDown();
        deleteLater();
        return;
    }
    m_limit.start(m_limits.join);
    // It may have succeeded or failed before we knew its path.
    if (m_model.contains(m_active))
        connectionChanged(m_model.value(m_active, Names::active, u"State"_s).toUInt());
    else
        connectionEnded(0);
}

void NetworkManagerJoin::follow()
{
    connect(&m_model, &NetworkManagerModel::serviceGone, this, [this] {
        m_active.clear();
        fail(WifiError(Code::ServiceGone));
    });
    connect(&m_model, &NetworkManagerModel::deviceStateChanged, this,
            &NetworkManagerJoin::deviceStateChanged);
    connect(&m_model, &NetworkManagerModel::valuesChanged, this, [this](const QString &path) {
        if (path == m_active)
            connectionChanged(m_model.value(path, Names::active, u"State"_s).toUInt());
    });
    connect(&m_model, &NetworkManagerModel::activeStateChanged, this,
            [this](const QString &path, uint state, uint reason) {
                if (path == m_active && state == activeDeactivated)
                    connectionEnded(reason);
            });
    connect(&m_model, &NetworkManagerModel::objectRemoved, this, [this](const QString &path) {
        if (path == m_radio)
            fail(WifiError(Code::NoInterface));
        else if (path == m_active)
            connectionEnded(0);
    });
}

void NetworkManagerJoin::deviceStateChanged(const QString &device, uint state, uint reason)
{
    const QString active = m_model.pathValue(device, Names::device, u"ActiveConnection"_s);
    if (device != m_radio || m_active.isEmpty() || active != m_active)
        return;
    if (const auto error = failureOfDevice(state, reason, m_secured))
        fail(*error);
}

void NetworkManagerJoin::connectionChanged(uint state)
{
    if (state == activeActivated)
        keep();
}

void NetworkManagerJoin::connectionEnded(uint reason)
{
    if (std::exchange(m_hasEnded, true))
        return;
    // The radio knows the reason better than its connection, and may report it slightly later.
    m_expiry = failureOfActive(reason, m_secured);
    m_limit.start(m_limits.lastWord);
}

void NetworkManagerJoin::keep()
{
    m_limit.stop();
    disconnect(&m_model, nullptr, this, nullptr);
    m_active.clear();
    const auto done = [this] { end(Outcome<std::monostate>::success({})); };
    new NetworkManagerKeeping(m_bus, m_limits, m_request.user,
                              {.temporaryProfile = m_profile, .settings = m_settings}, done, this);
}

void NetworkManagerJoin::takeDown()
{
    if (m_active.isEmpty())
        return;
    const auto connection = QVariant::fromValue(QDBusObjectPath(std::exchange(m_active, {})));
    m_bus.send({.path = Names::managerPath,
                .interface = Names::manager,
                .member = u"DeactivateConnection"_s,
                .arguments = {connection}});
}

void NetworkManagerJoin::fail(const WifiError &error)
{
    // At once: after a refused password the desktop may have opened a dialog to ask for it.
    takeDown();
    end(Outcome<std::monostate>::failure(error));
}

void NetworkManagerJoin::end(Outcome<std::monostate> outcome)
{
    m_limit.stop();
    disconnect(&m_model, nullptr, this, nullptr);
    // Lifetime: it stays while a permission may still arrive, to end the connection that this
    // starts.
    if (!m_isAwaitingPermission)
        deleteLater();
    if (const auto completion = std::exchange(m_completion, {}))
        completion(std::move(outcome));
}

} // namespace quorvel
