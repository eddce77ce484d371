#pragma once

#include "Platform/LoginItem/LoginItem.h"
#include "Platform/LoginItem/LoginItemError.h"

#include <optional>

namespace quorvel {

/// A login item whose status a test sets, and which counts what it was asked to do.
class FakeLoginItem final : public LoginItem
{
public:
    [[nodiscard]] Status status() const override { return scriptedStatus; }

    void registerItem() override
    {
        ++registrations;
        answer(Status::Enabled);
    }

    void unregisterItem() override
    {
        ++unregistrations;
        answer(Status::NotRegistered);
    }

    Status scriptedStatus = Status::NotRegistered;
    /// Thrown by both operations while it is set.
    std::optional<LoginItemError> failure;

    int registrations = 0;
    int unregistrations = 0;

private:
    void answer(Status status)
    {
        if (failure)
            throw LoginItemError(*failure);
        scriptedStatus = status;
    }
};

} // namespace quorvel
