#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// A search for places failed.
class PointsOfInterestError final : public LocalizedError
{
public:
    enum class Case {
        /// No answer. The detail is the transport's sentence.
        Unreachable,
        /// Too many requests, from us or from everybody.
        Busy,
        /// A status that neither answers nor asks to wait. The detail is its number.
        Refused,
        /// The answer is not a list of places.
        Unreadable,
        /// The search was destroyed before the answer came.
        Cancelled
    };

    explicit PointsOfInterestError(Case kind, QString detail = {});

    [[nodiscard]] Case kind() const { return m_kind; }
    [[nodiscard]] QString errorDescription() const override;

private:
    Case m_kind;
    QString m_detail;
};

} // namespace quorvel
