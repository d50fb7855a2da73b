#pragma once

#include <QtCore/QCommandLineParser>
#include <QtCore/QVector>

#include <cli/ExitCode.h>

class Output;

/// What the user said to one command, held against what the command understands, and the command's help text. Whatever
/// does not fit is a `Failure` of code `Usage`.
class CommandLine
{
public:
    enum Count
    {
        One,
        Optional,
        OneOrMore
    };

    /// `command` is all that stands before the arguments, without the program's name.
    CommandLine(const QString& command, const QString& summary);

    void addArgument(const QString& name, const QString& description, Count count = One);
    void addOption(const QCommandLineOption& option);
    /// An option that has to be given.
    void addRequiredOption(const QCommandLineOption& option);
    /// A paragraph of the help text.
    void addNote(const QString& text) { _notes.append(text); }
    /// The codes that the command can end with besides 0, 2, 5 and 6, which all can.
    void setExitCodes(const QVector<ExitCode>& codes) { _codes = codes; }

    /// False if the user asked for help, which has been printed then.
    bool parse(const QStringList& arguments, Output& output);

    bool isSet(const QString& option) const { return _parser.isSet(option); }
    QString getValue(const QString& option) const { return _parser.value(option); }
    QStringList getValues(const QString& option) const { return _parser.values(option); }
    /// Empty for an optional argument that was not given.
    QString getArgument(int index) const { return _parser.positionalArguments().value(index); }
    QStringList getArgumentsFrom(int index) const { return _parser.positionalArguments().mid(index); }
    bool hasArgument(int index) const { return _parser.positionalArguments().size() > index; }

    static QString getCodesText(const QVector<ExitCode>& codes);

    static QCommandLineOption asOption();
    static QCommandLineOption projectOption();
    static QCommandLineOption jsonOption();
    static QCommandLineOption outOption();
    static QCommandLineOption forceOption();

private:
    struct Argument
    {
        QString name;
        QString description;
        Count count;
    };

    QString _help() const;
    QString _usageLine() const;
    void _checkCounts() const;
    [[noreturn]] void _fail(const QString& message) const;

    QString _command;
    QString _summary;
    QVector<Argument> _arguments;
    QList<QCommandLineOption> _options;
    QStringList _required;
    QStringList _notes;
    QVector<ExitCode> _codes;
    QCommandLineParser _parser;
};
