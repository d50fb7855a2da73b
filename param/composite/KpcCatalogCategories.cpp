#include "KpcRenamedRows.h"

#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCatalogCategories.h>

#include <basic/MbbHtml.h>
#include <basic/MbdEnumCatalog.h>
#include <study/KsoEnumCatalog.h>
#include <util/Ku.h>

#include <QtCore/QObject>
#include <QtCore/QScopeGuard>
#include <QtCore/QSet>

#include <utility>

template class KpcList<KpcCatalogCategory>;

namespace {

using Operation = KpcCatalogCategoryOperation;

constexpr Kp::NotificationFlags anyFlag = Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyChildren | Kp::NotifyItem;

} // namespace

/// The list of the rows, of which several can go at once.
class KpcCatalogCategories::Rows final : public KpcList<KpcCatalogCategory>
{
public:
    Rows(const QString& key, const KstITransactable& transactable) : KpcList(key, transactable) {}
    Rows(const Rows& other, const QString& newKey) : KpcList(other, newKey) {}
    Rows* duplicate(const QString& newKey) const override { return new Rows(*this, newKey); }

    /// `ranks` are in ascending order; the last row goes first.
    void removeItemsAt(const std::vector<int>& ranks)
    {
        if (ranks.empty())
            return;
        KuoLock<KpnModif> lock(this);
        _deleteItems(ranks);
        if (lock.isAlive())
            _closeRanking(lock);
    }
};

KpcCatalogCategories::KpcCatalogCategories(const QString& key, const KstITransactable& transactable)
    : KpcGroup(KpbEType::CATALOG_CATEGORIES, key, transactable)
{
    _declare({*this, KpcChildren::Create});
}

KpcCatalogCategories::KpcCatalogCategories(const KpcCatalogCategories& other, const QString& newKey)
    : KpcGroup(other, newKey)
{
    _declare({*this, KpcChildren::Rebind});
}

KpcCatalogCategories::~KpcCatalogCategories() = default;

KpcCatalogCategories* KpcCatalogCategories::duplicate(const QString& newKey) const
{
    return new KpcCatalogCategories(*this, newKey);
}

void KpcCatalogCategories::_declare(KpcChildren children)
{
    children.add(_undefColor, "UNDEF_COLOR", QObject::tr("Color for undefined values")).with([](KpaColor& color) {
        color.setMbbColor(MbbColor(0xFFFFFF));
    });
    children.add(_categories, "CATEGORIES", QObject::tr("Categories"), _getTransactable()).with([](auto& list) {
        list.setItemLabel(QObject::tr("Category"));
    });
}

KpcCatalogCategory* KpcCatalogCategories::addNewCategory(const QString& name)
{
    KuoLock<KpnModif> lock(_categories.get());
    _isAppending = true;
    const auto end = qScopeGuard([&lock, this] {
        if (lock.isAlive())
            _isAppending = false;
    });
    const KuoPointer<KpbAParameter> category(_categories->addItem());
    auto* added = static_cast<KpcCatalogCategory*>(category.get());
    if (category)
        added->_operation->setEnum(Operation::ADD);
    if (category)
        added->_operationValue->setValue(name);
    if (category)
        added->_color->setValue(Ku::getRandomColor());
    lock.commit();
    return category ? added : nullptr;
}

// The batch on the list lets the table be looked through once, and not for each value.
void KpcCatalogCategories::resetCategoriesFromCatalog(const KsoEnumCatalog* catalog)
{
    KuoLock<KpnModif> lock(this);
    {
        KuoLock<KpnModif> rows(_categories.get());
        if (catalog)
            _describe(*catalog);
        else
            _describeFromNothing();
        rows.commit();
    }
    lock.commit();
}

void KpcCatalogCategories::_describe(const KsoEnumCatalog& item)
{
    const KuoPointer<KpbAParameter> self(this);
    const MbdEnumCatalog catalog = item.getCatalog();
    _undefColor->setMbbColor(catalog.getUndefColor());
    if (self)
        _categories->setItemCount(catalog.getCategories().size());
    int rank = 0;
    for (const MbdEnumCatalog::Category& category : catalog.getCategories()) {
        const KuoPointer<KpbAParameter> row(self ? _categories->getItemAt(rank++) : nullptr);
        auto* described = static_cast<KpcCatalogCategory*>(row.get());
        if (row)
            described->_operation->setEnum(Operation::EDIT);
        // First, because a row falls back on it that gets an empty name.
        if (row)
            described->_name->setValue(category.label);
        if (row)
            described->_operationValue->setValue(category.label);
        if (row)
            described->_color->setMbbColor(category.color);
    }
}

void KpcCatalogCategories::_describeFromNothing()
{
    const KuoPointer<KpbAParameter> self(this);
    for (int rank = 0; self && rank < _categories->getItemCount(); ++rank) {
        const KuoPointer<KpbAParameter> row(_categories->getItemAt(rank));
        auto* category = static_cast<KpcCatalogCategory*>(row.get());
        if (category->_is(Operation::REMOVE))
            continue;
        category->_operation->setEnum(Operation::ADD);
        if (row)
            category->_name->setValue(QString());
    }
    if (self)
        _categories->removeItemsAt(_rowsToRemove());
}

std::vector<int> KpcCatalogCategories::_rowsToRemove() const
{
    std::vector<int> ranks;
    for (int rank = 0; rank < _categories->getItemCount(); ++rank) {
        if (_categories->getItemAt(rank)->_is(Operation::REMOVE))
            ranks.push_back(rank);
    }
    return ranks;
}

KpbStatus KpcCatalogCategories::getStatus(bool isStatement) const
{
    QSet<QString> removed;
    for (const int rank : _rowsToRemove())
        removed.insert(_categories->getItemAt(rank)->_name->getValue());
    KpbStatus status;
    QSet<QString> seen;
    for (int rank = 0; rank < _categories->getItemCount(); ++rank) {
        const KpcCatalogCategory* category = _categories->getItemAt(rank);
        if (category->_is(Operation::REMOVE))
            continue;
        const QString name = category->_operationValue->getValue();
        if (name.isEmpty()) {
            status.addError(isStatement ? QObject::tr("A category does not have a name.")
                                        : QObject::tr("Give a name for all categories."));
        }
        else if (removed.contains(name)) {
            status.addError(
                QObject::tr("Cannot create %1 while removing it at the same time.").arg(MbbHtml::displayName(name)));
        }
        else if (seen.contains(name)) {
            status.addError(QObject::tr("Category name %1 must be unique.").arg(MbbHtml::displayName(name)));
        }
        else {
            seen.insert(name);
        }
    }
    return status;
}

// Observers of the rows may destroy this table.
void KpcCatalogCategories::update(const KpnModif& modif)
{
    if (!modif.hasModif(_categories, anyFlag)) {
        KpcGroup::update(modif);
        return;
    }
    KuoLock<KpnModif> lock(this);
    {
        KuoLock<KpnModif> rows(_categories.get());
        _followRenames(modif);
        rows.commit();
    }
    if (lock.isAlive())
        KpcGroup::update(modif);
    lock.commit();
}

// Loading changes row after row: only the changed one is looked at, and those that follow it.
void KpcCatalogCategories::_followRenames(const KpnModif& modif)
{
    const KuoPointer<KpbAParameter> self(this);
    const int changed = _changedRow(modif, std::exchange(_isAppending, false));
    if (changed >= 0 && _renamed) {
        for (int rank = changed; rank >= 0; rank = self ? _renamed->findFollower(changed, rank) : -1)
            _followRename(rank);
        return;
    }
    _renamed = std::make_unique<KpcRenamedRows>();
    for (int rank = 0; self && rank < _categories->getItemCount(); ++rank)
        _followRename(rank);
}

// The only row that a record tells of; -1 if there are several, or if the list itself has changed and not only got it.
int KpcCatalogCategories::_changedRow(const KpnModif& modif, bool isAppending)
{
    const KpbAParameter* row = nullptr;
    bool single = true;
    modif.forEach([&](const KpnPath& path, Kp::NotificationFlags) {
        if (isAppending && path.count() == 1)
            return;
        const KpbAParameter* of = path.count() < 2 ? nullptr : path.at(path.count() - 2);
        single = single && of && (!row || of == row) && path.getLast() == _categories.get();
        row = of;
    });
    if (!single || !row)
        return -1;
    for (const int rank : {_lastChanged, _lastChanged + 1}) {
        if (_categories->getItemAt(rank) == row)
            return _lastChanged = rank;
    }
    return _lastChanged = _categories->getItemRank(static_cast<const KpcCatalogCategory*>(row));
}

void KpcCatalogCategories::_followRename(int rank)
{
    const KpcCatalogCategory* category = _categories->getItemAt(rank);
    if (!category)
        return;
    const QString name = category->_name->getValue();
    const QString target = category->_operationValue->getValue();
    const bool renames = !category->_is(Operation::ADD) && name != target;
    const QString finalName = _renamed->look(rank, renames ? name : QString(), target);
    if (finalName != target)
        category->_operationValue->setValue(finalName);
}
