#pragma once

#include <QtCore/QJsonObject>

#include <tree/ParameterTable.h>

class CommandLine;
class Output;

/// The options --format and --json.
void addTreeFormatOptions(CommandLine& line, const QString& defaultFormat);
TreeFormat getTreeFormat(const CommandLine& line);

/// Prints a tree; `json` is what a JSON object has before the parameters.
void printTree(const KpbAParameter& root, TreeFormat format, QJsonObject json, Output& output);
