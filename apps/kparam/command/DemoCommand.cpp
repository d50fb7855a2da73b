#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <cli/CommandLine.h>
#include <cli/Failure.h>
#include <cli/Output.h>
#include <command/Command.h>
#include <demo/DataSession.h>
#include <demo/DemoSession.h>
#include <demo/ModelSession.h>

namespace {

ExitCode runIn(const QString& folder, Output& output)
{
    DemoReport report(output);
    if (!QDir().mkpath(folder))
        throw Failure(ExitCode::OutputFailed, "The folder cannot be made.", folder);
    const QString storeFile = QDir(folder).filePath("demo.kestrin");
    DemoSession(storeFile, report).run();
    ModelSession(storeFile, report).run();
    DataSession(storeFile, report).run();
    return report.finish();
}

} // namespace

ExitCode runDemo(const QStringList& arguments, Output& output)
{
    CommandLine line("demo",
                     "Builds a task form as a tree of parameters, changes it, shows the records that reach the\n"
                     "root, saves the form in a store, opens it again, and reads documents of older versions.\n"
                     "Then a form of vectors, orientations, constraints, drawings and lists, and its watchers.\n"
                     "Last a form on a data file that it imports: its samples are selected, filtered and\n"
                     "categorised, and the project changes under it.\n"
                     "Each step is held against what it must give; the code is 0 only if all gave it, else 1.");
    line.addArgument("DIR", "the folder of the store, which stays there; else a temporary one, which is removed",
                     CommandLine::Optional);
    line.setExitCodes({ExitCode::Findings});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    if (line.hasArgument(0))
        return runIn(line.getArgument(0), output);
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw Failure(ExitCode::OutputFailed, "A temporary folder cannot be made.");
    return runIn(folder.path(), output);
}
