#pragma once

#include "Platform/Keychain/Keychain.h"

#include <functional>
#include <memory>

namespace quorvel {

class SecretServiceCall;
class SecretServiceConnection;

/// The keychain as Linux desktops have it: GNOME's keyring, KDE's wallet or whatever else answers
/// as the Secret Service. A locked collection is a failure here, never a question to the user. A
/// service that does not answer in time may still carry out what it was asked when it wakes up.
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

    /// What the operation answers, or why it came to nothing.
    [[nodiscard]] KeychainStatus::Code run(const KeychainIdentity &identity,
                                           const Operation &operation);

    std::unique_ptr<SecretServiceConnection> m_connection;
};

} // namespace quorvel
