#pragma once

#include <QtCore/QMultiHash>
#include <QtCore/QStringList>

#include <param/composite/KpcItemTable.h>

#include <vector>

/// The items of a list while they are put into another order: they are taken one by one, by key, and what is left
/// comes in its former order. It owns nothing. Taking all items takes time in proportion to their number, whatever the
/// order; of items with one key, the first is taken first.
class KESTRIN_PARAM_EXPORT KpcItemPool
{
public:
    /// Takes all items of `table`.
    explicit KpcItemPool(KpcItemTable& table);

    /// The items that have not been taken.
    int count() const { return _count; }
    /// The first item with that key, which leaves the pool, or null.
    KpbAParameter* take(const QString& key);
    /// The first item, which leaves the pool, or null.
    KpbAParameter* takeNext();
    /// Takes out an item that may be dying; gives whether it was here.
    bool forget(const KuoAObservable<KpnModif>* item);

private:
    void _passGaps();
    KpbAParameter* _takeAt(int rank);

    // What has been taken leaves a null.
    std::vector<KpbAParameter*> _items;
    QStringList _keys;
    int _count = 0;
    int _next = 0;
    // Ranks by key, once an item is asked for that is not the next one.
    QMultiHash<QString, int> _ranks;
    bool _indexed = false;
};
