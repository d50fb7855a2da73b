#include <study/KsoAVariableItem.h>
#include <study/KsoDataFilter.h>
#include <study/KsoDataMacroVariable.h>

#include <algorithm>

KsoDataFilter::KsoDataFilter(const KsoEDataType& type, const MbdEIo& io, int ruleLevel)
    : _active(true),
      _dataType(type),
      _io(io),
      _ruleLevel(ruleLevel == Strict ? Strict : Tolerant)
{
    setNewAccepted(io == MbdEIo::OUTPUT);
}

KsoDataFilter KsoDataFilter::directory(const MbdEIo& io)
{
    return {KsoEDataType::DIRECTORY, io, Strict};
}

KsoDataFilter KsoDataFilter::file(const MbdEIo& io, const MbgGeometrySetFlags& geometrySets,
                                  const MbgDimensionFlags& dimensions, int ruleLevel)
{
    KsoDataFilter filter(KsoEDataType::FILE, io, ruleLevel);
    filter._geometrySets = geometrySets;
    filter._dimensions = dimensions;
    return filter;
}

KsoDataFilter KsoDataFilter::support(const MbdEIo& io, const MbgGeometrySetFlags& geometrySets,
                                     const MbgDimensionFlags& dimensions, const QStringList& names, int ruleLevel)
{
    KsoDataFilter filter = file(io, geometrySets, dimensions, ruleLevel);
    filter._dataType = KsoEDataType::SUPPORT;
    filter._supportNames = names;
    return filter;
}

KsoDataFilter KsoDataFilter::variable(const MbdEIo& io, const MbdVarRoleFlags& roles, const MbdVarTypeFlags& types,
                                      int ruleLevel)
{
    KsoDataFilter filter(KsoEDataType::VARIABLE, io, ruleLevel);
    filter._roles = roles;
    filter._variableTypes = types;
    return filter;
}

KsoDataFilter::State KsoDataFilter::check(const KsoDataIdentifier& ident) const
{
    if (ident.isNull())
        return Refused;
    if (const KsoADataItem* item = ident.getDataItem())
        return check(item);
    return _checkLevel(ident.getType());
}

KsoDataFilter::State KsoDataFilter::check(const KsoADataItem* item) const
{
    if (!item)
        return Refused;
    const State level = _checkLevel(item->getType());
    if (level != Accepted || !_active)
        return level;
    return _meetsConditions(item) && _isForApplication(item) ? Accepted : Refused;
}

KsoDataFilter::State KsoDataFilter::_checkLevel(const KsoEDataType& type) const
{
    if (!_active || type == _dataType)
        return Accepted;
    if (_dataType == KsoEDataType::VARIABLE && type == KsoEDataType::MACRO_VARIABLE)
        return _macroVariableAccepted ? Accepted : Refused;
    return type < _dataType ? Above : Below;
}

bool KsoDataFilter::_meetsConditions(const KsoADataItem* item) const
{
    const auto fits = [this](const KsoDataFile* file) {
        return _geometrySets.testFlag(file->getGeometrySet()) &&
               (isTolerant() || _dimensions.testFlag(file->getDimension()));
    };
    if (const auto* file = dynamic_cast<const KsoDataFile*>(item))
        return fits(file);
    if (const auto* support = dynamic_cast<const KsoDataSupport*>(item))
        return fits(support->getFile()) && (_supportNames.isEmpty() || _supportNames.contains(support->getName()));
    if (const auto* variable = dynamic_cast<const KsoAVariableItem*>(item))
        return _variableTypes.testFlag(variable->getStorageType()) &&
               (isTolerant() || _roles.testFlag(variable->getRole()));
    if (const auto* variable = dynamic_cast<const KsoDataMacroVariable*>(item))
        return _variableTypes.testFlag(variable->getDetails().getType());
    return true;
}

bool KsoDataFilter::_isForApplication(const KsoADataItem* item) const
{
    const QStringList& wanted = item->getApplicationFlags();
    const bool asks = std::any_of(_applicationFlags.begin(), _applicationFlags.end(),
                                  [](const QString& flag) { return !flag.isEmpty(); });
    return !asks || wanted.isEmpty() || std::any_of(wanted.begin(), wanted.end(), [this](const QString& flag) {
        return _applicationFlags.contains(flag);
    });
}

bool KsoDataFilter::_isEqual(const KsoDataFilter& other) const
{
    return KsoAItemFilter::_isEqual(other) && _active == other._active && _dataType == other._dataType &&
           _io == other._io && _ruleLevel == other._ruleLevel && _geometrySets == other._geometrySets &&
           _dimensions == other._dimensions && _supportNames == other._supportNames && _roles == other._roles &&
           _variableTypes == other._variableTypes && _macroVariableAccepted == other._macroVariableAccepted &&
           _applicationFlags == other._applicationFlags;
}
