#include "Features/Terminal/Commands/CheckInCommand.h"

#include "Core/Persistence/CheckInRepository.h"
#include "Core/Support/AppError.h"
#include "Core/Support/Texts/PrintableText.h"
#include "Features/CheckIn/LocatedTexts.h"
#include "Features/Terminal/LocateOnce.h"
#include "Features/Terminal/LocatedJson.h"
#include "Models/PlaceCandidate.h"
#include "Models/WorkRatings.h"
#include "Platform/Terminal/Terminal.h"
#include "Services/Share/Export/VisitJson.h"

#include <optional>
#include <vector>

namespace quorvel::CheckInCommand {

using namespace Qt::StringLiterals;

namespace {

using State = ViewState<LocatedSnapshot>;

QList<CommandSyntax::Option> scoreOptions()
{
    QList<CommandSyntax::Option> options;
    for (const WorkCriterion &criterion : workCriteria)
        options.append({criterion.option.toString(), u"N"_s, criterion.optionHelp.toString()});
    return options;
}

qint64 score(const QString &option, const QString &text)
{
    const int score = text.size() == 1 ? text.front().unicode() - u'0' : 0;
    if (score >= WorkRatings::lowest && score <= WorkRatings::highest)
        return score;
    throw UsageError(u"“%1” takes a score from %2 to %3, not “%4”"_s.arg(
        option, QString::number(WorkRatings::lowest), QString::number(WorkRatings::highest), text));
}

WorkRatings ratingsOf(const CommandArguments &arguments)
{
    WorkRatings ratings = CheckInViewModel::initialRatings;
    for (const WorkCriterion &criterion : workCriteria) {
        const QString option = criterion.option.toString();
        if (const auto text = arguments.value(option))
            ratings.*criterion.score = score(option, *text);
    }
    return ratings;
}

QString comparable(const QString &name)
{
    return name.normalized(QString::NormalizationForm_C).simplified().toCaseFolded();
}

bool isMeant(const PlaceCandidate &candidate, const QString &wanted)
{
    return candidate.id == wanted || candidate.mapItemIdentifier == wanted ||
           comparable(candidate.name) == comparable(wanted);
}

QString namesOf(const std::vector<PlaceCandidate> &candidates)
{
    QStringList names;
    for (const PlaceCandidate &candidate : candidates)
        names.append(u'“' + candidate.name + u'”');
    return names.join(u", "_s);
}

/// The snapshot with the requested café, the nearest of that name; nothing if it is not near.
std::optional<LocatedSnapshot> choose(MenuBarViewModel &viewModel, const LocatedSnapshot &found,
                                      const std::optional<QString> &wanted)
{
    if (!found.selectedCafe)
        return std::nullopt;
    if (!wanted || isMeant(*found.selectedCafe, *wanted))
        return found;
    for (const PlaceCandidate &candidate : found.nearbyCandidates) {
        if (isMeant(candidate, *wanted)) {
            const State selected = selectOnce(viewModel, candidate);
            return *selected.loadedValue();
        }
    }
    return std::nullopt;
}

QString whyNoCafe(const LocatedSnapshot &found, const std::optional<QString> &wanted)
{
    if (!found.selectedCafe || !wanted)
        return LocatedTexts::title(found) + u". "_s + LocatedTexts::subtitle(found);
    return u"no café “%1” is near, but %2"_s.arg(*wanted, namesOf(found.nearbyCandidates));
}

QString wordFor(ExitStatus status)
{
    switch (status) {
    case ExitStatus::Done:
        return u"checkedIn"_s;
    case ExitStatus::LocationDenied:
        return u"locationDenied"_s;
    case ExitStatus::NoCafe:
        return u"noCafe"_s;
    case ExitStatus::AlreadyCheckedIn:
        return u"alreadyCheckedIn"_s;
    case ExitStatus::Failure:
    case ExitStatus::Usage:
        break;
    }
    Q_UNREACHABLE();
}

/// How the command ended, and at which café.
struct Ending
{
    ExitStatus status;
    std::optional<PlaceCandidate> cafe = {};
    QString complaint = {};
};

/// Throws AppError if the visit cannot be stored.
Ending submit(CheckInViewModel &form, const LocatedSnapshot &snapshot)
{
    form.refreshCheckedInTodayStatus(snapshot.selectedCafe);
    form.submit(snapshot);
    if (const auto *error = form.saveState().errorValue())
        throw AppError(*error);
    if (form.saveState().isLoaded())
        return {.status = ExitStatus::Done, .cafe = snapshot.selectedCafe};
    return {.status = ExitStatus::AlreadyCheckedIn,
            .cafe = snapshot.selectedCafe,
            .complaint = LocatedTexts::note(snapshot, form.hasCheckedInToday())};
}

Ending checkIn(const WorkRatings &ratings, const CommandArguments &arguments, Terminal &terminal,
               TerminalParts &parts)
{
    // Order: open the store first. Without it there is no point in locating.
    CheckInRepository &repository = parts.repository();
    const auto services = parts.services();
    MenuBarViewModel viewModel(services, parts.clock());
    const State state = locateOnce(viewModel, terminal);
    if (const auto *error = state.errorValue())
        return {.status = ExitStatus::LocationDenied, .complaint = error->errorDescription()};
    const auto wanted = arguments.value(u"--cafe"_s);
    const auto chosen = choose(viewModel, *state.loadedValue(), wanted);
    if (!chosen)
        return {.status = ExitStatus::NoCafe, .complaint = whyNoCafe(*state.loadedValue(), wanted)};
    CheckInViewModel form(repository, services.keychain, parts.clock(), parts.notificationCenter());
    form.setRatings(ratings);
    form.setNote(arguments.value(u"--note"_s).value_or(QString()));
    return submit(form, *chosen);
}

QByteArray jsonOf(const Ending &ending)
{
    const QJsonObject json{{u"version"_s, 1},
                           {u"status"_s, wordFor(ending.status)},
                           {u"cafe"_s, LocatedJson::cafe(ending.cafe)}};
    return PrintableText::json(json) + '\n';
}

QList<CommandSyntax::Option> options()
{
    using Options = QList<CommandSyntax::Option>;
    return Options{
               {u"--cafe"_s, u"NAME"_s, u"Another one nearby, by its name or its identifier."_s}} +
           scoreOptions() +
           Options{{u"--note"_s, u"TEXT"_s, u"A note on the visit."_s},
                   {u"--json"_s, {}, u"Print one JSON object, for programs."_s}};
}

} // namespace

const CommandSyntax &syntax()
{
    static const CommandSyntax syntax{
        .name = u"check-in"_s,
        .summary = u"Store a visit at the nearest café, once a day and café."_s,
        .options = options(),
        .details =
            u"\nExit status: 0 the visit is stored; 1 something failed; 2 the arguments are\n"
            "wrong; 3 location is denied; 4 no café is near, or not the one asked for, or\n"
            "the position or the map could not be had; 5 today's visit there is stored\n"
            "already.\n"_s};
    return syntax;
}

ExitStatus run(const CommandArguments &arguments, Terminal &terminal, TerminalParts &parts)
{
    const auto ending = checkIn(ratingsOf(arguments), arguments, terminal, parts);
    if (!ending.complaint.isEmpty())
        complain(terminal, ending.complaint);
    if (arguments.has(u"--json"_s)) {
        terminal.print(jsonOf(ending));
    } else if (ending.status == ExitStatus::Done) {
        const QString name = PrintableText::line(ending.cafe->name);
        terminal.print(u"Checked in at %1.\n"_s.arg(name).toUtf8());
    }
    return ending.status;
}

} // namespace quorvel::CheckInCommand
