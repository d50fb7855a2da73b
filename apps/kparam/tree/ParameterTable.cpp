#include <tree/ParameterTable.h>

#include <QtCore/QJsonObject>

#include <cli/Failure.h>
#include <cli/SafeText.h>
#include <cli/TextTable.h>
#include <param/KpbAParameter.h>
#include <tree/ParameterBounds.h>
#include <tree/ParameterPath.h>

namespace {

QString yesNo(bool b)
{
    return b ? QStringLiteral("yes") : QStringLiteral("no");
}

QString automaticText(const KpbAParameter& parameter)
{
    return parameter.isAutomaticEnabled() ? yesNo(parameter.isAutomatic()) : QString();
}

/// The root has no way to go to; "." is what folders use.
QString shownPath(const KpbAParameter& root, const KpbAParameter& parameter)
{
    return &root == &parameter ? QStringLiteral(".") : pathBelow(root, parameter);
}

TextTable table(const KpbAParameter& root)
{
    TextTable table({"Path", "Key", "Kind", "Label", "Value", "Bounds", "Unit", "Automatic", "Enabled", "Volatile"});
    forEachParameter(root, [&](const KpbAParameter& parameter) {
        table.addRow({shownPath(root, parameter), parameter.getKey(), parameter.getType().getLabel(),
                      parameter.getLabel(), parameter.toString(), boundsText(parameter), unitText(parameter),
                      automaticText(parameter), yesNo(parameter.isEnabled()), yesNo(parameter.isVolatile())});
    });
    return table;
}

QJsonObject storedJson(const KpbAParameter& parameter)
{
    QJsonObject stored;
    for (const auto& entry : parameter.serialize())
        stored.insert(entry.key, entry.value);
    return stored;
}

QJsonObject parameterJson(const KpbAParameter& root, const KpbAParameter& parameter)
{
    QJsonObject object{{"path", shownPath(root, parameter)},   {"key", parameter.getKey()},
                       {"kind", parameter.getType().getKey()}, {"label", parameter.getLabel()},
                       {"value", parameter.toString()},        {"stored", storedJson(parameter)},
                       {"bounds", boundsText(parameter)},      {"unit", unitText(parameter)},
                       {"enabled", parameter.isEnabled()},     {"volatile", parameter.isVolatile()},
                       {"version", parameter.getVersion()}};
    object.insert("automatic", parameter.isAutomaticEnabled() ? QJsonValue(parameter.isAutomatic()) : QJsonValue());
    return object;
}

QString stateText(const KpbAParameter& parameter)
{
    QStringList parts;
    if (parameter.isAutomatic())
        parts.append(QStringLiteral("automatic"));
    if (parameter.isDisabled())
        parts.append(QStringLiteral("disabled"));
    if (parameter.isVolatile())
        parts.append(QStringLiteral("not stored"));
    return parts.isEmpty() ? QString() : QStringLiteral("(%1)").arg(parts.join(QStringLiteral(", ")));
}

struct TreeLine
{
    QString branch;
    QString label;
    QString value;
    QString state;
};

void addTreeLines(QVector<TreeLine>& lines, const KpbAParameter& parameter, const QString& head, const QString& tail)
{
    lines.append({head + SafeText::inLine(parameter.getKey()), SafeText::inLine(parameter.getLabel()),
                  SafeText::inLine(parameter.toString()), stateText(parameter)});
    for (int i = 0, count = parameter.getChildCount(); i < count; ++i) {
        const KpbAParameter* child = parameter.getChild(i);
        const bool last = i == count - 1;
        if (child)
            addTreeLines(lines, *child, tail + (last ? QStringLiteral("└─ ") : QStringLiteral("├─ ")),
                         tail + (last ? QStringLiteral("   ") : QStringLiteral("│  ")));
    }
}

} // namespace

TreeFormat requireTreeFormat(const QString& name)
{
    static const QStringList names{"tree", "text", "markdown", "json"};
    const int index = names.indexOf(name);
    if (index < 0)
        throw Failure(ExitCode::Usage, QStringLiteral("There is no format %1; there are %2.")
                                           .arg(SafeText::quoted(name), names.join(QStringLiteral(", "))));
    return TreeFormat(index);
}

QString treeText(const KpbAParameter& root)
{
    QVector<TreeLine> lines;
    addTreeLines(lines, root, QString(), QString());
    int branchWidth = 0;
    int labelWidth = 0;
    for (const TreeLine& line : std::as_const(lines)) {
        branchWidth = std::max(branchWidth, line.branch.size());
        labelWidth = std::max(labelWidth, line.label.size());
    }
    QStringList texts;
    for (const TreeLine& line : std::as_const(lines)) {
        const QString value =
            line.state.isEmpty() ? line.value : (line.value + QLatin1Char(' ') + line.state).trimmed();
        QString text = line.branch.leftJustified(branchWidth) + QStringLiteral("  ") +
                       line.label.leftJustified(labelWidth) + QStringLiteral("  ") + value;
        while (text.endsWith(QLatin1Char(' ')))
            text.chop(1);
        texts.append(text);
    }
    return texts.join(QLatin1Char('\n'));
}

QString tableText(const KpbAParameter& root)
{
    return table(root).toText();
}

QString tableMarkdown(const KpbAParameter& root)
{
    return table(root).toMarkdown();
}

QJsonArray tableJson(const KpbAParameter& root)
{
    QJsonArray array;
    forEachParameter(root, [&](const KpbAParameter& parameter) { array.append(parameterJson(root, parameter)); });
    return array;
}
