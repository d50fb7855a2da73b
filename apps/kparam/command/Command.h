#pragma once

#include <QtCore/QStringList>

#include <cli/ExitCode.h>

#include <vector>

class Output;

/// One word of the command line and what it does. `run` gets the arguments behind the word, and may throw a `Failure`.
struct Command
{
    const char* name;
    const char* summary;
    ExitCode (*run)(const QStringList& arguments, Output& output);
};

const std::vector<Command>& getCommands();

ExitCode runKinds(const QStringList& arguments, Output& output);
ExitCode runClasses(const QStringList& arguments, Output& output);
ExitCode runDescribe(const QStringList& arguments, Output& output);
ExitCode runTemplate(const QStringList& arguments, Output& output);
ExitCode runShow(const QStringList& arguments, Output& output);
ExitCode runCheck(const QStringList& arguments, Output& output);
ExitCode runMigrate(const QStringList& arguments, Output& output);
ExitCode runSet(const QStringList& arguments, Output& output);
ExitCode runStore(const QStringList& arguments, Output& output);
ExitCode runDemo(const QStringList& arguments, Output& output);
