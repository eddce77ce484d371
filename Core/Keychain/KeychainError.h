#pragma once

#include "Platform/Errors/LocalizedError.h"
#include "Platform/Keychain/KeychainStatus.h"

namespace quorvel {

/// The keychain did not store or return a Wi-Fi password. The description is for the user.
class KeychainError final : public LocalizedError
{
public:
    enum class Case { UnhandledStatus, UnexpectedItemFormat };
    enum class Operation { Save, Read, Delete };

    [[nodiscard]] static KeychainError unhandledStatus(KeychainStatus::Code status,
                                                       Operation operation);
    [[nodiscard]] static KeychainError unexpectedItemFormat();

    /// The operation's raw value, as it stands in the description.
    [[nodiscard]] static QString rawValue(Operation operation);

    [[nodiscard]] Case kind() const { return m_kind; }
    /// The keychain's status; success if it returned an item that is not text.
    [[nodiscard]] KeychainStatus::Code status() const { return m_status; }
    [[nodiscard]] Operation operation() const { return m_operation; }
    [[nodiscard]] QString errorDescription() const override;

    friend bool operator==(const KeychainError &left, const KeychainError &right);

private:
    KeychainError(Case kind, KeychainStatus::Code status, Operation operation);

    Case m_kind;
    KeychainStatus::Code m_status;
    Operation m_operation;
};

} // namespace quorvel
