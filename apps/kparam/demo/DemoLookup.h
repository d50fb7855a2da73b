#pragma once

#include <cli/Failure.h>
#include <param/KpbAParameter.h>

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

/// The single value of a parameter as it is stored.
inline QString storedText(const KpbAParameter& root, const QString& path)
{
    return lookUp(root, path).serialize().value(QStringLiteral("value"));
}
