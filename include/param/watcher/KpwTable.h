#pragma once

#include <QtCore/QList>

#include <param/KuoPointer.h>
#include <param/composite/KpcAbstractList.h>
#include <param/watcher/KpwAWatcher.h>

/// Several lists as the columns of one table: its operations change all of them before any of them tells. Lists that
/// are changed one by one are not brought into step again. The lists are not owned; one that dies is no column any
/// more.
class KESTRIN_PARAM_EXPORT KpwTable : public KpwAWatcher
{
public:
    KpwTable();
    ~KpwTable() override;
    KpwTable* duplicate(const KpcGroup* newParent) const override;

    /// Null, and a list that is a column already, are ignored. In a registered table, a list that is not below its
    /// group is a programming failure, which leaves it out.
    void addList(KpcAbstractList* list);
    QList<KpcAbstractList*> getAllLists() const;

    /// The number of items of the first list; 0 without a list.
    int getItemCount() const;
    bool isEmpty() const { return getItemCount() == 0; }
    void setItemCount(int count);
    void removeItemAt(int rank);
    void clearItems();
    /// The rank of the new item, which is the last; -1 without a list.
    int addItem();

protected:
    KpwTable(const KpwTable& other, const KpcGroup* newParent);
    void _trigger(const KpnModif& modif) override;
    void _triggerDestroyed(KpbAParameter* parameter) override;

private:
    QList<KuoPointer<KpcAbstractList>> _lists;
};
