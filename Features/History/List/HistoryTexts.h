#pragma once

#include "Features/History/HistoryViewModel.h"

/// What the history says, from the visits and the state that it shows.
namespace quorvel::HistoryTexts {

/// "3 visits · 2 cafés this week"
[[nodiscard]] QString weeklySummary(const HistoryViewModel::WeeklySummary &summary);

/// Why there is no list; empty without an error.
[[nodiscard]] QString loadError(const LocalizedError *error);

/// Whether the user has no visits yet, and what to say then.
[[nodiscard]] bool isEmpty(const HistoryViewModel::State &state);
[[nodiscard]] QString emptyTitle();
[[nodiscard]] QString emptyHint();

/// The café's name, or that it is not known.
[[nodiscard]] QString title(const CheckIn &checkIn);
/// "Mon, Mar 3", and "14:05", as the user's calendar and clock on the wall show them.
[[nodiscard]] QString day(Instant date, const Calendar &calendar, const QLocale &locale);
[[nodiscard]] QString time(Instant date, const Calendar &calendar, const QLocale &locale);
/// "22°", rounded to the nearest, halves away from zero.
[[nodiscard]] QString temperature(const WeatherSnapshot &weather);
/// "14:05 · 22°", and without weather "14:05".
[[nodiscard]] QString moment(const CheckIn &checkIn, const Calendar &calendar,
                             const QLocale &locale);

} // namespace quorvel::HistoryTexts
