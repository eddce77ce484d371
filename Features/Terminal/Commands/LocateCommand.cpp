#include "Features/Terminal/Commands/LocateCommand.h"

#include "Core/DesignSystem/Glyphs/WeatherCondition.h"
#include "Core/Support/Texts/PrintableText.h"
#include "Features/CheckIn/LocatedTexts.h"
#include "Features/Terminal/LocateOnce.h"
#include "Features/Terminal/LocatedJson.h"
#include "Platform/Terminal/Terminal.h"

namespace quorvel::LocateCommand {

using namespace Qt::StringLiterals;

namespace {

QString weatherLine(const LocatedSnapshot &snapshot)
{
    QString line = LocatedTexts::temperature(snapshot);
    if (const auto &weather = snapshot.weather) {
        const int code = int(weather->weatherCode);
        line += u" · "_s + LocatedTexts::feels(snapshot) + u" · "_s +
                WeatherCondition::config(code, weather->isDay).label;
    }
    return line + u'\n';
}

QString wifiLine(const LocatedSnapshot &snapshot)
{
    if (!snapshot.ssid)
        return u"No Wi-Fi\n"_s;
    QString line = u"Wi-Fi: "_s + PrintableText::line(*snapshot.ssid);
    if (const auto &signal = snapshot.signal)
        line += u" · %1 (%2 dBm)"_s.arg(signal->label).arg(signal->rssiDBm);
    if (snapshot.hasRememberedPassword)
        line += u" · password kept"_s;
    return line + u'\n';
}

QString othersLines(const LocatedSnapshot &snapshot)
{
    QString lines;
    for (const PlaceCandidate &candidate : snapshot.nearbyCandidates) {
        if (candidate != snapshot.selectedCafe)
            lines += LocatedTexts::distance(candidate).rightJustified(6) + u"  "_s +
                     PrintableText::line(candidate.name) + u'\n';
    }
    return lines.isEmpty() ? lines : u"Also near:\n"_s + lines;
}

QString cafeLines(const LocatedSnapshot &snapshot)
{
    const QString title = PrintableText::line(LocatedTexts::title(snapshot));
    const QString subtitle = LocatedTexts::subtitle(snapshot);
    if (!snapshot.selectedCafe)
        return title + u". "_s + subtitle + u'\n';
    const auto &address = snapshot.selectedCafe->address;
    return title + subtitle + u'\n' + (address ? PrintableText::line(*address) + u'\n' : QString());
}

QString textOf(const LocatedSnapshot &snapshot)
{
    const QString weather = snapshot.selectedCafe ? weatherLine(snapshot) : QString();
    return cafeLines(snapshot) + weather + wifiLine(snapshot) + othersLines(snapshot);
}

/// The exit status for the loop's result.
ExitStatus statusOf(const ViewState<LocatedSnapshot> &state)
{
    if (state.isError())
        return ExitStatus::LocationDenied;
    return state.loadedValue()->selectedCafe ? ExitStatus::Done : ExitStatus::NoCafe;
}

} // namespace

const CommandSyntax &syntax()
{
    static const CommandSyntax syntax{
        .name = u"locate"_s,
        .summary = u"Find the café that you are in, its weather and its Wi-Fi."_s,
        .options = {{u"--json"_s, {}, u"Print one JSON object, for programs."_s}},
        .details = u"\nExit status: 0 a café was found; 1 something failed; 2 the arguments are\n"
                   "wrong; 3 location is denied; 4 no café is near, or the position or the map\n"
                   "could not be had.\n"_s};
    return syntax;
}

ExitStatus run(const CommandArguments &arguments, Terminal &terminal, TerminalParts &parts)
{
    MenuBarViewModel viewModel(parts.services(), parts.clock());
    const auto state = locateOnce(viewModel, terminal);
    if (arguments.has(u"--json"_s))
        terminal.print(PrintableText::json(LocatedJson::result(state)) + '\n');
    else if (const auto *snapshot = state.loadedValue())
        terminal.print(textOf(*snapshot).toUtf8());
    if (const auto *error = state.errorValue())
        complain(terminal, error->errorDescription());
    return statusOf(state);
}

} // namespace quorvel::LocateCommand
