#include "Platform/PointsOfInterest/PointsOfInterestError.h"

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

PointsOfInterestError::PointsOfInterestError(Case kind, QString detail)
    : m_kind(kind)
    , m_detail(std::move(detail))
{}

QString PointsOfInterestError::errorDescription() const
{
    switch (m_kind) {
    case Case::Unreachable:
        return u"The map service cannot be reached: "_s + m_detail;
    case Case::Busy:
        return u"The map service is busy. Try again in a while."_s;
    case Case::Refused:
        return u"The map service returned HTTP "_s + m_detail + u'.';
    case Case::Unreadable:
        return u"The map service sent an answer that makes no sense."_s;
    case Case::Cancelled:
        return u"The search was cancelled."_s;
    }
    Q_UNREACHABLE();
}

} // namespace quorvel
