#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// A login item that could not be changed, with the system's reason.
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
