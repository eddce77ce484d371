#include "Platform/LoginItem/LoginItemError.h"

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

LoginItemError::LoginItemError(Operation operation, QString reason)
    : m_operation(operation)
    , m_reason(std::move(reason))
{}

QString LoginItemError::errorDescription() const
{
    switch (m_operation) {
    case Operation::Register:
        return u"Quorvel could not be added to the programs that start at login: "_s + m_reason;
    case Operation::Unregister:
        return u"Quorvel could not be removed from the programs that start at login: "_s + m_reason;
    }
    Q_UNREACHABLE();
}

} // namespace quorvel
