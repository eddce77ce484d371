#include "Platform/Wifi/NetworkManager/Profiles/NetworkManagerSecret.h"

#include "Platform/Bus/BusCall.h"
#include "Platform/Wifi/WifiError.h"

#include <QDBusArgument>
#include <QMetaType>
#include <QVariant>

#include <algorithm>
#include <optional>
#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

namespace {

/// The errors by which NetworkManager reports that nothing is stored.
bool meansNone(const QDBusMessage &error)
{
    return error.errorName().endsWith(".SettingNotFound"_L1) ||
           error.errorName().endsWith(".NoSecrets"_L1);
}

std::optional<QString> passwordIn(const QDBusMessage &reply)
{
    const auto secrets = qdbus_cast<NetworkManagerGroups>(reply.arguments().value(0));
    const QVariant password = secrets.value(Names::securitySetting).value(u"psk"_s);
    if (password.typeId() != QMetaType::QString)
        return std::nullopt;
    return password.toString();
}

} // namespace

NetworkManagerSecret::NetworkManagerSecret(NetworkManagerBus bus, NetworkManagerModel &model,
                                           const WifiLimits &limits, QString ssid,
                                           Completed completion, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_ssid(std::move(ssid))
    , m_completion(std::move(completion))
{
    connect(&model, &NetworkManagerModel::serviceGone, this,
            [this] { fail(WifiError(WifiError::Code::ServiceGone)); });
    const auto found = [this](auto outcome) { this->found(std::move(outcome)); };
    new NetworkManagerProfiles(m_bus, limits.reply, found, this);
}

void NetworkManagerSecret::found(Outcome<QList<NetworkManagerProfile>> outcome)
{
    try {
        const auto profiles = outcome.take();
        const auto profile =
            std::find_if(profiles.begin(), profiles.end(), [this](const auto &candidate) {
                const auto name = WifiName::fromBytes(candidate.ssid());
                return candidate.takesPassword() && name && name->text == m_ssid;
            });
        if (profile == profiles.end())
            return end(Outcome<std::optional<QString>>::success(std::nullopt));
        m_bus.call(this,
                   {.path = profile->path,
                    .interface = Names::profile,
                    .member = u"GetSecrets"_s,
                    .arguments = {Names::securitySetting}},
                   BusCall::noLimit, [this](const QDBusMessage &reply) { told(reply); });
    } catch (const WifiError &error) {
        fail(error);
    }
}

void NetworkManagerSecret::told(const QDBusMessage &reply)
{
    if (!BusCall::isError(reply))
        end(Outcome<std::optional<QString>>::success(passwordIn(reply)));
    else if (meansNone(reply))
        end(Outcome<std::optional<QString>>::success(std::nullopt));
    else
        fail(NetworkManagerBus::errorOf(reply));
}

void NetworkManagerSecret::fail(const WifiError &error)
{
    end(Outcome<std::optional<QString>>::failure(error));
}

void NetworkManagerSecret::end(Outcome<std::optional<QString>> outcome)
{
    deleteLater();
    if (const auto completion = std::exchange(m_completion, {}))
        completion(std::move(outcome));
}

} // namespace quorvel
