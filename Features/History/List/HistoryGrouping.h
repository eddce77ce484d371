#pragma once

#include "Features/History/List/HistorySection.h"
#include "Platform/Clock/Calendar.h"

#include <QLocale>

#include <memory>
#include <vector>

/// Cuts a list of visits into the sections of the history.
namespace quorvel::HistoryGrouping {

/// Keeps the order of the visits, and begins a section wherever the title changes: visits that come
/// newest first yield each day once. Titles carry no year.
[[nodiscard]] std::vector<HistorySection> group(std::vector<std::shared_ptr<CheckIn>> checkIns,
                                                Instant now, const Calendar &calendar,
                                                const QLocale &locale);

} // namespace quorvel::HistoryGrouping
