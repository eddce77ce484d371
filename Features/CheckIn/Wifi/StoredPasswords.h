#pragma once

#include "Core/Keychain/KeychainStore.h"

#include <QHash>
#include <QStringList>

#include <optional>

namespace quorvel {

/// Knows which of the networks nearby have a password in our keychain, for the Wi-Fi block. It asks
/// the keychain once per network, however often the rows are painted: a locked keychain may ask the
/// user, and a hung one blocks the screen.
class StoredPasswords final
{
public:
    /// The store must outlive this.
    explicit StoredPasswords(KeychainStore &keychainStore);

    /// Asks about new networks. After a failure of the keychain, the rest count as not saved.
    void learn(const QStringList &ssids);
    /// Forgets all answers.
    void forget();

    [[nodiscard]] bool isSaved(const QString &ssid) const { return m_isSaved.value(ssid); }
    /// Asks the keychain. Returns nothing also on failure.
    [[nodiscard]] std::optional<QString> read(const QString &ssid);
    /// Throws KeychainError.
    void save(const QString &password, const QString &ssid);

private:
    KeychainStore &m_keychainStore;
    QHash<QString, bool> m_isSaved;
    bool m_hasFailed = false;
};

} // namespace quorvel
