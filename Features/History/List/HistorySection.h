#pragma once

#include "Models/CheckIn.h"

#include <QString>

#include <memory>
#include <vector>

namespace quorvel {

/// The visits of one day under its title. Visits are equal only as the same stored one.
struct HistorySection
{
    QString title = {}; ///< in capitals: "TODAY", "YESTERDAY" or a date such as "MON, MAR 3"
    std::vector<std::shared_ptr<CheckIn>> checkIns = {};

    /// Of two sections of the same title it is the same.
    [[nodiscard]] const QString &id() const { return title; }

    friend bool operator==(const HistorySection &, const HistorySection &) = default;
};

} // namespace quorvel
