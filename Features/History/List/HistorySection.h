#pragma once

#include "Models/CheckIn.h"

#include <QString>

#include <memory>
#include <vector>

namespace quorvel {

/// The visits of one day with its title. Visits are equal only if they are the same stored object.
struct HistorySection
{
    QString title = {}; ///< in capitals: "TODAY", "YESTERDAY" or a date such as "MON, MAR 3"
    std::vector<std::shared_ptr<CheckIn>> checkIns = {};

    /// Sections with the same title have the same identity.
    [[nodiscard]] const QString &id() const { return title; }

    friend bool operator==(const HistorySection &, const HistorySection &) = default;
};

} // namespace quorvel
