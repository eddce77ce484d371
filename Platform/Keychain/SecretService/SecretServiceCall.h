#pragma once

#include "Platform/Keychain/Keychain.h"
#include "Platform/Keychain/SecretService/CallDeadline.h"
#include "Platform/Keychain/SecretService/SecretServiceConnection.h"

#include <QByteArrayList>

namespace quorvel {

/// Items of one identity, by their paths on the bus. There is more than one only where another
/// program made it.
struct FoundItems
{
    QByteArrayList unlocked;
    QByteArrayList locked;

    [[nodiscard]] bool isEmpty() const { return unlocked.isEmpty() && locked.isEmpty(); }
};

/// What the keychain asks of the Secret Service for one operation, all of it before one deadline.
/// Nothing here unlocks, so nothing raises a prompt. Every operation throws SecretServiceFailure.
class SecretServiceCall final
{
public:
    explicit SecretServiceCall(SecretServiceConnection &connection);

    [[nodiscard]] FoundItems items(const KeychainIdentity &identity) const;
    /// Where new items go; null where the user has no such place.
    [[nodiscard]] GLibObject<SecretCollection> defaultCollection() const;

    void create(SecretCollection &collection, const KeychainItem &item) const;
    [[nodiscard]] QByteArray secret(const QByteArray &path) const;
    void setSecret(const QByteArray &path, const QByteArray &valueData) const;
    void remove(const QByteArray &path) const;

private:
    CallDeadline m_deadline;
    SecretService *m_service;
};

} // namespace quorvel
