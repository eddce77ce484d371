#include "Features/Terminal/Commands/ExportCommand.h"

#include "Core/Persistence/CheckInRepository.h"
#include "Platform/Files/FileManager.h"
#include "Platform/Terminal/Terminal.h"
#include "Services/Share/Export/VisitExport.h"

#include <QFileInfo>

#include <memory>
#include <optional>
#include <vector>

namespace quorvel::ExportCommand {

using namespace Qt::StringLiterals;

namespace {

using Visits = std::vector<std::shared_ptr<CheckIn>>;

VisitExport::Format formatOf(const CommandArguments &arguments)
{
    const auto name = arguments.value(u"--format"_s);
    if (!name)
        throw UsageError(u"“--format” says how: json, csv or geojson"_s);
    const auto format = VisitExport::formatNamed(*name);
    if (!format)
        throw UsageError(u"“%1” is no format: json, csv or geojson"_s.arg(*name));
    return *format;
}

/// The absolute path; nothing for standard output. Only a file may be replaced, never a device or a
/// folder.
std::optional<QString> outputOf(const CommandArguments &arguments)
{
    const auto path = arguments.value(u"--output"_s);
    if (!path || *path == "-"_L1)
        return std::nullopt;
    const QFileInfo target(*path);
    if (path->isEmpty() || path->endsWith(u'/') || (target.exists() && !target.isFile()))
        throw UsageError(u"“%1” is no file to write to"_s.arg(*path));
    return target.absoluteFilePath();
}

/// Collects the text first, since a file is written as a whole or not at all.
void writeFile(const Visits &visits, VisitExport::Format format, const QString &path,
               const FileManager &files)
{
    QByteArray content;
    VisitExport::write(visits, format, [&](QByteArrayView piece) { content.append(piece); });
    files.writePrivateFile(path, content);
}

} // namespace

const CommandSyntax &syntax()
{
    static const CommandSyntax syntax{
        .name = u"export"_s,
        .summary = u"Write all your visits for other programs, without any password."_s,
        .options = {{u"--format"_s, u"FORMAT"_s, u"json, csv or geojson."_s},
                    {u"--output"_s, u"FILE"_s, u"Write this file instead of printing."_s}},
        .details = u"\nA file is written whole or not at all, and for you alone.\n"
                   "\nExit status: 0 all is written; 1 something failed; 2 the arguments are\n"
                   "wrong.\n"_s};
    return syntax;
}

ExitStatus run(const CommandArguments &arguments, Terminal &terminal, TerminalParts &parts)
{
    const auto format = formatOf(arguments);
    const auto path = outputOf(arguments);
    const Visits visits = parts.repository().allCheckIns();
    if (path)
        writeFile(visits, format, *path, parts.fileManager());
    else
        VisitExport::write(visits, format, [&](QByteArrayView piece) { terminal.print(piece); });
    return ExitStatus::Done;
}

} // namespace quorvel::ExportCommand
