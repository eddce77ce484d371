#pragma once

#include <cstddef>
#include <string.h>

namespace quorvel {

/// Overwrites a secret, a QByteArray or a QString, at the end of its scope, so that it does not
/// stay in freed memory.
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
        // If somebody else shares the data, they have to wipe it.
        if (m_secret.isDetached())
            explicit_bzero(m_secret.data(), std::size_t(m_secret.size()) * sizeof *m_secret.data());
    }

private:
    Secret &m_secret;
};

} // namespace quorvel
