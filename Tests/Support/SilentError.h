#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel::tests {

/// An error that has no sentence for the user.
class SilentError final : public LocalizedError
{
public:
    [[nodiscard]] QString errorDescription() const override { return {}; }
};

} // namespace quorvel::tests
