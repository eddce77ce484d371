#pragma once

#include "Features/History/List/HistorySection.h"
#include "Platform/Clock/Calendar.h"

#include <QLocale>

#include <memory>
#include <vector>

/// Divides a list of visits into the sections of the history.
namespace quorvel::HistoryGrouping {

/// Keeps the order of the visits, and starts a section where the title changes. Visits sorted
/// newest first give each day once. Titles have no year.
[[nodiscard]] std::vector<HistorySection> group(std::vector<std::shared_ptr<CheckIn>> checkIns,
                                                Instant now, const Calendar &calendar,
                                                const QLocale &locale);

} // namespace quorvel::HistoryGrouping
