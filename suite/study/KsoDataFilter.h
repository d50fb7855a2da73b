#pragma once

#include <QtCore/QStringList>

#include <basic/MbdEIo.h>
#include <basic/MbdVarRoleFlags.h>
#include <basic/MbdVarTypeFlags.h>
#include <basic/MbgDimensionFlags.h>
#include <basic/MbgGeometrySetFlags.h>
#include <study/KsoAItemFilter.h>
#include <study/KsoEDataType.h>

class KsoADataItem;
class KsoDataIdentifier;

/// What a parameter accepts of the data tree: items of one level that meet the conditions of the filter. A default one
/// is not active and accepts every item. A filter for output accepts names for new items, until it is told otherwise.
class KESTRIN_STUDY_EXPORT KsoDataFilter : public KsoAItemFilter
{
public:
    enum State
    {
        Refused = 0,
        Above = 1, ///< above the level that the filter accepts
        Below = 2, ///< below it
        Accepted = 3,
    };
    /// What the conditions look at. Tolerant: neither the dimension nor the role counts.
    enum RuleLevel
    {
        Strict = 0,
        Tolerant = 1,
    };

    KsoDataFilter() = default;
    static KsoDataFilter directory(const MbdEIo& io);
    static KsoDataFilter file(const MbdEIo& io, const MbgGeometrySetFlags& geometrySets,
                              const MbgDimensionFlags& dimensions, int ruleLevel = Strict);
    /// `names` are those of the supports that are accepted; all if it is empty.
    static KsoDataFilter support(const MbdEIo& io, const MbgGeometrySetFlags& geometrySets,
                                 const MbgDimensionFlags& dimensions, const QStringList& names = QStringList(),
                                 int ruleLevel = Strict);
    /// Accepts no macro variables until it is told otherwise. Any level but 0 is tolerant.
    static KsoDataFilter variable(const MbdEIo& io, const MbdVarRoleFlags& roles, const MbdVarTypeFlags& types,
                                  int ruleLevel);

    /// An identifier without an item is judged by its level alone. Null is refused.
    State check(const KsoDataIdentifier& ident) const;
    /// Null is refused.
    State check(const KsoADataItem* item) const;

    bool isActive() const { return _active; }
    const KsoEDataType& getDataType() const { return _dataType; }
    const MbdEIo& getIo() const { return _io; }
    RuleLevel getRuleLevel() const { return _ruleLevel; }
    bool isTolerant() const { return _ruleLevel == Tolerant; }
    const MbgGeometrySetFlags& getGeometrySets() const { return _geometrySets; }
    const MbgDimensionFlags& getDimensions() const { return _dimensions; }
    const QStringList& getSupportNames() const { return _supportNames; }
    const MbdVarRoleFlags& getRoles() const { return _roles; }
    const MbdVarTypeFlags& getVariableTypes() const { return _variableTypes; }

    bool isMacroVariableAccepted() const { return _macroVariableAccepted; }
    void setMacroVariableAccepted(bool accepted) { _macroVariableAccepted = accepted; }
    /// The applications that the filter is for: an item that is for some applications must be for one of these. Empty
    /// texts do not count; without any, nothing is asked.
    const QStringList& getApplicationFlags() const { return _applicationFlags; }
    void setApplicationFlags(const QStringList& flags) { _applicationFlags = flags; }

    friend bool operator==(const KsoDataFilter& a, const KsoDataFilter& b) { return a._isEqual(b); }
    friend bool operator!=(const KsoDataFilter& a, const KsoDataFilter& b) { return !a._isEqual(b); }

private:
    KsoDataFilter(const KsoEDataType& type, const MbdEIo& io, int ruleLevel);
    bool _isEqual(const KsoDataFilter& other) const;
    State _checkLevel(const KsoEDataType& type) const;
    bool _meetsConditions(const KsoADataItem* item) const;
    bool _isForApplication(const KsoADataItem* item) const;

    bool _active = false;
    KsoEDataType _dataType;
    MbdEIo _io;
    RuleLevel _ruleLevel = Strict;
    MbgGeometrySetFlags _geometrySets;
    MbgDimensionFlags _dimensions;
    QStringList _supportNames;
    MbdVarRoleFlags _roles;
    MbdVarTypeFlags _variableTypes;
    bool _macroVariableAccepted = false;
    QStringList _applicationFlags;
};
