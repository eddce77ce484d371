#pragma once

#include "Platform/Keychain/Keychain.h"

#include <libsecret/secret.h>

#include <memory>

/// An item of the keychain as the Secret Service describes it.
namespace quorvel::SecretAttributes {

struct Unref
{
    void operator()(GHashTable *table) const noexcept { g_hash_table_unref(table); }
};
using Table = std::unique_ptr<GHashTable, Unref>;

/// Attributes of the items that are ours.
[[nodiscard]] const SecretSchema &schema();

/// Whether the service can tell this identity from every other: its texts are UTF-8 that ends at
/// the first NUL.
[[nodiscard]] bool canHold(const KeychainIdentity &identity);

[[nodiscard]] Table of(const KeychainIdentity &identity);

/// What a person reads in the desktop's own list of passwords.
[[nodiscard]] QByteArray label(const KeychainIdentity &identity);

} // namespace quorvel::SecretAttributes
