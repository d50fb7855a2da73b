#include <tree/MadeParameter.h>

#include <cli/Failure.h>
#include <cli/SafeText.h>

const ClassRegistry::Row& requireClass(const QString& name)
{
    if (const ClassRegistry::Row* row = ClassRegistry::find(name))
        return *row;
    const QStringList close = ClassRegistry::getCloseNames(name);
    const QString hint = close.isEmpty() ? QStringLiteral("'kparam classes' lists them all.")
                                         : QStringLiteral("Did you mean %1?").arg(close.join(QStringLiteral(" or ")));
    throw Failure(ExitCode::Usage, QStringLiteral("There is no class %1. %2").arg(SafeText::quoted(name), hint));
}

std::unique_ptr<KpbAParameter> makeParameter(const ClassRegistry::Row& row, const QString& key,
                                             const ProjectContext& context)
{
    return row.makeIn(key.isEmpty() ? row.name : key, context);
}
