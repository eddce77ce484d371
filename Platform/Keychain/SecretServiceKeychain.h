#pragma once

#include "Platform/Keychain/Keychain.h"

#include <functional>
#include <memory>

namespace quorvel {

class SecretServiceCall;
class SecretServiceConnection;

/// The keychain of Linux desktops: GNOME's keyring, KDE's wallet or another Secret Service. A
/// locked collection is a failure here and never a prompt. A service that misses the deadline may
/// still carry out its request later.
class SecretServiceKeychain final : public Keychain
{
public:
    SecretServiceKeychain();
    SecretServiceKeychain(const SecretServiceKeychain &) = delete;
    SecretServiceKeychain &operator=(const SecretServiceKeychain &) = delete;
    ~SecretServiceKeychain() override;

    [[nodiscard]] KeychainStatus::Code add(const KeychainItem &item) override;
    [[nodiscard]] KeychainStatus::Code update(const KeychainIdentity &identity,
                                              const QByteArray &valueData) override;
    [[nodiscard]] KeychainMatch copyMatching(const KeychainIdentity &identity) override;
    [[nodiscard]] KeychainStatus::Code remove(const KeychainIdentity &identity) override;

private:
    using Operation = std::function<KeychainStatus::Code(const SecretServiceCall &)>;

    /// The operation's result, or the reason of its failure.
    [[nodiscard]] KeychainStatus::Code run(const KeychainIdentity &identity,
                                           const Operation &operation);

    std::unique_ptr<SecretServiceConnection> m_connection;
};

} // namespace quorvel
