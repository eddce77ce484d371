#pragma once

#include "Core/Keychain/KeychainStore.h"
#include "Platform/Keychain/Keychain.h"

#include <optional>

namespace quorvel {

/// Passwords in the user's keychain, as UTF-8 without a terminator. Network names that differ only
/// in case are different networks. It has no state, so every user makes its own.
class SecItemKeychainStore final : public KeychainStore
{
public:
    /// The service name of all passwords of the program.
    static constexpr QLatin1StringView wifiService{"com.zantho.quorvel.wifi"};

    /// The keychain must outlive the store.
    SecItemKeychainStore(QString service, Keychain &keychain);

    void savePassword(const QString &password, const QString &ssid) override;
    [[nodiscard]] std::optional<QString> password(const QString &ssid) override;
    void deletePassword(const QString &ssid) override;

private:
    [[nodiscard]] KeychainIdentity identityQuery(const QString &ssid) const;

    QString m_service;
    Keychain *m_keychain;
};

} // namespace quorvel
