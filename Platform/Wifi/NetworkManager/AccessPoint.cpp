#include "Platform/Wifi/NetworkManager/AccessPoint.h"

#include "Platform/Wifi/NetworkManager/NetworkManagerModel.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <algorithm>
#include <cmath>

namespace quorvel {

using namespace Qt::StringLiterals;
namespace Names = NetworkManagerNames;

namespace {

constexpr uint privacyFlag = 0x1;

constexpr uint sharedKeyFlag = 0x100;
constexpr uint enterpriseFlags = 0x200 | 0x2000;
constexpr uint sharedKeyOfThirdKindFlag = 0x400;
constexpr uint encryptedOpenFlag = 0x800;

WifiSecurity securityOf(uint flags, uint keyFlags)
{
    // Order: if a network accepts a shared key in several ways, join in the most common one.
    if (keyFlags & sharedKeyFlag)
        return WifiSecurity::Password;
    if (keyFlags & sharedKeyOfThirdKindFlag)
        return WifiSecurity::StrongPassword;
    if (keyFlags & enterpriseFlags)
        return WifiSecurity::Enterprise;
    if (keyFlags & encryptedOpenFlag)
        return WifiSecurity::EncryptedOpen;
    return flags & privacyFlag ? WifiSecurity::Outdated : WifiSecurity::Open;
}

} // namespace

AccessPoint AccessPoint::fromValues(const QString &path, const QVariantMap &values)
{
    const uint keyFlags =
        values.value(u"WpaFlags"_s).toUInt() | values.value(u"RsnFlags"_s).toUInt();
    return {.path = path,
            .ssid = values.value(u"Ssid"_s).toByteArray(),
            .strengthPercent = std::clamp(values.value(u"Strength"_s).toInt(), 0, 100),
            .security = securityOf(values.value(u"Flags"_s).toUInt(), keyFlags)};
}

QList<AccessPoint> AccessPoint::heardBy(const QString &radio, const NetworkManagerModel &model)
{
    QList<AccessPoint> heard;
    const auto paths =
        qdbus_cast<QList<QDBusObjectPath>>(model.value(radio, Names::wireless, u"AccessPoints"_s));
    for (const QDBusObjectPath &path : paths)
        if (model.contains(path.path()))
            heard.append(fromValues(path.path(), model.values(path.path(), Names::accessPoint)));
    return heard;
}

qint64 AccessPoint::scannedDBm() const
{
    // NetworkManager maps -100 to -40 dBm onto 0 to 100 %.
    return std::lround(0.6 * strengthPercent - 100);
}

qint64 AccessPoint::currentDBm() const
{
    // NetworkManager maps -90 to -20 dBm onto 30 to 100 %.
    return strengthPercent - 120;
}

} // namespace quorvel
