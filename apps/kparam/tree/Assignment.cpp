#include <tree/Assignment.h>

#include <cli/Failure.h>
#include <cli/SafeText.h>
#include <tree/ParameterPath.h>

namespace {

const QString valueEntry = QStringLiteral("value");

[[noreturn]] void fail(const QString& message)
{
    throw Failure(ExitCode::Usage, message);
}

/// The parameters that could be meant: those with the same last key.
QString hintFor(const QString& path, const KpbAParameter& root)
{
    const QString key = path.section(QLatin1Char('/'), -1);
    QStringList paths;
    forEachParameter(root, [&](const KpbAParameter& parameter) {
        if (parameter.getKey().compare(key, Qt::CaseInsensitive) == 0 && &parameter != &root)
            paths.append(SafeText::inLine(pathBelow(root, parameter)));
    });
    return paths.isEmpty() ? QString() : QStringLiteral(" Did you mean %1?").arg(paths.join(QStringLiteral(" or ")));
}

} // namespace

KpbAParameter& requireParameter(const QString& path, const KpbAParameter& root)
{
    KpbPath keys;
    keys.append(path.split(QLatin1Char('/')));
    KpbAParameter* parameter = root.getParameterByRelativePath(keys);
    if (!parameter)
        fail(QStringLiteral("There is no parameter %1.%2").arg(SafeText::quoted(path), hintFor(path, root)));
    return *parameter;
}

Assignment Assignment::parse(const QString& argument, KpbAParameter& root)
{
    const int equals = argument.indexOf(QLatin1Char('='));
    if (equals < 0)
        fail(QStringLiteral("%1 is not of the form PATH=VALUE.").arg(SafeText::quoted(argument)));
    const QString path = argument.left(equals);
    // The root of a tree with a single parameter has no path.
    KpbAParameter& parameter = path == QLatin1String(".") ? root : requireParameter(path, root);
    if (!parameter.serialize().contains(valueEntry))
        fail(QStringLiteral("%1 has no value of its own.").arg(SafeText::quoted(path)));
    if (parameter.isVolatile())
        fail(QStringLiteral("%1 is not stored.").arg(SafeText::quoted(path)));
    return {path, argument.mid(equals + 1), &parameter};
}

ValueReading Assignment::apply() const
{
    const KpbAParameter::SerialForm before = parameter->serialize();
    const KpbAParameter::SerialForm wanted{{valueEntry, text}};
    parameter->unserialize(wanted);
    return judgeReading(*parameter, wanted, before);
}

QString Assignment::getStoredText() const
{
    return parameter->serialize().value(valueEntry);
}
