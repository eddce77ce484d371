#pragma once

#include "Features/History/HistoryViewModel.h"
#include "Models/CheckIn.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Clock/Calendar.h"
#include "Platform/Errors/LocalizedError.h"

#include <QLocale>

/// The texts of the history.
namespace quorvel::HistoryTexts {

/// "3 visits · 2 cafés this week"
[[nodiscard]] QString weeklySummary(const HistoryViewModel::WeeklySummary &summary);

/// Why there is no list; empty without an error.
[[nodiscard]] QString loadError(const LocalizedError *error);

/// Whether the user has no visits yet.
[[nodiscard]] bool isEmpty(const HistoryViewModel::State &state);

/// The café's name, or a text that it is unknown.
[[nodiscard]] QString title(const CheckIn &checkIn);
/// The titles of the two newest days.
[[nodiscard]] QString today();
[[nodiscard]] QString yesterday();
/// "Mon, Mar 3" and "14:05", in the user's calendar and time zone.
[[nodiscard]] QString day(Instant date, const Calendar &calendar, const QLocale &locale);
[[nodiscard]] QString time(Instant date, const Calendar &calendar, const QLocale &locale);
/// "22°", rounded to the nearest, halves away from zero.
[[nodiscard]] QString temperature(const WeatherSnapshot &weather);
/// "14:05 · 22°", or "14:05" without weather.
[[nodiscard]] QString moment(const CheckIn &checkIn, const Calendar &calendar,
                             const QLocale &locale);

/// The accessible name of the code that joins a network.
[[nodiscard]] QString codeName(const QString &ssid);

} // namespace quorvel::HistoryTexts
