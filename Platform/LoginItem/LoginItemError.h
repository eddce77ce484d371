#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// The login item could not be changed. The description has the system's reason.
class LoginItemError final : public LocalizedError
{
public:
    enum class Operation { Register, Unregister };

    LoginItemError(Operation operation, QString reason);

    [[nodiscard]] QString errorDescription() const override;

private:
    Operation m_operation;
    QString m_reason;
};

} // namespace quorvel
