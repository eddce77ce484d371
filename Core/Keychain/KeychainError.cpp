#include "Core/Keychain/KeychainError.h"

namespace quorvel {

using namespace Qt::StringLiterals;

KeychainError KeychainError::unhandledStatus(KeychainStatus::Code status, Operation operation)
{
    return {Case::UnhandledStatus, status, operation};
}

KeychainError KeychainError::unexpectedItemFormat()
{
    return {Case::UnexpectedItemFormat, KeychainStatus::success, Operation::Read};
}

QString KeychainError::rawValue(Operation operation)
{
    switch (operation) {
    case Operation::Save:
        return u"save"_s;
    case Operation::Read:
        return u"read"_s;
    case Operation::Delete:
        return u"delete"_s;
    }
    Q_UNREACHABLE();
}

QString KeychainError::errorDescription() const
{
    switch (m_kind) {
    case Case::UnhandledStatus:
        return u"Keychain %1 failed (%2): %3"_s.arg(
            rawValue(m_operation), QString::number(m_status),
            KeychainStatus::message(m_status).value_or(u"unknown error"_s));
    case Case::UnexpectedItemFormat:
        return u"Keychain item exists but is not a valid UTF-8 string."_s;
    }
    Q_UNREACHABLE();
}

KeychainError::KeychainError(Case kind, KeychainStatus::Code status, Operation operation)
    : m_kind(kind)
    , m_status(status)
    , m_operation(operation)
{}

bool operator==(const KeychainError &left, const KeychainError &right)
{
    return left.m_kind == right.m_kind && left.m_status == right.m_status &&
           left.m_operation == right.m_operation;
}

} // namespace quorvel
