#include <param/KpbFailure.h>
#include <param/KpbStatus.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaFlags.h>
#include <param/composite/KpcSelection.h>

#include <study/KsoDataMacroVariable.h>
#include <study/KssProject.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>
#include <util/Ku.h>

#include <QtCore/QObject>
#include <QtCore/QScopeGuard>

#include <utility>

namespace {

constexpr Kp::NotificationFlags valueFlags = Kp::NotifyValue | Kp::NotifyItem;

int toInt(short category)
{
    return category == MbbGlobal::I16_FFFF ? MbbGlobal::I32_FFFF : category;
}

short toShort(int value)
{
    return value >= -32767 && value <= 32766 ? short(value) : MbbGlobal::I16_FFFF;
}

QSet<int> valuesOf(const QList<short>& categories)
{
    QSet<int> values;
    for (const short category : categories)
        values.insert(toInt(category));
    return values;
}

KpaItemDef itemOf(const MbdCategoryDefinition& category)
{
    KpaItemDef item(toInt(category.getValue()), category.getLabel(), category.getLabel());
    item.pixmap = Ku::getPixmapFromColor(QColor::fromRgba(category.getColor().getRgba()), QSize(16, 16), 0);
    return item;
}

/// Samples without a category first.
QList<KpaItemDef> itemsOf(const MbdEnumCatalog& catalog)
{
    MbdCategoryDefinition undefined = catalog.getUndefinedCategory();
    undefined.setLabel(QObject::tr("Undefined"));
    QList<KpaItemDef> items{itemOf(undefined)};
    const auto& categories = catalog.getCategories();
    for (auto category = categories.begin(); category != categories.end(); ++category)
        items.append(itemOf(MbdCategoryDefinition(short(category.key()), category->label, category->color)));
    return items;
}

quint32 mix(quint32 seed, quint32 x)
{
    return seed ^ (x + 0x9e3779b9U + (seed << 6) + (seed >> 2));
}

} // namespace

KpcSelection::KpcSelection(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::SELECTION, key, transactable)
{
    setLabel(QObject::tr("Selection"));
    _declare({*this, KpcChildren::Create});
    _observeCatalogs();
    _fixParamEnabledState(KuoLock<KpnModif>(this));
}

KpcSelection::KpcSelection(const KpcSelection& other, const QString& newKey)
    : KpcAComposite(other, newKey),
      KuoIObserver<KsmModifEnumCatalog>(),
      _autoValue(other._autoValue)
{
    _declare({*this, KpcChildren::Rebind});
    _observeCatalogs();
}

KpcSelection::~KpcSelection()
{
    if (_observedCatalogs)
        _observedCatalogs->removeObserver(this);
}

KpcSelection* KpcSelection::duplicate(const QString& newKey) const
{
    return new KpcSelection(*this, newKey);
}

void KpcSelection::_declare(KpcChildren children)
{
    const auto asVariable = [](KpaData& variable) {
        variable.setFilter(
            KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, {MbdEVarType::BOOLEAN, MbdEVarType::ENUM}, 0));
    };
    const auto withEchoes = [](KpaFlags& flags) {
        flags.setEchoMessageNoItem(QObject::tr("No category"));
        flags.setEchoMessageItemCount(QObject::tr("%1 categories"));
        flags.setEchoMessageAllItems(QObject::tr("All categories"));
    };
    // clang-format off
    children.add(_variable,   "VARIABLE",   QObject::tr("Variable"  ), _getTransactable()).with(asVariable);
    children.add(_categories, "CATEGORIES", QObject::tr("Categories")).with(withEchoes);
    children.add(_invert,     "INVERT",     QObject::tr("Invert"    )).value(false);
    // clang-format on
}

void KpcSelection::_observeCatalogs()
{
    if (const KssProject* project = _getProject())
        _catalogModel = project->getModelEnumCatalog();
    _observedCatalogs = _catalogModel;
    if (_observedCatalogs)
        _observedCatalogs->addObserver(this);
}

// The subset

KsoDataSubset KpcSelection::_uncountedSubset() const
{
    KsoDataSubset subset(_invert->getValue());
    subset.setCounted(true);
    subset.setSelectionVar(_variable->getValue());
    QList<short> categories;
    for (const int value : _categories->getCheckedValues())
        categories.append(toShort(value));
    subset.setCategories(categories);
    return subset;
}

const KsoDataSubset& KpcSelection::_ensuredSubset() const
{
    if (_subsetCache)
        return *_subsetCache;
    KsoDataSubset subset = _uncountedSubset();
    const KsoDataSupport* support = _variable->getValue().getSupport();
    if (!support)
        support = _variable->getRootIdent().getSupport();
    mbeTranslate([&] {
        KstTransactionWrapperR transaction(_getTransactable());
        transaction.data()->prepareSubset(subset, support);
        transaction.finish();
    });
    _subsetCache = subset;
    return *_subsetCache;
}

// What observers do may destroy the selection at each step, here and below.
void KpcSelection::setSelection(const KsoDataSubset& subset)
{
    if (!subset.getIntervals().isEmpty())
        Kp::failProgramming(QStringLiteral("void __cdecl KpcSelection::setSelection(const class KsoDataSubset &)"),
                            QStringLiteral("composite\\KpcSelection"),
                            QStringLiteral("Intervals are not supported for now for this parameter"));
    const KuoPointer<KpbAParameter> self(this);
    const KsoDataSubset requested = subset;
    const KsoADataItem* item = requested.getSelectionVar();
    _variable->setValue(item ? item->getIdentifier() : KsoDataIdentifier());
    if (self && _categories->getFlagCount() > 0)
        _categories->setValue(valuesOf(requested.getCategories()));
    if (self)
        _invert->setValue(requested.isInverted());
}

KpbStatus KpcSelection::getStatus(const QString& name, bool emptyIsError) const
{
    KpbStatus status;
    if (isCategorical() && !_categories->hasCheckedFlags())
        status.addError(name + QObject::tr(" is empty (no categories selected)"));
    const KsoDataSubset& subset = _ensuredSubset();
    if (!subset.isDefined() || subset.getSelectedSampleCount() >= 1)
        return status;
    const QString message = name + QObject::tr(" data subset is empty! \nThere are no selected values in the current "
                                               "selection combination");
    if (emptyIsError)
        status.addError(message);
    else
        status.addWarning(message);
    return status;
}

const MbdVariableDetails* KpcSelection::_details() const
{
    const KsoADataItem* item = _variable->getDataItem();
    if (const auto* variable = dynamic_cast<const KsoAVariableItem*>(item))
        return &variable->getDetails();
    const auto* macro = dynamic_cast<const KsoDataMacroVariable*>(item);
    return macro ? &macro->getDetails() : nullptr;
}

bool KpcSelection::isCategorical() const
{
    const MbdVariableDetails* details = _details();
    return details && details->getType() == MbdEVarType::ENUM;
}

bool KpcSelection::isDefined() const
{
    return _variable->getDataItem() != nullptr;
}

unsigned int KpcSelection::getUniqueIdentifier() const
{
    quint32 categories = 0;
    for (const int value : _categories->getCheckedValues())
        categories = mix(categories, quint32(value));
    const quint32 variable = qHash(_variable->getValue().encode(), 0) + 0x9e3779b9U;
    return mix(mix(variable, categories), _invert->getValue() ? 1 : 0);
}

QString KpcSelection::toString() const
{
    return isDefined() ? getSelection().toString(_variable->getRootIdent()) : QString();
}

void KpcSelection::setMacroAuthorized(bool authorized)
{
    KsoDataFilter filter = _variable->getFilter();
    filter.setMacroVariableAccepted(authorized);
    _variable->setFilter(filter);
}

void KpcSelection::setRelative(bool relative)
{
    _variable->setRelative(relative);
}

// The stored form

KpbAParameter::SerialForm KpcSelection::serialize() const
{
    const bool inverted = _invert->getValue();
    const bool categorical = isCategorical();
    const bool full = inverted || categorical;
    _invert->setVolatile(!inverted);
    _categories->setVolatile(!categorical);
    _variable->setVolatile(!full);
    return full ? SerialForm() : _variable->serialize();
}

// What is read need not have the form that was written last, so no child may be passed over.
void KpcSelection::unserialize(const SerialForm& map)
{
    _variable->setVolatile(false);
    _categories->setVolatile(false);
    _invert->setVolatile(false);
    if (!map.isEmpty())
        _variable->unserialize(map);
}

// The categories

int KpcSelection::_getCatalogId() const
{
    return isCategorical() ? _details()->getEnumDetails().getCatalogId() : -1;
}

const KsoEnumCatalog* KpcSelection::_catalogItem(int catalogId) const
{
    return _catalogModel && catalogId != -1 ? _catalogModel->getItemFromId(catalogId) : nullptr;
}

// Keeps the labels that were checked, as far as the catalog has them; where nothing is left, all categories are. By
// value, because a category may have the label of the entry for samples without one, which is not checked.
void KpcSelection::_resetCategoriesParam()
{
    const QStringList labels = _categories->getCheckedLabels();
    const QSet<QString> checked(labels.begin(), labels.end());
    KuoLock<KpnModif> lock(_categories);
    _resetCategoriesParamConfig(_getCatalogId());
    QSet<int> offered;
    QSet<int> kept;
    for (const auto& [value, item] : _categories->getFlags()) {
        if (value == MbbGlobal::I32_FFFF)
            continue;
        offered.insert(value);
        if (checked.contains(item.label))
            kept.insert(value);
    }
    _categories->setValue(kept.isEmpty() ? offered : kept);
    lock.commit();
}

void KpcSelection::_resetCategoriesParamConfig(int catalogId)
{
    QList<KpaItemDef> items;
    QList<int> separators;
    if (const KsoEnumCatalog* catalog = _catalogItem(catalogId)) {
        items = itemsOf(catalog->getCatalog());
        separators.append(1);
    }
    KpaFlags* categories = _categories;
    KuoLock<KpnModif> lock(categories);
    categories->reset(items, false);
    categories->setSeparators(separators);
    lock.commit();
}

void KpcSelection::destroyed(const KuoAObservable<KsmModifEnumCatalog>*)
{
    _observedCatalogs = nullptr;
}

void KpcSelection::update(const KsmModifEnumCatalog& modif)
{
    const int catalogId = _getCatalogId();
    const KsoEnumCatalog* catalog = _catalogItem(catalogId);
    if (catalog && modif.hasModifsForCatalog(catalog->getIdentifier()))
        _resetCategoriesParamConfig(catalogId);
}

// Reactions

void KpcSelection::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    if (modif.hasModif(_variable, valueFlags)) {
        _fixParamEnabledState(lock);
        if (lock.isAlive())
            _resetCategoriesParam();
    }
    if (!lock.isAlive())
        return;
    if (modif.hasModif(_variable, valueFlags) || modif.hasModif(_categories, valueFlags) ||
        modif.hasModif(_invert, valueFlags))
        _subsetCache.reset();
    _invalidateAutomatic();
    KpcAComposite::update(modif);
    lock.commit();
}

void KpcSelection::_fixParamEnabledState(const KuoLock<KpnModif>& lock)
{
    _categories->setEnabled(isCategorical());
    if (lock.isAlive())
        _invert->setEnabled(isDefined());
    if (lock.isAlive() && !isDefined())
        _invert->setValue(false);
}

// The automatic mode

void KpcSelection::setAutoValue(const KsoDataSubset& subset)
{
    KuoLock<KpnModif> lock(this);
    if (subset != _autoValue) {
        _autoValue = subset;
        _notify(Kp::NotifyConfig);
    }
    _setAutomatic();
    lock.commit();
}

void KpcSelection::_setAutomatic()
{
    KuoLock<KpnModif> lock(this);
    if (!isAutomaticValueInitialized()) {
        _setAutomaticValueInitialized(true);
        _notify(Kp::NotifyConfig);
    }
    if (isAutomatic())
        _setValueAuto();
    lock.commit();
}

void KpcSelection::_setValueAuto()
{
    KuoLock<KpnModif> lock(this);
    const auto restore = qScopeGuard([&lock, this, former = std::exchange(_settingAuto, true)] {
        if (lock.isAlive())
            _settingAuto = former;
    });
    const KsoDataSubset taken = _autoValue;
    _variable->setValue(taken.getSelectionIdent());
    if (lock.isAlive())
        _categories->setValue(valuesOf(taken.getCategories()));
    if (lock.isAlive())
        _invert->setValue(taken.isInverted());
    lock.commit();
}

// The first difference that was not made by the automatic mode ends it. The count makes no difference, so no values are
// read, and what cannot be read keeps no change from the observers.
void KpcSelection::_invalidateAutomatic()
{
    if (_settingAuto || !isAutomaticValueInitialized() || !isAutomatic() || _uncountedSubset() == _autoValue)
        return;
    _setAutoFlag(false);
    _notify(Kp::NotifyConfig);
}
