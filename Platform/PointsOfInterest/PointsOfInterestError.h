#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// A search that told nothing about the places around.
class PointsOfInterestError final : public LocalizedError
{
public:
    enum class Case {
        /// No answer; the detail is the transport's sentence.
        Unreachable,
        /// Too many questions, ours or everybody's.
        Busy,
        /// A status that neither answers nor asks for patience; the detail is its number.
        Refused,
        /// An answer that is no list of places.
        Unreadable,
        /// The search went away before the answer came.
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
