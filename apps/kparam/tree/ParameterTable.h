#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QString>

class KpbAParameter;

/// How a tree of parameters is shown.
enum class TreeFormat
{
    Tree,
    Text,
    Markdown,
    Json
};

/// The format of that name, or a `Failure` of code `Usage`.
TreeFormat requireTreeFormat(const QString& name);

/// One line per parameter, indented, with label, value and what is not ordinary about its state.
QString treeText(const KpbAParameter& root);
/// The table of all parameters: path, key, kind, label, value, bounds, unit, automatic, enabled, volatile.
QString tableText(const KpbAParameter& root);
QString tableMarkdown(const KpbAParameter& root);
/// An object per parameter with what the table has, and with the value as it is stored.
QJsonArray tableJson(const KpbAParameter& root);
