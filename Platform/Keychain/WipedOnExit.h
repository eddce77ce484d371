#pragma once

#include <QByteArray>

#include <string.h>

namespace quorvel {

/// Overwrites a secret's bytes when their scope ends, so that they do not linger in freed memory.
class WipedOnExit final
{
public:
    explicit WipedOnExit(QByteArray &bytes)
        : m_bytes(bytes)
    {}
    WipedOnExit(const WipedOnExit &) = delete;
    WipedOnExit &operator=(const WipedOnExit &) = delete;
    ~WipedOnExit()
    {
        // Bytes that somebody else holds as well are theirs to wipe.
        if (m_bytes.isDetached())
            explicit_bzero(m_bytes.data(), size_t(m_bytes.size()));
    }

private:
    QByteArray &m_bytes;
};

} // namespace quorvel
