#pragma once

#include "Platform/Keychain/KeychainStatus.h"

#include <glib.h>

namespace quorvel {

/// Translates libsecret's errors into the keychain's numbers. It carries no text: what a service
/// says about a secret must not go anywhere.
struct SecretServiceFailure
{
    KeychainStatus::Code status;

    [[nodiscard]] static SecretServiceFailure of(const GError &error);
};

/// Receives the error of a libsecret call.
class SecretServiceErrorSlot final
{
public:
    SecretServiceErrorSlot() = default;
    SecretServiceErrorSlot(const SecretServiceErrorSlot &) = delete;
    SecretServiceErrorSlot &operator=(const SecretServiceErrorSlot &) = delete;
    ~SecretServiceErrorSlot() { g_clear_error(&m_error); }

    operator GError **() { return &m_error; }

    [[nodiscard]] KeychainStatus::Code status() const
    {
        return m_error ? SecretServiceFailure::of(*m_error).status : KeychainStatus::success;
    }
    /// Throws the failure, if there was one.
    void check() const
    {
        if (m_error)
            throw SecretServiceFailure::of(*m_error);
    }

private:
    GError *m_error = nullptr;
};

} // namespace quorvel
