#pragma once

#include "Platform/Keychain/KeychainStatus.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace quorvel {

/// The identity of a generic password. No two items share it, and case matters.
struct KeychainIdentity
{
    QString service;
    QString account;

    friend bool operator==(const KeychainIdentity &, const KeychainIdentity &) = default;
};

/// A generic password to add. Everything except its identity and its value is fixed when it is
/// added.
struct KeychainItem
{
    enum class Accessible { WhenUnlocked, AfterFirstUnlock };
    enum class Synchronizable { No, Yes };

    KeychainIdentity identity;
    QByteArray valueData;
    Accessible accessible = Accessible::WhenUnlocked;
    Synchronizable synchronizable = Synchronizable::No;

    friend bool operator==(const KeychainItem &, const KeychainItem &) = default;
};

/// The result of a query. Success without data is an item whose value is not plain bytes.
struct KeychainMatch
{
    KeychainStatus::Code status = KeychainStatus::success;
    std::optional<QByteArray> valueData;
};

/// The user's secrets. Synchronous; each object belongs to one thread. An operation answers within
/// about two seconds, asks the user nothing, and reports its outcome as a status.
class Keychain
{
public:
    virtual ~Keychain() = default;

    /// Returns duplicateItem and changes nothing if the identity exists already.
    [[nodiscard]] virtual KeychainStatus::Code add(const KeychainItem &item) = 0;
    /// Changes an item's value and nothing else.
    [[nodiscard]] virtual KeychainStatus::Code update(const KeychainIdentity &identity,
                                                      const QByteArray &valueData) = 0;
    [[nodiscard]] virtual KeychainMatch copyMatching(const KeychainIdentity &identity) = 0;
    [[nodiscard]] virtual KeychainStatus::Code remove(const KeychainIdentity &identity) = 0;

    /// The keychain of the user who runs the program, for the main thread.
    [[nodiscard]] static Keychain &standard();
    /// The same secrets over a separate connection, for another thread.
    [[nodiscard]] static std::unique_ptr<Keychain> makeDetached();
};

/// Makes a keychain for the thread that it is called on.
using KeychainMaker = std::function<std::unique_ptr<Keychain>()>;

} // namespace quorvel
