#include "Features/Terminal/Commands/HistoryCommand.h"

#include "Core/Support/AppError.h"
#include "Core/Support/Texts/PrintableText.h"
#include "Features/History/List/HistorySection.h"
#include "Features/History/List/HistoryTexts.h"
#include "Models/WorkRatings.h"
#include "Platform/Clock/Calendar.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Terminal/Terminal.h"
#include "Services/Share/Export/VisitExport.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QTime>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace quorvel::HistoryCommand {

using namespace Qt::StringLiterals;

namespace {

constexpr auto dayFormat = "yyyy-MM-dd"_L1;

/// The midnight at which the user's day begins. Noon is in that day in every time zone.
std::optional<Instant> startOf(const std::optional<QString> &day, const Calendar &calendar)
{
    if (!day)
        return std::nullopt;
    const QDate date = QDate::fromString(*day, dayFormat);
    // The format alone would accept blanks and signs as digits.
    if (!date.isValid() || date.toString(dayFormat) != *day)
        throw UsageError(u"“%1” is no day as in “2026-03-01”"_s.arg(*day));
    const qint64 inside = QDateTime(date, QTime(12, 0), calendar.timeZone()).toMSecsSinceEpoch();
    return calendar.day(Instant(std::chrono::milliseconds(inside))).start;
}

/// Throws AppError.
HistoryViewModel::Sections sectionsOf(HistoryViewModel &viewModel)
{
    viewModel.load();
    if (const auto *error = viewModel.state().errorValue())
        throw AppError(*error);
    return *viewModel.state().loadedValue();
}

/// The visits are sorted newest first.
void dropBefore(HistoryViewModel::Sections &sections, Instant start)
{
    for (HistorySection &section : sections)
        std::erase_if(section.checkIns,
                      [start](const auto &visit) { return visit->date() < start; });
    std::erase_if(sections, [](const HistorySection &section) { return section.checkIns.empty(); });
}

std::vector<std::shared_ptr<CheckIn>> visitsOf(const HistoryViewModel::Sections &sections)
{
    std::vector<std::shared_ptr<CheckIn>> visits;
    for (const HistorySection &section : sections)
        visits.insert(visits.end(), section.checkIns.begin(), section.checkIns.end());
    return visits;
}

QString ratingsText(const WorkRatings &ratings)
{
    QStringList scores;
    for (const WorkCriterion &criterion : workCriteria)
        scores.append(criterion.rowLabel.toString() + u' ' +
                      QString::number(ratings.*criterion.score));
    return scores.join(u" · "_s);
}

QString visitLines(const CheckIn &visit, const Calendar &calendar, const QLocale &locale)
{
    const QString indent = u"    "_s;
    QString lines = u"  "_s + HistoryTexts::moment(visit, calendar, locale) + u"  "_s +
                    PrintableText::line(HistoryTexts::title(visit)) + u'\n';
    lines += indent + ratingsText(visit.ratings()) + u'\n';
    if (!visit.note().isEmpty())
        lines += indent + PrintableText::line(visit.note()) + u'\n';
    return lines;
}

void print(const HistoryViewModel::Sections &sections, const Clock &clock, Terminal &terminal)
{
    const Calendar calendar = clock.calendar();
    const QLocale locale = clock.locale();
    for (const HistorySection &section : sections) {
        QString text = u'\n' + PrintableText::line(section.title) + u'\n';
        for (const auto &visit : section.checkIns)
            text += visitLines(*visit, calendar, locale);
        terminal.print(text.toUtf8());
    }
}

QString headOf(const HistoryViewModel &viewModel, const HistoryViewModel::Sections &sections)
{
    if (HistoryTexts::isEmpty(viewModel.state()))
        return u"No check-ins yet\n"_s;
    return HistoryTexts::weeklySummary(viewModel.weeklySummary()) + u'\n' +
           (sections.empty() ? u"\nNo check-ins since that day\n"_s : QString());
}

} // namespace

const CommandSyntax &syntax()
{
    static const CommandSyntax syntax{
        .name = u"history"_s,
        .summary = u"List your visits, newest first."_s,
        .options = {{u"--json"_s, {}, u"Print one JSON object, for programs."_s},
                    {u"--since"_s, u"DAY"_s, u"Only from that day on, as in 2026-03-01."_s}},
        .details =
            u"\nExit status: 0 they are listed, also when there is none; 1 something failed;\n"
            "2 the arguments are wrong.\n"_s};
    return syntax;
}

ExitStatus run(const CommandArguments &arguments, Terminal &terminal, TerminalParts &parts)
{
    const auto start = startOf(arguments.value(u"--since"_s), parts.clock().calendar());
    HistoryViewModel viewModel(parts.repository(), parts.clock(), parts.notificationCenter());
    auto sections = sectionsOf(viewModel);
    if (start)
        dropBefore(sections, *start);
    if (arguments.has(u"--json"_s)) {
        VisitExport::write(visitsOf(sections), VisitExport::Format::Json,
                           [&](QByteArrayView piece) { terminal.print(piece); });
        return ExitStatus::Done;
    }
    terminal.print(headOf(viewModel, sections).toUtf8());
    print(sections, parts.clock(), terminal);
    return ExitStatus::Done;
}

} // namespace quorvel::HistoryCommand
