#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>

#include <basic/MbeError.h>
#include <basic/MbeTranslate.h>
#include <observer/KuoAObservable.h>
#include <study/Ks.h>
#include <study/KsmANamedItemModel.h>
#include <study/KsmNamedStore.h>
#include <study/KsmReason.h>

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <vector>

/// A model of the items of one kind that are found by name. It owns the items; the store belongs to the project and
/// outlives it. `Kind` names the classes of the kind and gives
///
/// - `StoreName`: the name of the model in the store;
/// - `ContentReasons`: those that say that the content changed;
/// - `write(content)`: the content as a JSON object;
/// - `read(json)`: the content back; an `MbeError` for a damaged one.
///
/// Each change is stored first, then made here, then told to the observers in one record. What fails throws an
/// `MbeError` and leaves the store and the items as they were, and nothing is told. An item that is null, gone, built
/// in or of another model is an `MbeProgrammingError`. A name that is taken, or that is none, and a content that could
/// not be read back are an `MbeUserError`.
template <class Kind>
class Q_DECL_EXPORT KsmANamedModel : public KuoAObservable<typename Kind::Modif>, public KsmANamedItemModel
{
public:
    using Item = typename Kind::Item;
    using Identifier = typename Kind::Identifier;
    using Content = typename Kind::Content;
    using Modif = typename Kind::Modif;

    /// In order of making.
    QList<Item*> getUserItems() const { return _pointers(_userItems); }
    /// In order of arrival, without those whose name a user item has.
    QList<Item*> getBuiltInItems() const;
    Item* getItemFromId(int id) const override { return _byId.value(id); }
    /// An `MbeUserError` if there is no item of the id.
    Item* getValidItemFromId(int id) const { return _valid(getItemFromId(id), id); }
    Item* findItem(const QString& name) const override { return _byName.value(name); }

    /// Null if an observer has removed the item, or destroyed the model, by the time it is given back.
    Item* create(const QString& name, const Content& content = Content());
    /// Nothing happens where the name is the same.
    void rename(Item* item, const QString& name);
    void remove(Item* item);
    void setApplicationFlags(Item* item, const QStringList& flags);
    /// Adds an item that every project has. The order of arrival gives the ids, from -2 downwards. A user item may have
    /// the name already; it then stands before the built-in one, which nobody finds.
    Item* addBuiltIn(const QString& name, const Content& content);
    /// Reads everything from the store again. Items that are still there stay the same objects.
    void reload();

protected:
    KsmANamedModel(KssProject* project, KsbIDriverItem* driver)
        : KuoAObservable<Modif>(),
          KsmANamedItemModel(project),
          _store(driver, QLatin1String(Kind::StoreName))
    {}

    /// Reads the items from the store. Each derived model does so as it is constructed: items refer to that class, of
    /// which there is nothing yet while this base is constructed.
    Modif _load();
    /// Stores `content` as that of the item and tells `reasons`, or whatever `modif` says; nothing where it is the
    /// same.
    void _edit(Item* item, const Content& content, int reasons);
    void _edit(Item* item, const Content& content, const Modif& modif);
    void _requireOwn(const Item* item) const;

private:
    using Items = std::vector<std::unique_ptr<Item>>;

    static QList<Item*> _pointers(const Items& items);
    static Modif _told(const Identifier& ident, int reasons);
    std::unique_ptr<Item> _make(const KsmNamedStore::Record& record);
    static KsmNamedStore::Record _record(const Item* item);
    static void _takeOver(Item& item, const Item& loaded, Modif& modif);
    void _index();
    void _indexItem(Item* item);
    void _requireFree(const QString& name) const;
    static Content _storable(const Content& content);
    void _tell(const Modif& modif) { this->notify(modif); }

    KsmNamedStore _store;
    Items _userItems;
    Items _builtInItems;
    QHash<int, Item*> _byId;
    QHash<QString, Item*> _byName;
};

template <class Kind>
auto KsmANamedModel<Kind>::_pointers(const Items& items) -> QList<Item*>
{
    QList<Item*> pointers;
    pointers.reserve(int(items.size()));
    for (const auto& item : items)
        pointers.append(item.get());
    return pointers;
}

template <class Kind>
auto KsmANamedModel<Kind>::_told(const Identifier& ident, int reasons) -> Modif
{
    Modif modif;
    modif.add(ident, reasons);
    return modif;
}

template <class Kind>
auto KsmANamedModel<Kind>::getBuiltInItems() const -> QList<Item*>
{
    QList<Item*> items = _pointers(_builtInItems);
    items.erase(
        std::remove_if(items.begin(), items.end(), [this](Item* item) { return findItem(item->getName()) != item; }),
        items.end());
    return items;
}

template <class Kind>
std::unique_ptr<typename Kind::Item> KsmANamedModel<Kind>::_make(const KsmNamedStore::Record& record)
{
    std::unique_ptr<Item> item;
    mbeTranslate(
        [&] {
            auto* model = static_cast<typename Kind::Model*>(this);
            item.reset(new Item(model, record.id, record.name, Kind::read(record.content)));
        },
        [&] { return _store.describe(record.id, record.name); });
    item->_applicationFlags = record.applicationFlags;
    return item;
}

template <class Kind>
KsmNamedStore::Record KsmANamedModel<Kind>::_record(const Item* item)
{
    return {item->getId(), item->getName(), item->_applicationFlags, Kind::write(item->_content)};
}

// Everything is read before anything changes.
template <class Kind>
auto KsmANamedModel<Kind>::_load() -> Modif
{
    Items loaded;
    for (const KsmNamedStore::Record& record : _store.list())
        loaded.push_back(_make(record));
    std::unordered_map<int, std::unique_ptr<Item>> former;
    for (auto& item : _userItems)
        former.emplace(item->getId(), std::move(item));
    Modif modif;
    for (auto& item : loaded) {
        const auto found = former.find(item->getId());
        if (found == former.end()) {
            modif.add(item->getIdentifier(), KsmReason::Created);
            continue;
        }
        _takeOver(*found->second, *item, modif);
        item = std::move(found->second);
        former.erase(found);
    }
    for (const auto& gone : former)
        modif.add(gone.second->getIdentifier(), KsmReason::Removed);
    _userItems = std::move(loaded);
    _index();
    return modif;
}

template <class Kind>
void KsmANamedModel<Kind>::_takeOver(Item& item, const Item& loaded, Modif& modif)
{
    const bool renamed = item.getName() != loaded.getName();
    const bool sameFlags = item._applicationFlags == loaded._applicationFlags;
    const bool sameContent = item._content == loaded._content;
    const int reasons = (renamed ? KsmReason::Renamed : 0) | (sameFlags ? 0 : KsmReason::Conditions) |
                        (sameContent ? 0 : int(Kind::ContentReasons) | KsmReason::Reloaded);
    modif.add(item.getIdentifier(), reasons);
    item._setName(loaded.getName());
    item._applicationFlags = loaded._applicationFlags;
    item._content = loaded._content;
    modif.add(item.getIdentifier(), reasons);
}

template <class Kind>
void KsmANamedModel<Kind>::_index()
{
    _byId.clear();
    _byName.clear();
    for (const Items* items : {&_builtInItems, &_userItems}) {
        for (const auto& item : *items) {
            _indexItem(item.get());
        }
    }
}

template <class Kind>
void KsmANamedModel<Kind>::_indexItem(Item* item)
{
    _byId.insert(item->getId(), item);
    _byName.insert(item->getName(), item);
}

template <class Kind>
void KsmANamedModel<Kind>::_requireOwn(const Item* item) const
{
    if (std::none_of(_userItems.begin(), _userItems.end(), [&](const auto& own) { return own.get() == item; }))
        throw MbeProgrammingError(QStringLiteral("%1: the item is none of this model that can be changed.")
                                      .arg(QLatin1String(Kind::StoreName)));
}

template <class Kind>
void KsmANamedModel<Kind>::_requireFree(const QString& name) const
{
    const QString problem = Ks::describeInvalidName(name);
    if (!problem.isEmpty())
        throw MbeUserError(problem);
    if (findItem(name))
        throw MbeUserError(QStringLiteral("There is an item of the name '%1' already.").arg(name));
}

// What would be read back, so that nothing is stored that could not be.
template <class Kind>
auto KsmANamedModel<Kind>::_storable(const Content& content) -> Content
{
    try {
        return Kind::read(Kind::write(content));
    }
    catch (const MbeError& error) {
        throw MbeUserError(error.getMessage());
    }
}

template <class Kind>
auto KsmANamedModel<Kind>::create(const QString& name, const Content& content) -> Item*
{
    _requireFree(name);
    KsmNamedStore::Record record{0, name, QStringList(), Kind::write(_storable(content))};
    record.id = _store.insert(record);
    _userItems.push_back(_make(record));
    Item* item = _userItems.back().get();
    _indexItem(item);
    const Identifier ident = item->getIdentifier();
    _tell(_told(ident, KsmReason::Created));
    // Observers may have removed the item, or destroyed the project.
    return ident.getModel() ? getItemFromId(record.id) : nullptr;
}

template <class Kind>
void KsmANamedModel<Kind>::rename(Item* item, const QString& name)
{
    _requireOwn(item);
    if (item->getName() == name)
        return;
    _requireFree(name);
    KsmNamedStore::Record record = _record(item);
    record.name = name;
    _store.update(record);
    Modif modif = _told(item->getIdentifier(), KsmReason::Renamed);
    item->_setName(name);
    _index();
    modif.add(item->getIdentifier(), KsmReason::Renamed);
    _tell(modif);
}

template <class Kind>
void KsmANamedModel<Kind>::remove(Item* item)
{
    _requireOwn(item);
    _store.remove(item->getId());
    const Modif modif = _told(item->getIdentifier(), KsmReason::Removed);
    _userItems.erase(
        std::find_if(_userItems.begin(), _userItems.end(), [&](const auto& own) { return own.get() == item; }));
    _index();
    _tell(modif);
}

template <class Kind>
void KsmANamedModel<Kind>::setApplicationFlags(Item* item, const QStringList& flags)
{
    _requireOwn(item);
    if (item->_applicationFlags == flags)
        return;
    KsmNamedStore::Record record = _record(item);
    record.applicationFlags = flags;
    _store.update(record);
    item->_applicationFlags = flags;
    _tell(_told(item->getIdentifier(), KsmReason::Conditions));
}

template <class Kind>
auto KsmANamedModel<Kind>::addBuiltIn(const QString& name, const Content& content) -> Item*
{
    const KsoAItem* former = findItem(name);
    if (!former || former->getId() < -1)
        _requireFree(name);
    const int id = -2 - int(_builtInItems.size());
    _builtInItems.push_back(
        std::unique_ptr<Item>(new Item(static_cast<typename Kind::Model*>(this), id, name, _storable(content))));
    _index();
    Item* item = _builtInItems.back().get();
    const Identifier ident = item->getIdentifier();
    _tell(_told(ident, KsmReason::BuiltIn));
    return ident.getModel() ? item : nullptr;
}

template <class Kind>
void KsmANamedModel<Kind>::reload()
{
    _tell(_load());
}

template <class Kind>
void KsmANamedModel<Kind>::_edit(Item* item, const Content& content, int reasons)
{
    _requireOwn(item);
    _edit(item, content, _told(item->getIdentifier(), reasons));
}

template <class Kind>
void KsmANamedModel<Kind>::_edit(Item* item, const Content& content, const Modif& modif)
{
    _requireOwn(item);
    const Content stored = _storable(content);
    if (item->_content == stored)
        return;
    KsmNamedStore::Record record = _record(item);
    record.content = Kind::write(stored);
    _store.update(record);
    item->_content = stored;
    _tell(modif);
}
