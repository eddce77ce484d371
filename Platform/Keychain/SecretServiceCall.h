#pragma once

#include "Platform/Keychain/CallDeadline.h"
#include "Platform/Keychain/Keychain.h"
#include "Platform/Keychain/SecretServiceConnection.h"

#include <vector>

namespace quorvel {

/// What the keychain asks of the Secret Service for one operation, all of it before one deadline.
/// Nothing here unlocks, so nothing raises a prompt. Every operation throws SecretServiceFailure.
class SecretServiceCall final
{
public:
    explicit SecretServiceCall(SecretServiceConnection &connection);

    /// All items of that identity, unlocked ones first. Locked ones are found as well.
    [[nodiscard]] std::vector<GLibObject<SecretItem>> items(const KeychainIdentity &identity) const;
    /// Where new items go; null where the user has no such place.
    [[nodiscard]] GLibObject<SecretCollection> defaultCollection() const;

    void create(SecretCollection &collection, const KeychainItem &item) const;
    [[nodiscard]] QByteArray secret(SecretItem &item) const;
    void setSecret(SecretItem &item, const QByteArray &valueData) const;
    void remove(SecretItem &item) const;

private:
    CallDeadline m_deadline;
    SecretService *m_service;
};

} // namespace quorvel
