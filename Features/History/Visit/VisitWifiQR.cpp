#include "Features/History/Visit/VisitWifiQR.h"

#include "Core/Keychain/KeychainError.h"
#include "Core/Keychain/SecItemKeychainStore.h"
#include "Core/Support/Tasks/RunDetached.h"
#include "Platform/Keychain/WipedOnExit.h"
#include "Services/Wifi/WifiQRGenerator.h"

namespace quorvel::VisitWifiQR {

namespace {

using namespace Qt::StringLiterals;

std::optional<QString> savedPassword(const QString &ssid, const KeychainMaker &makeKeychain)
try {
    const auto keychain = makeKeychain();
    SecItemKeychainStore store(SecItemKeychainStore::wifiService, *keychain);
    return store.password(ssid);
} catch (const KeychainError &) {
    // Silent: a card is complete without the code.
    return std::nullopt;
}

std::optional<QImage> image(const QString &ssid, const KeychainMaker &makeKeychain)
{
    auto password = savedPassword(ssid, makeKeychain);
    if (!password)
        return std::nullopt;
    const WipedOnExit wipedPassword(*password);
    QString payload = WifiQRGenerator::payload(ssid, *password, u"WPA"_s);
    const WipedOnExit wipedPayload(payload);
    return WifiQRGenerator::image(payload, scale);
}

} // namespace

Task<std::optional<QImage>> load(const std::optional<QString> &ssid,
                                 const KeychainMaker &makeKeychain)
{
    return runDetached([ssid, makeKeychain] {
        return ssid ? image(*ssid, makeKeychain) : std::optional<QImage>();
    });
}

} // namespace quorvel::VisitWifiQR
