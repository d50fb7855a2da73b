#include <cli/CommandLine.h>
#include <cli/Output.h>
#include <command/Command.h>
#include <command/TreeOutput.h>
#include <tree/MadeParameter.h>

ExitCode runDescribe(const QStringList& arguments, Output& output)
{
    CommandLine line("describe",
                     "Shows all parameters of a class as built: path, key, kind, label, value, bounds, unit,\n"
                     "automatic mode, and whether they are enabled and volatile.");
    line.addNote("Values are shown in the user's unit, bounds in the unit of the column Unit.");
    line.addArgument("CLASS", "the name of the class; see 'kparam classes'");
    line.addOption({"key", "the key of the parameter, else the name of the class", "KEY"});
    addTreeFormatOptions(line, "text");
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const TreeFormat format = getTreeFormat(line);
    const auto parameter = makeParameter(requireClass(line.getArgument(0)), line.getValue("key"));
    printTree(*parameter, format, {{"class", line.getArgument(0)}}, output);
    return ExitCode::Ok;
}
