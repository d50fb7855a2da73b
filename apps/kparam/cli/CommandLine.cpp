#include <cli/CommandLine.h>

#include <cli/Failure.h>
#include <cli/Output.h>
#include <cli/SafeText.h>

#include <algorithm>
#include <utility>

namespace {

using Entries = QVector<std::pair<QString, QString>>;

/// Names with their descriptions beside them.
QString section(const QString& title, const Entries& entries)
{
    int width = 0;
    for (const auto& [name, description] : entries)
        width = std::max(width, name.size());
    QString text = QLatin1Char('\n') + title + QStringLiteral(":\n");
    for (const auto& [name, description] : entries)
        text += QStringLiteral("  %1  %2\n").arg(name.leftJustified(width), description);
    return text;
}

QString optionName(const QCommandLineOption& option)
{
    QStringList names;
    for (const QString& name : option.names())
        names.append(QLatin1String(name.size() == 1 ? "-" : "--") + name);
    const QString joined = names.join(QStringLiteral(", "));
    return option.valueName().isEmpty() ? joined : joined + QLatin1Char(' ') + option.valueName();
}

} // namespace

CommandLine::CommandLine(const QString& command, const QString& summary) : _command(command), _summary(summary)
{
    addOption({{"h", "help"}, "prints this help"});
}

void CommandLine::addArgument(const QString& name, const QString& description, Count count)
{
    _arguments.append({name, description, count});
}

void CommandLine::addOption(const QCommandLineOption& option)
{
    _options.append(option);
    _parser.addOption(option);
}

void CommandLine::addRequiredOption(const QCommandLineOption& option)
{
    addOption(option);
    _required.append(option.names().last());
}

bool CommandLine::parse(const QStringList& arguments, Output& output)
{
    const bool understood = _parser.parse(QStringList("kparam") + arguments);
    if (_parser.isSet("help")) {
        output.printBytes(_help().toUtf8());
        return false;
    }
    if (!understood)
        _fail(_parser.errorText());
    for (const QString& option : std::as_const(_required)) {
        if (!_parser.isSet(option))
            _fail(QStringLiteral("The option --%1 is missing.").arg(option));
    }
    _checkCounts();
    return true;
}

void CommandLine::_checkCounts() const
{
    int required = 0;
    bool many = false;
    for (const Argument& argument : _arguments) {
        if (argument.count != Optional && !hasArgument(required++))
            _fail(QStringLiteral("%1 is missing.").arg(argument.name));
        many = many || argument.count == OneOrMore;
    }
    if (!many && hasArgument(_arguments.size()))
        _fail(QStringLiteral("%1 is one argument too many.").arg(SafeText::quoted(getArgument(_arguments.size()))));
}

void CommandLine::_fail(const QString& message) const
{
    throw Failure(ExitCode::Usage, QStringLiteral("%1 See 'kparam %2 --help'.").arg(message, _command));
}

QString CommandLine::_usageLine() const
{
    QString line = QStringLiteral("Usage: kparam ") + _command;
    for (const QCommandLineOption& option : _options) {
        if (_required.contains(option.names().last()))
            line += QLatin1Char(' ') + optionName(option).section(QStringLiteral(", "), 0, 0) +
                    (option.names().size() > 1 ? QLatin1Char(' ') + option.valueName() : QString());
    }
    for (const Argument& argument : _arguments) {
        const char* shape = argument.count == One ? " %1" : argument.count == Optional ? " [%1]" : " %1...";
        line += QString::fromLatin1(shape).arg(argument.name);
    }
    return line + QStringLiteral(" [OPTION...]\n");
}

QString CommandLine::_help() const
{
    QString text = _usageLine() + QLatin1Char('\n') + _summary + QLatin1Char('\n');
    for (const QString& note : _notes)
        text += QLatin1Char('\n') + note + QLatin1Char('\n');

    Entries arguments;
    for (const Argument& argument : _arguments)
        arguments.append({argument.name, argument.description});
    if (!arguments.isEmpty())
        text += section(QStringLiteral("Arguments"), arguments);

    Entries options;
    for (const QCommandLineOption& option : _options)
        options.append({optionName(option), option.description()});
    return text + section(QStringLiteral("Options"), options) + getCodesText(_codes);
}

QString CommandLine::getCodesText(const QVector<ExitCode>& codes)
{
    static const std::pair<ExitCode, const char*> all[] = {
        {ExitCode::Ok, "done"},
        {ExitCode::Findings, "done, but something was found that is not as it should be, or is not equal"},
        {ExitCode::Usage, "the command line is wrong"},
        {ExitCode::InputFailed, "a document cannot be read; nothing was written"},
        {ExitCode::StoreFailed, "the store cannot be used, or does not have the form"},
        {ExitCode::OutputFailed, "the output cannot be written"},
        {ExitCode::Internal, "an internal failure"},
    };
    const QVector<ExitCode> common{ExitCode::Ok, ExitCode::Usage, ExitCode::OutputFailed, ExitCode::Internal};
    Entries entries;
    for (const auto& [code, text] : all) {
        if (codes.contains(code) || common.contains(code))
            entries.append({QString::number(int(code)), QString::fromLatin1(text)});
    }
    return section(QStringLiteral("Exit codes"), entries);
}

QCommandLineOption CommandLine::asOption()
{
    return {"as", "the class that the document is a form of; see 'kparam classes'", "CLASS"};
}

QCommandLineOption CommandLine::projectOption()
{
    return {"project", "the project whose items the document names; it is only read", "PROJECT"};
}

QCommandLineOption CommandLine::jsonOption()
{
    return {"json", "prints JSON, failures included"};
}

QCommandLineOption CommandLine::outOption()
{
    return {{"o", "output"}, "the file to write; an existing one is replaced as a whole or not at all", "OUT"};
}

QCommandLineOption CommandLine::forceOption()
{
    return {"force", "writes also where something in the document was not taken over as it stands"};
}
