#pragma once

#include "Platform/Keychain/KeychainStatus.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace quorvel {

/// What makes a generic password one item: no two share it, and not even case is overlooked.
struct KeychainIdentity
{
    QString service;
    QString account;

    friend bool operator==(const KeychainIdentity &, const KeychainIdentity &) = default;
};

/// A generic password as it is added. Whatever is not its identity or its value is settled then.
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

/// What a query found. A success without data is an item whose value is no plain bytes.
struct KeychainMatch
{
    KeychainStatus::Code status = KeychainStatus::success;
    std::optional<QByteArray> valueData;
};

/// The user's secrets. Synchronous, each for the one thread that uses it; an operation answers
/// within about two seconds, asks the user nothing, and says by its status how it ended.
class Keychain
{
public:
    virtual ~Keychain() = default;

    /// Answers duplicateItem, and leaves the item as it is, where the identity is taken.
    [[nodiscard]] virtual KeychainStatus::Code add(const KeychainItem &item) = 0;
    /// Changes the value of an item and nothing else of it.
    [[nodiscard]] virtual KeychainStatus::Code update(const KeychainIdentity &identity,
                                                      const QByteArray &valueData) = 0;
    [[nodiscard]] virtual KeychainMatch copyMatching(const KeychainIdentity &identity) = 0;
    [[nodiscard]] virtual KeychainStatus::Code remove(const KeychainIdentity &identity) = 0;

    /// The one of the user who runs the program, for the main thread.
    [[nodiscard]] static Keychain &standard();
    /// The same secrets for another thread, by a way of its own.
    [[nodiscard]] static std::unique_ptr<Keychain> makeDetached();
};

} // namespace quorvel
