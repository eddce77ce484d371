#pragma once

#include "Platform/SystemEvents/SystemEvents.h"

namespace quorvel {

/// A machine that loses and gets back what a test says.
class FakeSystemEvents final : public SystemEvents
{
public:
    void follow() override { isFollowed = true; }
    void rest() override { isFollowed = false; }

    void bringBack(Returning what)
    {
        if (isFollowed)
            emit cameBack(what);
    }

    bool isFollowed = false;
};

} // namespace quorvel
