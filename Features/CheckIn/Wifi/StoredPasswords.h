#pragma once

#include "Core/Keychain/KeychainStore.h"

#include <QHash>
#include <QStringList>

#include <optional>

namespace quorvel {

/// Which of the networks nearby have their password in our keychain, for the Wi-Fi block. It asks
/// the keychain once a network, however often the rows are painted: one that is locked may ask the
/// user, and one that hangs keeps the screen waiting.
class StoredPasswords final
{
public:
    /// The store outlives this.
    explicit StoredPasswords(KeychainStore &keychainStore);

    /// Asks about those that were not asked about yet. After a keychain that failed the rest counts
    /// as not saved.
    void learn(const QStringList &ssids);
    /// What was learned no longer counts.
    void forget();

    [[nodiscard]] bool isSaved(const QString &ssid) const { return m_isSaved.value(ssid); }
    /// Asks the keychain; nothing, too, when it fails.
    [[nodiscard]] std::optional<QString> read(const QString &ssid);
    /// Throws KeychainError.
    void save(const QString &password, const QString &ssid);

private:
    KeychainStore &m_keychainStore;
    QHash<QString, bool> m_isSaved;
    bool m_hasFailed = false;
};

} // namespace quorvel
