#pragma once

#include "Features/CheckIn/CheckInViewModel.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Platform/Errors/LocalizedError.h"

/// What the check-in screen says, from the state that it shows. Numbers are rounded to the nearest
/// integer, halves away from zero.
namespace quorvel::LocatedTexts {

/// The café's name, or that there is none.
[[nodiscard]] QString title(const LocatedSnapshot &snapshot);
/// How far the café is, or what to do when there is none.
[[nodiscard]] QString subtitle(const LocatedSnapshot &snapshot);
/// The button beside them: another café, or another try.
[[nodiscard]] QString headerAction(const LocatedSnapshot &snapshot);

/// Whose map the café is on, and whose weather it is; empty where there is none. Both ask to be
/// named.
[[nodiscard]] QString mapCredit(const LocatedSnapshot &snapshot);
[[nodiscard]] QString weatherCredit(const LocatedSnapshot &snapshot);

/// "23°", or that there is no weather.
[[nodiscard]] QString temperature(const LocatedSnapshot &snapshot);
/// "Feels 25°"; empty without weather.
[[nodiscard]] QString feels(const LocatedSnapshot &snapshot);

/// "42m", as the picker's rows say it.
[[nodiscard]] QString distance(const PlaceCandidate &candidate);

/// Why the last save failed; empty without an error.
[[nodiscard]] QString saveError(const LocalizedError *error);
/// What keeps the user from checking in; empty when nothing does.
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
