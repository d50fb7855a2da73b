#pragma once

#include <QtCore/QMap>

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <param/KuoPointer.h>
#include <study/KsmModelData.h>
#include <study/KsoDataFilter.h>

class KssProject;

/// Which items of the data tree a parameter admits: those below a root that meet a filter, and whose ancestors meet the
/// filters of their levels. The root is an item of a given level, in the model of the project; null is no root, and
/// then nothing is admitted but null. The model is not owned and may die. Setters give whether something changed.
class KESTRIN_PARAM_EXPORT KpaDataConfig
{
public:
    using ParentFilters = QMap<KsoEDataType, KsoDataFilter>;

    /// All fields.
    friend bool operator==(const KpaDataConfig& a, const KpaDataConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::DATA_IDENT; }
    KsoDataIdentifier getInitialValue() const { return {}; }

    /// Null without a project, and once the model has died.
    KsmModelData* getDataModel() const { return _dataModel; }
    const KsoDataFilter& getFilter() const { return _filter; }
    /// A filter that accepts everything where none is set for the level.
    KsoDataFilter getParentFilter(const KsoEDataType& type) const { return _parentFilters.value(type); }
    const ParentFilters& getParentFilters() const { return _parentFilters; }
    const KsoEDataType& getRootType() const { return _rootType; }
    const KsoDataIdentifier& getRootIdent() const { return _rootIdent; }
    bool isRelative() const { return _relative; }

    /// Takes over the data model of `project`, which may be null, and brings the root into it.
    bool updateProject(KssProject* project);
    bool setFilter(const KsoDataFilter& filter);
    /// Asks the ancestors of the filter's level to meet it; replaces what was asked of that level.
    bool addParentFilter(const KsoDataFilter& filter);
    /// A root that is deeper gives way to its ancestor of that level, any other to none. Without a root of the project,
    /// the level of directories has the root directory.
    bool setRootType(const KsoEDataType& type);
    /// Repairs `ident` as `setRootType` does. With `setRootType`, the level of `ident` becomes that of the root. Gives
    /// whether the root itself changed.
    bool setRootIdent(const KsoDataIdentifier& ident, bool setRootType);
    /// Whether texts and stored forms leave out what the root gives.
    bool setRelative(bool relative);

    KsoDataIdentifier fix(const KsoDataIdentifier& value, const KsoDataIdentifier& previous) const;
    QString toString(const KsoDataIdentifier& ident) const;
    /// The part that the root gives is the place of the root: what lies deeper below a root directory is not told
    /// apart.
    MbbOrderedMap<QString, QString> serializeValue(const KsoDataIdentifier& ident) const;
    /// A relative form below a root that is neither directory, file nor support is an `MbeProgrammingError`.
    KsoDataIdentifier unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                       const KsoDataIdentifier& previous) const;
    QString debug() const;

private:
    KsoDataIdentifier _fixRoot(const KsoDataIdentifier& ident) const;
    bool _storeRoot(const KsoDataIdentifier& ident);
    bool _checkParent(const KsoADataItem* item) const;
    bool _isInRoot(const KsoDataIdentifier& ident) const;
    bool _isAccepted(const KsoDataIdentifier& ident) const;
    const KsoDataSupport* _acceptedSupportOf(const KsoDataIdentifier& ident) const;
    MbbOrderedMap<QString, QString> _completed(MbbOrderedMap<QString, QString> map) const;

    KuoPointer<KsmModelData> _dataModel;
    KsoDataFilter _filter;
    ParentFilters _parentFilters;
    KsoEDataType _rootType;
    KsoDataIdentifier _rootIdent;
    bool _relative = false;
};
