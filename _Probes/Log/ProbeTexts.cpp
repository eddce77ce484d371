#include "_Probes/Log/ProbeTexts.h"

#include "Core/Support/Texts/RoundedNumber.h"
#include "Features/CheckIn/LocatedTexts.h"
#include "Platform/Geodesy/Coordinate.h"

#include <algorithm>

namespace quorvel::ProbeTexts {

using namespace Qt::StringLiterals;

namespace {

constexpr int shownDecimals = 5;

bool breaksLines(QChar character)
{
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

QString cafe(const LocatedSnapshot &snapshot)
{
    return snapshot.selectedCafe ? snapshot.selectedCafe->name
                                 : u"Couldn't detect café (degraded)"_s;
}

QString weather(const LocatedSnapshot &snapshot)
{
    const QString temperature = LocatedTexts::temperature(snapshot);
    return snapshot.weather ? temperature + u" · "_s + LocatedTexts::feels(snapshot) : temperature;
}

QString network(const LocatedSnapshot &snapshot)
{
    return u"SSID: "_s + snapshot.ssid.value_or(u"(none)"_s) + u"  ·  remembered pass: "_s +
           (snapshot.hasRememberedPassword ? u"true"_s : u"false"_s);
}

} // namespace

QString noName()
{
    return u"(nil)"_s;
}

QString authorization(AuthorizationStatus status)
{
    switch (int(status)) {
    case 0:
        return u"notDetermined"_s;
    case 1:
        return u"restricted"_s;
    case 2:
        return u"denied"_s;
    case 3:
        return u"authorized ✅"_s;
    default:
        return u"unknown"_s;
    }
}

QString position(Coordinate coordinate)
{
    return QString::number(coordinate.latitude, 'f', shownDecimals) + u", "_s +
           QString::number(coordinate.longitude, 'f', shownDecimals);
}

QString meters(double distance)
{
    return roundedNumber(distance) + u" m"_s;
}

QString onOneLine(QString text)
{
    std::ranges::replace_if(text, breaksLines, u' ');
    return text;
}

QString verdict(const QString &ssidBefore, const QString &ssidAfter)
{
    if (ssidBefore == ssidAfter)
        return ssidAfter == noName() ? u"There is no network name, before or after locating."_s
                                     : u"Locating did not change the network name."_s;
    if (ssidBefore == noName())
        return u"Locating revealed the network name."_s;
    return ssidAfter == noName() ? u"The network name is gone since the launch."_s
                                 : u"The network is another one than at the launch."_s;
}

QString loop(const ViewState<LocatedSnapshot> &state)
{
    if (const auto *snapshot = state.loadedValue())
        return located(*snapshot).join(u'\n');
    if (const auto *failure = state.errorValue())
        return error(failure);
    return state.isLoading() ? u"Locating"_s : u"idle — bấm Run để bắt đầu daily loop"_s;
}

QStringList located(const LocatedSnapshot &snapshot)
{
    return {onOneLine(cafe(snapshot)), weather(snapshot), onOneLine(network(snapshot)),
            QString::number(snapshot.nearbyCandidates.size()) + u" nearby candidate(s)"_s};
}

QString error(const LocalizedError *error)
{
    return sentenceOf(error, u"Unknown error"_s);
}

} // namespace quorvel::ProbeTexts
