#include "Core/Support/AppError.h"

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

AppError AppError::locationFailed(QString message)
{
    return AppError(Case::LocationFailed, std::move(message));
}

AppError AppError::network(QString message)
{
    return AppError(Case::Network, std::move(message));
}

AppError AppError::decoding(QString message)
{
    return AppError(Case::Decoding, std::move(message));
}

AppError AppError::locationDenied()
{
    return AppError(Case::LocationDenied);
}

AppError AppError::noCafeFound()
{
    return AppError(Case::NoCafeFound);
}

QString AppError::errorDescription() const
{
    switch (m_kind) {
    case Case::LocationFailed:
        return u"Location error: "_s + m_message;
    case Case::Network:
        return u"Network error: "_s + m_message;
    case Case::Decoding:
        return u"Data error: "_s + m_message;
    case Case::LocationDenied:
        return u"Location access denied. Open System Settings to enable."_s;
    case Case::NoCafeFound:
        return u"No café found nearby."_s;
    }
    Q_UNREACHABLE();
}

AppError::AppError(Case kind, QString message)
    : m_kind(kind)
    , m_message(std::move(message))
{}

bool operator==(const AppError &left, const AppError &right)
{
    return left.m_kind == right.m_kind && left.m_message == right.m_message;
}

} // namespace quorvel
