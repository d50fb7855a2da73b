#pragma once

#include <cli/Failure.h>
#include <param/composite/KpcAbstractList.h>

/// The parameter below `root` that the keys in `path`, joined by "/", lead to. A `Failure` if there is none of the
/// class.
template <class T = KpbAParameter>
T& lookUp(const KpbAParameter& root, const QString& path)
{
    KpbPath keys;
    keys.append(path.split(QLatin1Char('/')));
    auto* parameter = dynamic_cast<T*>(root.getParameterByRelativePath(keys));
    if (!parameter)
        throw Failure(ExitCode::Internal, QStringLiteral("The form has no parameter %1 as expected.").arg(path));
    return *parameter;
}

/// What a parameter has as it is stored: its single value, or "v1=10 v2=20.5 v3=0".
inline QString storedText(const KpbAParameter& root, const QString& path)
{
    const KpbAParameter::SerialForm form = lookUp(root, path).serialize();
    if (form.size() == 1)
        return form.valueAt(0);
    QStringList entries;
    for (const auto& entry : form)
        entries.append(entry.key + QLatin1Char('=') + entry.value);
    return entries.join(QLatin1Char(' '));
}

/// The keys of the items of a list.
inline QString itemKeys(const KpbAParameter& root, const QString& path)
{
    return lookUp<KpcAbstractList>(root, path).getItemKeys().join(QStringLiteral(", "));
}
