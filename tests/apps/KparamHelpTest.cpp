#include <apps/KparamTest.h>

namespace {

class KparamHelp : public KparamTest
{};

TEST_F(KparamHelp, ListsTheCommandsAndTheExitCodes)
{
    const KparamRun help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.err.isEmpty());
    for (const char* command :
         {"kinds", "classes", "describe", "template", "show", "check", "migrate", "set", "store", "demo"})
        EXPECT_TRUE(help.out.contains(QStringLiteral("\n  %1 ").arg(command))) << command;
    for (const char* code : {"0  done", "1  done, but something", "2  the command line is wrong",
                             "3  a document cannot be read", "4  the store cannot be used", "5  the output cannot be"})
        EXPECT_TRUE(help.out.contains(code)) << code;
}

TEST_F(KparamHelp, IsGivenForEachCommand)
{
    for (const char* command : {"kinds", "classes", "describe", "template", "show", "check", "migrate", "set", "demo"})
    {
        const KparamRun help = run({command, "--help"});
        EXPECT_EQ(help.code, 0) << command;
        EXPECT_TRUE(help.out.startsWith(QStringLiteral("Usage: kparam %1").arg(command))) << help.out.toStdString();
        EXPECT_TRUE(help.out.contains("Exit codes:\n  0  done\n")) << command;
        EXPECT_EQ(run({command, "-h"}).out, help.out) << command;
    }
}

TEST_F(KparamHelp, IsGivenForStoresAndEachOfTheirCommands)
{
    const KparamRun help = run({"store", "--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_EQ(run({"store", "anything", "--help"}).out, help.out);
    for (const char* command : {"list", "show", "put", "copy", "move-url", "export", "import", "restore"}) {
        EXPECT_TRUE(help.out.contains(QStringLiteral("\n  %1 ").arg(command))) << command;
        const KparamRun one = run({"store", "anything", command, "--help"});
        EXPECT_EQ(one.code, 0) << command;
        EXPECT_TRUE(one.out.startsWith(QStringLiteral("Usage: kparam store STORE %1").arg(command))) << command;
        EXPECT_EQ(run({"store", command, "--help"}).out, one.out) << command;
    }
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(KparamHelp, ShowsRequiredOptionsInTheUsage)
{
    EXPECT_EQ(run({"migrate", "--help"}).out.section('\n', 0, 0),
              "Usage: kparam migrate --as CLASS -o OUT FILE [OPTION...]");
    EXPECT_EQ(run({"set", "--help"}).out.section('\n', 0, 0),
              "Usage: kparam set --as CLASS -o OUT FILE PATH=VALUE... [OPTION...]");
}

TEST_F(KparamHelp, PrintsTheVersion)
{
    const KparamRun version = run({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(version.out.startsWith("kparam "));
}

struct WrongLine
{
    QStringList arguments;
    QString message;
};

TEST_F(KparamHelp, TellsWhatIsWrongWithACommandLine)
{
    const WrongLine lines[] = {
        {{}, "kparam: A command is missing. See 'kparam --help'.\n"},
        {{"fly"}, "kparam: There is no command 'fly'. See 'kparam --help'.\n"},
        {{"kinds", "more"}, "kparam: 'more' is one argument too many. See 'kparam kinds --help'.\n"},
        {{"kinds", "--fast"}, "kparam: Unknown option 'fast'. See 'kparam kinds --help'.\n"},
        {{"describe"}, "kparam: CLASS is missing. See 'kparam describe --help'.\n"},
        {{"describe", "KpaInteger", "--format", "xml"},
         "kparam: There is no format 'xml'; there are tree, text, markdown, json.\n"},
        {{"show", "a.xml"}, "kparam: The option --as is missing. See 'kparam show --help'.\n"},
        {{"check", "--as", "KpaInteger"}, "kparam: FILE is missing. See 'kparam check --help'.\n"},
        {{"migrate", "--as", "KpaInteger", "a.xml"},
         "kparam: The option --output is missing. See 'kparam migrate --help'.\n"},
        {{"set", "--as", "KpaInteger", "a.xml", "-o", "b.xml"},
         "kparam: PATH=VALUE is missing. See 'kparam set --help'.\n"},
        {{"store"}, "kparam: STORE is missing. See 'kparam store --help'.\n"},
        {{"store", "s"}, "kparam: COMMAND is missing. See 'kparam store --help'.\n"},
        {{"store", "s", "drop"}, "kparam: There is no command 'drop' for stores. See 'kparam store --help'.\n"},
        {{"demo", "a", "b"}, "kparam: 'b' is one argument too many. See 'kparam demo --help'.\n"},
    };
    for (const WrongLine& line : lines) {
        const KparamRun result = run(line.arguments);
        EXPECT_EQ(result.code, 2) << line.message.toStdString();
        EXPECT_EQ(result.err, line.message);
        EXPECT_TRUE(result.out.isEmpty()) << result.out.toStdString();
    }
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(KparamHelp, SuggestsClassesWithCloseNames)
{
    EXPECT_EQ(run({"describe", "KpaIntger"}).err, "kparam: There is no class 'KpaIntger'. Did you mean KpaInteger?\n");
    EXPECT_EQ(run({"template", "integer"}).err, "kparam: There is no class 'integer'. Did you mean KpaInteger?\n");
    const KparamRun strange = run({"show", "--as", "Xylophone", "a.xml"});
    EXPECT_EQ(strange.err, "kparam: There is no class 'Xylophone'. 'kparam classes' lists them all.\n");
    EXPECT_EQ(strange.code, 2);
}

TEST_F(KparamHelp, TellsFailuresAsJsonToo)
{
    const KparamRun result = run({"describe", "Nothing", "--json"});
    EXPECT_EQ(result.code, 2);
    const QJsonObject error = result.json().value("error").toObject();
    EXPECT_EQ(error.value("code").toInt(), 2);
    EXPECT_EQ(error.value("message").toString(), "There is no class 'Nothing'. 'kparam classes' lists them all.");
    EXPECT_FALSE(run({"describe", "Nothing", "--format", "json"}).json().value("error").isUndefined());
}

TEST_F(KparamHelp, TellsWhenTheStandardOutputCannotBeWritten)
{
    const KparamRun result = runInto("/dev/full", {"kinds"});
    EXPECT_EQ(result.code, 5);
    EXPECT_EQ(result.err, "kparam: The standard output cannot be written.\n");
}

} // namespace
