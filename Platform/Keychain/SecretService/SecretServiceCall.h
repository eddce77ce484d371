#pragma once

#include "Platform/Keychain/Keychain.h"
#include "Platform/Keychain/SecretService/CallDeadline.h"
#include "Platform/Keychain/SecretService/SecretServiceConnection.h"

#include <QByteArrayList>

namespace quorvel {

/// Items of one identity, by their bus paths. There is more than one only if another program made
/// it.
struct FoundItems
{
    QByteArrayList unlocked;
    QByteArrayList locked;

    [[nodiscard]] bool isEmpty() const { return unlocked.isEmpty() && locked.isEmpty(); }
};

/// The keychain's requests to the Secret Service for one operation, all before one deadline.
/// Nothing here unlocks a collection, so no prompt appears. Every operation throws
/// SecretServiceFailure.
class SecretServiceCall final
{
public:
    explicit SecretServiceCall(SecretServiceConnection &connection);

    [[nodiscard]] FoundItems items(const KeychainIdentity &identity) const;
    /// The collection for new items; null if the user has none.
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
