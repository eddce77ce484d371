#include "Features/CheckIn/LocatedTexts.h"

#include "Core/Support/Texts/RoundedNumber.h"
#include "Platform/Errors/LocalizedError.h"

namespace quorvel::LocatedTexts {

using namespace Qt::StringLiterals;

QString title(const LocatedSnapshot &snapshot)
{
    return snapshot.selectedCafe ? snapshot.selectedCafe->name : u"Couldn't detect café"_s;
}

QString subtitle(const LocatedSnapshot &snapshot)
{
    if (!snapshot.selectedCafe)
        return u"Check your connection, then retry."_s;
    return u" · "_s + roundedNumber(snapshot.selectedCafe->distanceMeters) + u" m away"_s;
}

QString headerAction(const LocatedSnapshot &snapshot)
{
    return snapshot.selectedCafe ? u"Change"_s : u"Retry"_s;
}

QString mapCredit(const LocatedSnapshot &snapshot)
{
    return snapshot.selectedCafe ? u"© OpenStreetMap contributors"_s : QString();
}

QString weatherCredit(const LocatedSnapshot &snapshot)
{
    return snapshot.weather ? u"Weather by Open-Meteo"_s : QString();
}

QString temperature(const LocatedSnapshot &snapshot)
{
    if (!snapshot.weather)
        return u"Weather unavailable"_s;
    return roundedNumber(snapshot.weather->temperatureC) + u'°';
}

QString feels(const LocatedSnapshot &snapshot)
{
    if (!snapshot.weather)
        return {};
    return u"Feels "_s + roundedNumber(snapshot.weather->apparentTemperatureC) + u'°';
}

QString distance(const PlaceCandidate &candidate)
{
    return roundedNumber(candidate.distanceMeters) + u'm';
}

QString saveError(const LocalizedError *error)
{
    return sentenceOf(error, u"Lưu thất bại."_s);
}

QString note(const LocatedSnapshot &snapshot, bool hasCheckedInToday)
{
    if (!snapshot.selectedCafe)
        return u"Connect to load your café first."_s;
    return hasCheckedInToday ? u"Already checked in today at this café."_s : QString();
}

CheckInButton button(const LocatedSnapshot &snapshot, const CheckInViewModel::SaveState &state,
                     bool hasCheckedInToday)
{
    if (state.isLoaded())
        return {.title = u"Checked in!"_s, .symbol = u"checkmark.circle.fill"_s};
    return {.title = u"Check In"_s,
            .symbol = u"location.fill"_s,
            .isEnabled = snapshot.selectedCafe && !hasCheckedInToday && !state.isLoading()};
}

} // namespace quorvel::LocatedTexts
