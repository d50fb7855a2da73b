#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaData.h>

#include <basic/MbeError.h>
#include <study/Ks.h>
#include <study/KssProject.h>
#include <study/KssUrlHelper.h>

template class KpaAAtomic<KsoDataIdentifier, KpaDataConfig>;

using KpaConfigTools::store;

namespace {

QString urlKey()
{
    return QStringLiteral("url");
}

/// Whether the file of `ident` has a single support, which then need not be named.
bool hasUniqueSupport(const KsoDataIdentifier& ident)
{
    const KsoDataFile* file = ident.getFile();
    return file && file->hasUniqueChild();
}

template <class Flags>
QString keysOf(const Flags& flags)
{
    QStringList keys;
    for (const auto& item : flags.getItems())
        keys.append(item.getKey());
    return keys.join(QLatin1String(", "));
}

/// The conditions that a filter of this level has beyond those of all.
void describeConditions(QTextStream& stream, const KsoDataFilter& filter)
{
    const KsoEDataType& type = filter.getDataType();
    if (type == KsoEDataType::FILE || type == KsoEDataType::SUPPORT) {
        stream << " filter geometry  = " << keysOf(filter.getGeometrySets()) << '\n'
               << " filter dimension = " << keysOf(filter.getDimensions()) << '\n';
    }
    if (type == KsoEDataType::SUPPORT)
        stream << " filter support   = " << filter.getSupportNames().join(QLatin1String(", ")) << '\n';
    if (type == KsoEDataType::VARIABLE)
        stream << " filter role      = " << keysOf(filter.getRoles()) << '\n';
}

} // namespace

bool KpaDataConfig::updateProject(KssProject* project)
{
    KsmModelData* model = project ? project->getModelData() : nullptr;
    if (model == _dataModel)
        return false;
    _dataModel = model;
    _rootIdent = _fixRoot(_rootIdent);
    return true;
}

bool KpaDataConfig::setFilter(const KsoDataFilter& filter)
{
    return store(_filter, filter);
}

bool KpaDataConfig::addParentFilter(const KsoDataFilter& filter)
{
    const auto found = _parentFilters.constFind(filter.getDataType());
    if (found != _parentFilters.constEnd() && *found == filter)
        return false;
    _parentFilters.insert(filter.getDataType(), filter);
    return true;
}

bool KpaDataConfig::setRootType(const KsoEDataType& type)
{
    if (!store(_rootType, type))
        return false;
    _storeRoot(_rootIdent);
    return true;
}

bool KpaDataConfig::setRootIdent(const KsoDataIdentifier& ident, bool setRootType)
{
    if (setRootType && !ident.isNull())
        _rootType = ident.getType();
    return _storeRoot(ident);
}

bool KpaDataConfig::setRelative(bool relative)
{
    return store(_relative, relative);
}

bool KpaDataConfig::_storeRoot(const KsoDataIdentifier& ident)
{
    return store(_rootIdent, _fixRoot(ident));
}

KsoDataIdentifier KpaDataConfig::_fixRoot(const KsoDataIdentifier& ident) const
{
    if (!_dataModel)
        return {};
    if (ident.getModel() != _dataModel)
        return _rootType == KsoEDataType::DIRECTORY ? _dataModel->getRootDirectory() : KsoDataIdentifier();
    KsoDataIdentifier root = ident;
    while (!root.isRoot() && root.getType() > _rootType)
        root = root.getParent();
    return root.getType() == _rootType ? root : KsoDataIdentifier();
}

KsoDataIdentifier KpaDataConfig::fix(const KsoDataIdentifier& value, const KsoDataIdentifier& previous) const
{
    if (value.isNull())
        return value;
    if (_rootIdent.isNull() || !_dataModel || value.getModel() != _dataModel)
        return previous;
    KsoDataIdentifier result = value;
    while (!result.isRoot() && _filter.check(result) == KsoDataFilter::Below)
        result = result.getParent();
    const KsoADataItem* parent = result.getParent().getDataItem();
    if (parent && !_checkParent(parent))
        return previous;
    _rootIdent.clean();
    if (!_isInRoot(result))
        return previous;
    if (_isAccepted(result))
        return result;
    const KsoDataSupport* support = _acceptedSupportOf(result);
    return support ? support->getIdentifier() : previous;
}

bool KpaDataConfig::_isInRoot(const KsoDataIdentifier& ident) const
{
    return _rootIdent.isAncestorOf(ident) || _rootIdent == ident;
}

bool KpaDataConfig::_isAccepted(const KsoDataIdentifier& ident) const
{
    return _filter.check(ident) == KsoDataFilter::Accepted && (_filter.isNewAccepted() || ident.getDataItem());
}

/// A file with a single support stands for it where a support is asked for.
const KsoDataSupport* KpaDataConfig::_acceptedSupportOf(const KsoDataIdentifier& ident) const
{
    if (_filter.getDataType() != KsoEDataType::SUPPORT || ident.getType() != KsoEDataType::FILE)
        return nullptr;
    const KsoDataFile* file = _filter.check(ident) == KsoDataFilter::Above ? ident.getFile() : nullptr;
    const KsoDataSupport* support = file ? file->getUniqueSupport() : nullptr;
    return _filter.check(support) == KsoDataFilter::Accepted ? support : nullptr;
}

bool KpaDataConfig::_checkParent(const KsoADataItem* item) const
{
    for (; item; item = item->getParentItem()) {
        const auto filter = _parentFilters.constFind(item->getType());
        if (filter != _parentFilters.constEnd() && filter->check(item) != KsoDataFilter::Accepted)
            return false;
    }
    return true;
}

QString KpaDataConfig::toString(const KsoDataIdentifier& ident) const
{
    return ident.toString(_relative ? _rootIdent : KsoDataIdentifier());
}

MbbOrderedMap<QString, QString> KpaDataConfig::serializeValue(const KsoDataIdentifier& ident) const
{
    MbbOrderedMap<QString, QString> map = ident.toMap(true);
    if (!_relative) {
        if (hasUniqueSupport(ident))
            map.remove(Ks::KEY_SUPPORT);
        return map;
    }
    const KsoEDataType& type = _rootIdent.getType();
    if (type > KsoEDataType::SUPPORT)
        return map;
    map.remove(Ks::KEY_PATH);
    if (type >= KsoEDataType::FILE)
        map.remove(Ks::KEY_FILE);
    if (type == KsoEDataType::SUPPORT || (type == KsoEDataType::FILE && hasUniqueSupport(_rootIdent)))
        map.remove(Ks::KEY_SUPPORT);
    return map;
}

KsoDataIdentifier KpaDataConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                                  const KsoDataIdentifier& previous) const
{
    if (const QString* text = map.find(urlKey())) {
        const QUrl url = QUrl::fromEncoded(text->toUtf8());
        return url.isEmpty() ? previous : KssUrlHelper::urlToDataIdent(url, _dataModel);
    }
    const MbbOrderedMap<QString, QString> valid = Ks::removeInvalidKeys(map);
    if (valid.isEmpty())
        return {};
    return KsoDataIdentifier::fromMap(_relative ? _completed(valid) : valid, _dataModel);
}

MbbOrderedMap<QString, QString> KpaDataConfig::_completed(MbbOrderedMap<QString, QString> map) const
{
    const KsoEDataType& type = _rootIdent.getType();
    if (type > KsoEDataType::SUPPORT) {
        throw MbeProgrammingError(
            QStringLiteral("Unexpected root data type (%d) when unserializing relative KpaData."));
    }
    if (type == KsoEDataType::SUPPORT)
        map.insert(Ks::KEY_SUPPORT, _rootIdent.getSupportName());
    if (type >= KsoEDataType::FILE)
        map.insert(Ks::KEY_FILE, _rootIdent.getFileName());
    map.insert(Ks::KEY_PATH, _rootIdent.getPath().join(QLatin1Char('/')));
    return map;
}

QString KpaDataConfig::debug() const
{
    QString text;
    QTextStream stream(&text);
    stream << "----- KpaDataConfig ---------\n"
           << " data model       = " << KpaConfigTools::yesNo(_dataModel) << '\n'
           << " root type        = " << _rootType.getKey() << '\n'
           << " root             = " << _rootIdent.getPath().join(QLatin1String(" / ")) << '\n'
           << " filter is active = " << KpaConfigTools::yesNo(_filter.isActive()) << '\n'
           << " filter type      = " << _filter.getDataType().getKey() << '\n'
           << " filter rule      = " << (_filter.isTolerant() ? "tolerant" : "strict") << '\n'
           << " filter IO        = " << _filter.getIo().getKey() << '\n';
    describeConditions(stream, _filter);
    return text;
}

KpaData::KpaData(const QString& key, const KstITransactable& transactable)
    : KpaAAppliAtomic(key, KpaDataConfig(), *this, transactable)
{}

KpaData::KpaData(const KpaData& other, const QString& newKey) : KpaAAppliAtomic(other, newKey, *this), KuoIObserver() {}

KpaData* KpaData::duplicate(const QString& newKey) const
{
    return new KpaData(*this, newKey);
}

void KpaData::setFilter(const KsoDataFilter& filter)
{
    _configChangedIf(_config.setFilter(_forApplication(filter)));
}

void KpaData::addParentFilter(const KsoDataFilter& filter)
{
    _configChangedIf(_config.addParentFilter(_forApplication(filter)));
}

void KpaData::setRootIdent(const KsoDataIdentifier& ident, bool setRootType)
{
    if (!_config.setRootIdent(ident, setRootType))
        return;
    const KsoDataIdentifier former = _value;
    _value = _value.changeRoot(_config.getRootIdent());
    KuoLock<KpnModif> lock(this);
    _configChanged();
    if (_value != former)
        _notify(Kp::NotifyValue);
    lock.commit();
}

void KpaData::update(const KsmModifData& modif)
{
    constexpr int reasons = KsmModifData::Details | KsmModifData::Created | KsmModifData::Removed |
                            KsmModifData::Values | KsmModifData::Renamed;
    KuoLock<KpnModif> lock(this);
    if (modif.hasModif(_value, reasons)) {
        _value.clean();
        _notify(Kp::NotifyItem);
    }
    lock.commit();
}

// The identifiers have forgotten the model by themselves, and the value is kept.
void KpaData::destroyed(const KuoAObservable<KsmModifData>*) {}
