#include "Quorvel/CommandLine.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr int usageError = 2;

struct ToolkitOption
{
    enum class Value { None, Next, NextOrAttached };

    QLatin1StringView name;
    Value value;
};

struct OpeningOption
{
    QLatin1StringView name;
    CommandLine::Opening opening;
};

constexpr std::array commands{"locate"_L1, "history"_L1, "export"_L1, "check-in"_L1};

constexpr std::array openingOptions{
    OpeningOption{"--panel"_L1, CommandLine::Opening::Panel},
    OpeningOption{"--history"_L1, CommandLine::Opening::History},
    OpeningOption{"--probe"_L1, CommandLine::Opening::Diagnostics},
    OpeningOption{"--background"_L1, CommandLine::Opening::Nothing},
};

constexpr std::array toolkitOptions{
    ToolkitOption{"platform"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"platformpluginpath"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"platformtheme"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"plugin"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"qwindowgeometry"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"qwindowicon"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"qwindowtitle"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"session"_L1, ToolkitOption::Value::Next},
    ToolkitOption{"style"_L1, ToolkitOption::Value::NextOrAttached},
    ToolkitOption{"stylesheet"_L1, ToolkitOption::Value::NextOrAttached},
    ToolkitOption{"reverse"_L1, ToolkitOption::Value::None},
    ToolkitOption{"widgetcount"_L1, ToolkitOption::Value::None},
};

QString helpText()
{
    return u"Usage: quorvel [option]\n"
           "       quorvel COMMAND [option...]\n"
           "\n"
           "A tray application for people who work from cafés. It lives as an icon in the\n"
           "status area; starting it again brings it forward.\n"
           "\n"
           "Commands, which need no display:\n"
           "  locate         Find the café that you are in, its weather and its Wi-Fi.\n"
           "  history        List your visits.\n"
           "  export         Write all your visits for other programs.\n"
           "  check-in       Store a visit at the nearest café.\n"
           "“quorvel COMMAND --help” tells more.\n"
           "\n"
           "Options:\n"
           "  -h, --help     Show this text.\n"
           "  -v, --version  Show the version.\n"
           "  --panel        Open the panel, to check in.\n"
           "  --history      Open the window of your visits.\n"
           "  --probe        Open the diagnostics.\n"
           "  --background   Open nothing, as at a login.\n"
           "\n"
           "A Quorvel that runs already opens what this one is told to. Of several options\n"
           "that say what to open, the last one counts.\n"
           "\n"
           "Options of the Qt toolkit such as “-platform” and “-style” work too.\n"_s;
}

CommandLine answer(const QString &text)
{
    return {.output = text, .exitStatus = EXIT_SUCCESS};
}

CommandLine refusal(const QString &reason)
{
    return {.errors = u"quorvel: "_s + reason + u"\nTry “quorvel --help”.\n"_s,
            .exitStatus = usageError};
}

/// Only the first argument can name a command.
bool isCommand(const QStringList &arguments)
{
    return !arguments.isEmpty() &&
           std::find(commands.begin(), commands.end(), arguments.constFirst()) != commands.end();
}

const OpeningOption *openingOption(const QString &argument)
{
    const auto *const found = std::ranges::find(openingOptions, argument, &OpeningOption::name);
    return found == openingOptions.end() ? nullptr : found;
}

bool isOption(const QString &argument)
{
    return argument.startsWith(u'-') && argument.size() > 1;
}

/// Qt accepts its options with one dash or two.
QStringView nameOf(const QString &option)
{
    return QStringView(option).sliced(option.startsWith("--"_L1) ? 2 : 1);
}

bool hasAttachedValue(QStringView name, const ToolkitOption &option)
{
    return option.value == ToolkitOption::Value::NextOrAttached && name.startsWith(option.name) &&
           name.sliced(option.name.size()).startsWith(u'=');
}

const ToolkitOption *toolkitOption(QStringView name)
{
    const auto found = std::find_if(
        toolkitOptions.begin(), toolkitOptions.end(), [name](const ToolkitOption &option) {
            return name == option.name || hasAttachedValue(name, option);
        });
    return found == toolkitOptions.end() ? nullptr : &*found;
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    if (isCommand(arguments))
        return {.command = arguments};
    CommandLine start;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--help"_L1 || *argument == "-h"_L1)
            return answer(helpText());
        if (*argument == "--version"_L1 || *argument == "-v"_L1)
            return answer(u"Quorvel " QUORVEL_VERSION "\n"_s);
        if (const auto *const option = openingOption(*argument)) {
            start.opening = option->opening;
            continue;
        }
        if (!isOption(*argument))
            return refusal(u"unexpected argument “%1”"_s.arg(*argument));
        const QStringView name = nameOf(*argument);
        const ToolkitOption *const option = toolkitOption(name);
        if (!option)
            return refusal(u"unknown option “%1”"_s.arg(*argument));
        const bool takesNext = option->value != ToolkitOption::Value::None && name == option->name;
        if (takesNext && ++argument == arguments.end())
            return refusal(u"option “%1” needs a value"_s.arg(arguments.constLast()));
    }
    return start;
}

} // namespace quorvel
