#include "Platform/Wifi/NetworkManager/NetworkManagerStates.h"

#include <QString>

namespace quorvel::NetworkManagerStates {

namespace {

/// Reasons of a failed device.
enum DeviceReason : uint {
    ConfigurationUnavailable = 5,
    ConfigurationExpired = 6,
    NoSecrets = 7,
    SupplicantDisconnected = 8,
    SupplicantConfigurationFailed = 9,
    SupplicantFailed = 10,
    SupplicantTimedOut = 11,
    AddressServiceStartFailed = 15,
    AddressServiceError = 16,
    AddressServiceFailed = 17,
    NameNotFound = 53
};

/// Reasons of an ended connection.
enum ActiveReason : uint {
    AddressInvalid = 5,
    ConnectTimedOut = 6,
    SecretsMissing = 9,
    LoginFailed = 10,
    DeviceRemoved = 14
};

QString numbered(const QString &what, uint reason)
{
    return QStringLiteral("%1 ended for reason %2").arg(what).arg(reason);
}

WifiError refused(Secured secured, const QString &what, uint reason)
{
    if (secured == Secured::Yes)
        return WifiError(WifiError::Code::WrongPassword);
    return WifiError(WifiError::Code::Failed, numbered(what, reason));
}

WifiError failureOfReason(uint reason, Secured secured)
{
    const QString what = QStringLiteral("The radio's attempt");
    switch (reason) {
    case NoSecrets:
    case SupplicantDisconnected:
    case SupplicantConfigurationFailed:
    case SupplicantFailed:
        return refused(secured, what, reason);
    case SupplicantTimedOut:
        return WifiError(WifiError::Code::TimedOut);
    case ConfigurationUnavailable:
    case ConfigurationExpired:
    case AddressServiceStartFailed:
    case AddressServiceError:
    case AddressServiceFailed:
        return WifiError(WifiError::Code::NoAddress);
    case NameNotFound:
        return WifiError(WifiError::Code::NotFound);
    default:
        return WifiError(WifiError::Code::Failed, numbered(what, reason));
    }
}

} // namespace

std::optional<WifiError> failureOfDevice(uint state, uint reason, Secured secured)
{
    // The password came with the connection, so a radio that asks for it again was refused.
    if (state == deviceNeedsAuthentication)
        return WifiError(WifiError::Code::WrongPassword);
    if (state == deviceFailed)
        return failureOfReason(reason, secured);
    return std::nullopt;
}

WifiError failureOfActive(uint reason, Secured secured)
{
    const QString what = QStringLiteral("The connection");
    switch (reason) {
    case SecretsMissing:
    case LoginFailed:
        return refused(secured, what, reason);
    case ConnectTimedOut:
        return WifiError(WifiError::Code::TimedOut);
    case AddressInvalid:
        return WifiError(WifiError::Code::NoAddress);
    case DeviceRemoved:
        return WifiError(WifiError::Code::NoInterface);
    default:
        return WifiError(WifiError::Code::Interrupted);
    }
}

} // namespace quorvel::NetworkManagerStates
