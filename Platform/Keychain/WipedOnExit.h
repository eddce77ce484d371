#pragma once

#include <cstddef>
#include <string.h>

namespace quorvel {

/// Overwrites a secret, a QByteArray or a QString, when its scope ends, so that it does not linger
/// in freed memory.
template <class Secret>
class WipedOnExit final
{
public:
    explicit WipedOnExit(Secret &secret)
        : m_secret(secret)
    {}
    WipedOnExit(const WipedOnExit &) = delete;
    WipedOnExit &operator=(const WipedOnExit &) = delete;
    ~WipedOnExit()
    {
        // What somebody else holds as well is theirs to wipe.
        if (m_secret.isDetached())
            explicit_bzero(m_secret.data(), std::size_t(m_secret.size()) * sizeof *m_secret.data());
    }

private:
    Secret &m_secret;
};

} // namespace quorvel
