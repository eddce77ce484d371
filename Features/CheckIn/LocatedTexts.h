#pragma once

#include "Features/CheckIn/CheckInViewModel.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Platform/Errors/LocalizedError.h"

/// The texts of the check-in screen. Numbers are rounded to the nearest integer, halves away from
/// zero.
namespace quorvel::LocatedTexts {

/// The café's name, or a text that there is none.
[[nodiscard]] QString title(const LocatedSnapshot &snapshot);
/// The café's distance, or a hint if there is none.
[[nodiscard]] QString subtitle(const LocatedSnapshot &snapshot);
/// The button beside them: change the café, or try again.
[[nodiscard]] QString headerAction(const LocatedSnapshot &snapshot);

/// The sources of the map and weather data; empty without a café or weather. Both licences ask for
/// their names.
[[nodiscard]] QString mapCredit(const LocatedSnapshot &snapshot);
[[nodiscard]] QString weatherCredit(const LocatedSnapshot &snapshot);

/// "23°", or a text that there is no weather.
[[nodiscard]] QString temperature(const LocatedSnapshot &snapshot);
/// "Feels 25°"; empty without weather.
[[nodiscard]] QString feels(const LocatedSnapshot &snapshot);

/// "42m", for the rows of the picker.
[[nodiscard]] QString distance(const PlaceCandidate &candidate);

/// Why the last save failed; empty without an error.
[[nodiscard]] QString saveError(const LocalizedError *error);
/// Why the user cannot check in; empty if they can.
[[nodiscard]] QString note(const LocatedSnapshot &snapshot, bool hasCheckedInToday);

/// The primary button.
struct CheckInButton
{
    QString title;
    QString symbol;
    bool isEnabled = false;

    friend bool operator==(const CheckInButton &, const CheckInButton &) = default;
};
[[nodiscard]] CheckInButton button(const LocatedSnapshot &snapshot,
                                   const CheckInViewModel::SaveState &state,
                                   bool hasCheckedInToday);

} // namespace quorvel::LocatedTexts
