#include "Features/Terminal/CommandArguments.h"

#include <algorithm>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

/// The indent of an option's description.
constexpr int helpColumn = 26;

const CommandSyntax::Option &helpOption()
{
    static const CommandSyntax::Option option{u"--help"_s, {}, u"Show this text."_s};
    return option;
}

QString helpLine(const CommandSyntax::Option &option)
{
    const QString head =
        u"  "_s + option.name + (option.value.isEmpty() ? u""_s : u" "_s) + option.value + u"  "_s;
    return head.leftJustified(helpColumn) + option.help + u'\n';
}

const CommandSyntax::Option &optionNamed(const CommandSyntax &syntax, const QString &name)
{
    if (name == helpOption().name || name == "-h"_L1)
        return helpOption();
    const auto found = std::ranges::find(syntax.options, name, &CommandSyntax::Option::name);
    if (found == syntax.options.end())
        throw UsageError(u"unknown option “%1”"_s.arg(name));
    return *found;
}

/// Splits "--option=value" into two arguments.
struct Typed
{
    QString name;
    std::optional<QString> value;
};

Typed typed(const QString &argument)
{
    if (!argument.startsWith(u'-') || argument.size() < 2)
        throw UsageError(u"unexpected argument “%1”"_s.arg(argument));
    const qsizetype end = argument.indexOf(u'=');
    if (end < 0)
        return {argument, std::nullopt};
    return {argument.left(end), argument.sliced(end + 1)};
}

} // namespace

QString CommandSyntax::help() const
{
    QString text = u"Usage: quorvel "_s + name + u" [option...]\n\n"_s + summary + u"\n"_s;
    text += details + u"\nOptions:\n"_s;
    for (const Option &option : options)
        text += helpLine(option);
    return text + helpLine(helpOption());
}

CommandArguments CommandArguments::parse(const CommandSyntax &syntax, const QStringList &arguments)
{
    CommandArguments result;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        Typed given = typed(*argument);
        const auto &option = optionNamed(syntax, given.name);
        if (option.value.isEmpty() && given.value)
            throw UsageError(u"option “%1” takes no value"_s.arg(option.name));
        if (!option.value.isEmpty() && !given.value) {
            if (++argument == arguments.end())
                throw UsageError(u"option “%1” needs a value"_s.arg(option.name));
            given.value = *argument;
        }
        if (result.has(option.name))
            throw UsageError(u"option “%1” is given twice"_s.arg(option.name));
        result.m_values.insert(option.name, given.value.value_or(QString()));
        if (option.name == helpOption().name)
            break;
    }
    return result;
}

std::optional<QString> CommandArguments::value(const QString &option) const
{
    const auto found = m_values.constFind(option);
    return found == m_values.constEnd() ? std::nullopt : std::optional(*found);
}

} // namespace quorvel
