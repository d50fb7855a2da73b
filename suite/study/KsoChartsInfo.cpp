#include <study/KsoChartsInfo.h>

#include <study/Ks.h>
#include <study/KsmModelCharts.h>

#include <QtCore/QSet>

#include <algorithm>

namespace {

bool isName(const QString& name)
{
    return Ks::describeInvalidName(name).isEmpty();
}

template <class Items>
auto findNamed(Items& items, const QString& name)
{
    const auto found = std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.name == name; });
    return found == items.end() ? nullptr : &*found;
}

template <class Items>
auto findId(const Items& items, const QUuid& id)
{
    const auto found = std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.id == id; });
    return found == items.end() ? nullptr : &*found;
}

template <class Items>
bool isFreeIn(const Items& items, const QString& name)
{
    return isName(name) && !findNamed(items, name);
}

template <class Item>
bool isNew(const Item& item, QSet<QUuid>& ids, QSet<QString>& names)
{
    const bool isValid = !item.id.isNull() && !ids.contains(item.id) && isName(item.name) && !names.contains(item.name);
    ids.insert(item.id);
    names.insert(item.name);
    return isValid;
}

template <class Items>
bool removeNamed(Items& items, const QString& name)
{
    const int count = items.size();
    items.erase(std::remove_if(items.begin(), items.end(), [&](const auto& item) { return item.name == name; }),
                items.end());
    return items.size() != count;
}

template <class Items>
bool renameIn(Items& items, const QString& former, const QString& name)
{
    auto* item = findNamed(items, former);
    if (!item || !isFreeIn(items, name))
        return false;
    item->name = name;
    return true;
}

} // namespace

const KsoChartsInfo::Folder* KsoChartsInfo::findFolder(const QString& folder) const
{
    return findNamed(_folders, folder);
}

const KsoChartsInfo::View* KsoChartsInfo::findView(const QString& folder, const QString& view) const
{
    const Folder* found = findFolder(folder);
    return found ? findNamed(found->views, view) : nullptr;
}

KsoChartsInfo::Folder* KsoChartsInfo::_find(const QString& folder)
{
    return findFolder(folder) ? findNamed(_folders, folder) : nullptr;
}

bool KsoChartsInfo::addFolder(const QString& folder)
{
    if (!isFreeIn(_folders, folder))
        return false;
    _folders.append(Folder{QUuid::createUuid(), folder, {}});
    return true;
}

bool KsoChartsInfo::renameFolder(const QString& folder, const QString& name)
{
    return renameIn(_folders, folder, name);
}

bool KsoChartsInfo::removeFolder(const QString& folder)
{
    return removeNamed(_folders, folder);
}

bool KsoChartsInfo::addView(const QString& folder, const QString& view)
{
    Folder* found = _find(folder);
    if (!found || !isFreeIn(found->views, view))
        return false;
    found->views.append(View{QUuid::createUuid(), view});
    return true;
}

bool KsoChartsInfo::renameView(const QString& folder, const QString& view, const QString& name)
{
    Folder* found = _find(folder);
    return found && renameIn(found->views, view, name);
}

bool KsoChartsInfo::removeView(const QString& folder, const QString& view)
{
    Folder* found = _find(folder);
    return found && removeNamed(found->views, view);
}

bool KsoChartsInfo::restore(const QVector<Folder>& folders)
{
    QSet<QUuid> ids;
    QSet<QString> names;
    for (const Folder& folder : folders) {
        if (!isNew(folder, ids, names))
            return false;
        QSet<QString> viewNames;
        for (const View& view : folder.views) {
            if (!isNew(view, ids, viewNames))
                return false;
        }
    }
    _folders = folders;
    return true;
}

KsoChartsIdentifier KsoChartsInfo::updateViewRef(const KsoChartsIdentifier& ident) const
{
    const Folder* known = findId(_folders, ident.getFolderId());
    const Folder* folder = known ? known : findFolder(ident.getFolder());
    if (!folder)
        return ident;
    const View* view = findId(folder->views, ident.getViewId());
    return KsoChartsIdentifier(ident.getModel(), ident.getName(), *this, folder->name,
                               view ? view->name : ident.getViewName());
}
