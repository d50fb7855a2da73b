#include <param/KpbFailure.h>
#include <param/atomic/KpaData.h>
#include <param/composite/KpcChildren.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <param/list/KplDataList.h>

#include <QtCore/QObject>
#include <QtCore/QScopeGuard>

#include <study/KsoDataTypeFlags.h>

#include <deque>
#include <memory>
#include <vector>

namespace {

QString rootKey()
{
    return QStringLiteral("ROOT");
}

QString selectionKey()
{
    return QStringLiteral("SELECTION");
}

/// What the children know of the root.
class Root
{
public:
    explicit Root(const KpaData& root) : _type(root.getFilter().getDataType()), _ident(root.getValue()) {}

    template <class Holder>
    void tellType(Holder& holder) const
    {
        holder.setRootType(_type);
    }
    template <class Holder>
    void tellIdent(Holder& holder) const
    {
        holder.setRootIdent(_ident, false);
    }

private:
    const KsoEDataType _type;
    const KsoDataIdentifier _ident;
};

/// What a child keeps the root in, by its class.
KpaData& rootHolder(KpaData& variable)
{
    return variable;
}

KpaData& rootHolder(KpcDataset& dataset)
{
    return *dataset.getRootParameter();
}

KpaData& rootHolder(KpcSelection& selection)
{
    return static_cast<KpaData&>(*selection.getChild(QStringLiteral("VARIABLE")));
}

template <class Child>
Child& rootHolder(Child& child)
{
    return child;
}

template <class Child, class Function>
void visitAs(KpbAParameter* child, Function function)
{
    if (auto* dependent = dynamic_cast<Child*>(child))
        function(rootHolder(*dependent));
}

/// Calls `function` with what `child` keeps the root in, if it is of a kind that depends on the root.
template <class Function>
void visitRootHolder(KpbAParameter* child, Function function)
{
    switch (child->getType().toEnum()) {
    case KpbEType::EValue::DATASET:
        return visitAs<KpcDataset>(child, function);
    case KpbEType::EValue::DATA_IDENT:
        return visitAs<KpaData>(child, function);
    case KpbEType::EValue::SELECTION:
        return visitAs<KpcSelection>(child, function);
    case KpbEType::EValue::LIST:
        return visitAs<KplDataList>(child, function);
    case KpbEType::EValue::SAMPLE_FILTER:
        return visitAs<KpcSampleFilter>(child, function);
    case KpbEType::EValue::SAMPLE_CATEGORIES:
        return visitAs<KpcSampleCategories>(child, function);
    default:
        return;
    }
}

} // namespace

KpcDataset::KpcDataset(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::DATASET, key, transactable)
{
    const auto forFiles = [](KpaData& root) {
        root.setFilter(KsoDataFilter::file(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY));
    };
    KpcChild<KpaData> root;
    KpcChildren(*this, KpcChildren::Create)
        .add(root, rootKey(), QObject::tr("Data file"), _getTransactable())
        .with(forFiles);
}

KpcDataset::KpcDataset(const KpcDataset& other, const QString& newKey) : KpcAComposite(other, newKey) {}

KpcDataset* KpcDataset::duplicate(const QString& newKey) const
{
    return new KpcDataset(*this, newKey);
}

KpaData* KpcDataset::getRootParameter() const
{
    return static_cast<KpaData*>(getChild(rootKey()));
}

const KsoDataIdentifier& KpcDataset::getRootIdent() const
{
    return getRootParameter()->getValue();
}

void KpcDataset::setRootIdent(const KsoDataIdentifier& ident)
{
    getRootParameter()->setValue(ident);
}

void KpcDataset::setRootLabel(const QString& label)
{
    getRootParameter()->setLabel(label);
}

void KpcDataset::setRootFilter(const KsoDataFilter& filter)
{
    const KsoDataTypeFlags roots{KsoEDataType::FILE, KsoEDataType::SUPPORT};
    if (!roots.testFlag(filter.getDataType())) {
        Kp::failProgramming(QStringLiteral("void __cdecl KpcDataset::setRootFilter(const class KsoDataFilter &)"),
                            QStringLiteral("composite\\KpcDataset"),
                            QStringLiteral("Dataset root can only be a file or a support."));
    }
    getRootParameter()->setFilter(filter);
}

KsoDataFile* KpcDataset::getFile() const
{
    KsoADataItem* item = getRootParameter()->getDataItem();
    if (const auto* support = dynamic_cast<KsoDataSupport*>(item))
        return support->getFile();
    return dynamic_cast<KsoDataFile*>(item);
}

KsoDataSupport* KpcDataset::getSupport() const
{
    KsoADataItem* item = getRootParameter()->getDataItem();
    if (const auto* file = dynamic_cast<KsoDataFile*>(item))
        return file->getUniqueSupport();
    return dynamic_cast<KsoDataSupport*>(item);
}

QString KpcDataset::toString() const
{
    return getRootParameter()->toString();
}

void KpcDataset::setRelative(bool relative)
{
    getRootParameter()->setRelative(relative);
}

// Observers of the child, and of the dataset, may destroy both at each step.
template <class Child>
void KpcDataset::_add(Child* child)
{
    const KuoPointer<KpbAParameter> self(this);
    const KuoPointer<KpbAParameter> guarded(child);
    if (child) {
        const Root root(*getRootParameter());
        root.tellType(rootHolder(*child));
        if (guarded)
            root.tellIdent(rootHolder(*child));
        if (!self || !guarded)
            return;
    }
    appendChild(child);
    if (guarded)
        child->setRelative(true);
}

void KpcDataset::addVariable(KpaData* variable)
{
    _add(variable);
}

void KpcDataset::addVariableList(KplDataList* list)
{
    _add(list);
}

void KpcDataset::addSampleFilter(KpcSampleFilter* filter)
{
    _add(filter);
}

void KpcDataset::addSampleCategories(KpcSampleCategories* categories)
{
    _add(categories);
}

void KpcDataset::_addDataset(KpcDataset* dataset)
{
    _add(dataset);
}

// The selection is told of the root when it is in its place already.
KpcSelection* KpcDataset::createSelectionParameter()
{
    if (existsKey(selectionKey()))
        return dynamic_cast<KpcSelection*>(getChild(selectionKey()));
    auto created = std::make_unique<KpcSelection>(selectionKey(), _getTransactable());
    created->setLabel(QObject::tr("Selection"));
    const KuoPointer<KpbAParameter> self(this);
    const KuoPointer<KpcSelection> selection(created.get());
    appendChild(created.get());
    created.release();
    if (selection)
        selection->setRelative(true);
    if (self && selection)
        Root(*getRootParameter()).tellType(rootHolder(*selection));
    if (self && selection)
        Root(*getRootParameter()).tellIdent(rootHolder(*selection));
    return selection;
}

void KpcDataset::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    const KpaData* root = getRootParameter();
    const bool configChanged = modif.hasModif(root, Kp::NotifyConfig);
    const bool identChanged = modif.hasModif(root, Kp::NotifyValue | Kp::NotifyItem);
    _updateVariablesRoot(identChanged, configChanged);
    if (lock.isAlive())
        KpcAComposite::update(modif);
    lock.commit();
}

std::vector<KuoPointer<KpbAParameter>> KpcDataset::_childrenBesideRoot() const
{
    std::vector<KuoPointer<KpbAParameter>> children;
    children.reserve(getChildCount());
    const KpbAParameter* root = getRootParameter();
    for (int i = 0; i < getChildCount(); ++i) {
        KpbAParameter* child = getChild(i);
        if (child && child != root)
            children.emplace_back(child);
    }
    return children;
}

// What lies below the children is not held: its observers may destroy anything, and make children leave or arrive.
// Those that arrive know the root.
void KpcDataset::_updateVariablesRoot(bool identChanged, bool configChanged)
{
    if ((!identChanged && !configChanged) || _updatingRoot)
        return;
    KuoLock<KpnModif> lock(this);
    _updatingRoot = true;
    const auto restore = qScopeGuard([&] {
        if (lock.isAlive())
            _updatingRoot = false;
    });
    const Root root(*getRootParameter());
    std::deque<KuoLock<KpnModif>> holds;
    for (const KuoPointer<KpbAParameter>& child : _childrenBesideRoot()) {
        if (!child || child->getParent() != this)
            continue;
        holds.emplace_back(child.get());
        if (configChanged)
            visitRootHolder(child, [&](auto& holder) { root.tellType(holder); });
        if (identChanged && child)
            visitRootHolder(child, [&](auto& holder) { root.tellIdent(holder); });
    }
    for (KuoLock<KpnModif>& hold : holds)
        hold.commit();
    lock.commit();
    while (!holds.empty())
        holds.pop_front();
}
