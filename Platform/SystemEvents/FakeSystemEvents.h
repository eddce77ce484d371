#pragma once

#include "Platform/SystemEvents/SystemEvents.h"

namespace quorvel {

/// Reports what a test tells it to.
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
