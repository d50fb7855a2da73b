#include <basic/MbeError.h>
#include <study/KssDoubleListRegistry.h>

KssDoubleListRegistry* KssDoubleListRegistry::getInstance()
{
    static KssDoubleListRegistry registry;
    return &registry;
}

KssDoubleListInfo KssDoubleListRegistry::getInfo(const KssEDoubleListType& type, const QString& name) const
{
    return _parts.value(type.getValue()).value(name);
}

QStringList KssDoubleListRegistry::getNames(const KssEDoubleListType& type) const
{
    return _parts.value(type.getValue()).keys();
}

void KssDoubleListRegistry::setList(const KssEDoubleListType& type, const QString& name, const MbuEUnitClass& unitClass,
                                    const QList<double>& list)
{
    if (name.isEmpty())
        throw MbeProgrammingError(QStringLiteral("A list of numbers needs a name."));
    _parts[type.getValue()].insert(name, KssDoubleListInfo(unitClass, list));
}

void KssDoubleListRegistry::removeList(const KssEDoubleListType& type, const QString& name)
{
    _parts[type.getValue()].remove(name);
}
