#pragma once

#include "Platform/LoginItem/LoginItem.h"
#include "Platform/LoginItem/LoginItemError.h"

#include <optional>

namespace quorvel {

/// A login item whose status a test sets. It counts its calls.
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
    /// While set, both operations throw it.
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
