#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// Why the radio did not do what it was asked to do.
class WifiError final : public LocalizedError
{
public:
    enum class Code {
        NoInterface,
        RadioOff,
        NotAllowed,
        TimedOut,
        NotFound,
        WrongPassword,
        EnterpriseNetwork,   ///< asks who the user is, not only for a password
        UnsupportedSecurity, ///< protected in a way that is broken, and no longer offered
        NoAddress,           ///< joined, but given no address
        Interrupted,         ///< somebody else ended it
        ServiceGone,
        Failed
    };

    /// `reason` is the system's own text, for failures without a sentence of ours: `Failed` quotes
    /// it.
    explicit WifiError(Code code, QString reason = {});

    [[nodiscard]] Code code() const { return m_code; }
    [[nodiscard]] QString errorDescription() const override;

    friend bool operator==(const WifiError &left, const WifiError &right)
    {
        return left.m_code == right.m_code && left.m_reason == right.m_reason;
    }

private:
    Code m_code;
    QString m_reason;
};

} // namespace quorvel
