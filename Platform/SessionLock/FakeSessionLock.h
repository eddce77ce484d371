#pragma once

#include "Platform/SessionLock/SessionLock.h"

namespace quorvel {

/// A session lock that a test sets.
class FakeSessionLock final : public SessionLock
{
public:
    [[nodiscard]] bool isLocked() const override { return m_isLocked; }

    void setLocked(bool isLocked)
    {
        if (m_isLocked == isLocked)
            return;
        m_isLocked = isLocked;
        emit isLockedChanged();
    }

private:
    bool m_isLocked = false;
};

} // namespace quorvel
