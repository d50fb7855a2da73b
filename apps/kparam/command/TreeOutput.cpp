#include <command/TreeOutput.h>

#include <cli/CommandLine.h>
#include <cli/Output.h>

void addTreeFormatOptions(CommandLine& line, const QString& defaultFormat)
{
    line.addOption({"format", QStringLiteral("tree, text, markdown or json; else %1").arg(defaultFormat), "FORMAT",
                    defaultFormat});
    line.addOption(CommandLine::jsonOption());
}

TreeFormat getTreeFormat(const CommandLine& line)
{
    const TreeFormat format = requireTreeFormat(line.getValue("format"));
    return line.isSet("json") ? TreeFormat::Json : format;
}

void printTree(const KpbAParameter& root, TreeFormat format, QJsonObject json, Output& output)
{
    switch (format) {
    case TreeFormat::Tree:
        return output.print(treeText(root));
    case TreeFormat::Text:
        return output.print(tableText(root));
    case TreeFormat::Markdown:
        return output.print(tableMarkdown(root));
    case TreeFormat::Json:
        json.insert("parameters", tableJson(root));
        return output.printJson(json);
    }
}
