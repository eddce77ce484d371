#pragma once

#include "Platform/Keychain/Keychain.h"

#include <QList>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace quorvel {

/// A keychain in memory. It records its calls, and fails when a test says so.
class FakeKeychain final : public Keychain
{
public:
    [[nodiscard]] KeychainStatus::Code add(const KeychainItem &item) override
    {
        calls.append(QStringLiteral("add"));
        if (const auto refusal = addFailure ? addFailure : failure)
            return *refusal;
        if (find(item.identity) != items.end())
            return KeychainStatus::duplicateItem;
        items.append(item);
        return KeychainStatus::success;
    }

    [[nodiscard]] KeychainStatus::Code update(const KeychainIdentity &identity,
                                              const QByteArray &valueData) override
    {
        calls.append(QStringLiteral("update"));
        const auto item = find(identity);
        if (failure || item == items.end())
            return failure.value_or(KeychainStatus::itemNotFound);
        item->valueData = valueData;
        return KeychainStatus::success;
    }

    [[nodiscard]] KeychainMatch copyMatching(const KeychainIdentity &identity) override
    {
        calls.append(QStringLiteral("copyMatching"));
        const auto item = find(identity);
        if (failure || item == items.end())
            return {.status = failure.value_or(KeychainStatus::itemNotFound), .valueData = {}};
        if (!givesData)
            return {};
        return {.status = KeychainStatus::success, .valueData = item->valueData};
    }

    [[nodiscard]] KeychainStatus::Code remove(const KeychainIdentity &identity) override
    {
        calls.append(QStringLiteral("remove"));
        const auto item = find(identity);
        if (failure || item == items.end())
            return failure.value_or(KeychainStatus::itemNotFound);
        items.erase(item);
        return KeychainStatus::success;
    }

    QList<KeychainItem> items;
    /// While set, every operation returns it and changes nothing.
    std::optional<KeychainStatus::Code> failure;
    /// The same for `add`, instead of `failure`.
    std::optional<KeychainStatus::Code> addFailure;
    /// Whether a found item's value is returned as data.
    bool givesData = true;

    QStringList calls;

private:
    QList<KeychainItem>::iterator find(const KeychainIdentity &identity)
    {
        return std::find_if(items.begin(), items.end(),
                            [&](const KeychainItem &item) { return item.identity == identity; });
    }
};

} // namespace quorvel
