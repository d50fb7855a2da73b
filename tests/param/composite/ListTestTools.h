#pragma once

#include "CompositeTestTools.h"

#include <param/composite/KpcAbstractList.h>

inline QStringList itemLabels(const KpcAbstractList& list)
{
    QStringList labels;
    for (int i = 0; i < list.getItemCount(); ++i)
        labels.append(list.getAbstractItemAt(i)->getLabel());
    return labels;
}

/// What an observer of the list is told by `change`: the flags that each record has for the list itself.
template <class Change>
QList<int> listFlagsOf(KpcAbstractList& list, Change change)
{
    RecordingObserver observer(list);
    change();
    QList<int> flags;
    for (int i = 0; i < observer.records.size(); ++i)
        flags.append(observer.flagsOf(list, i));
    return flags;
}

/// The numbers in the default keys, which stand for the keys.
inline QStringList itemKeys(std::initializer_list<int> ids)
{
    QStringList keys;
    for (const int id : ids)
        keys.append("ITEM_" + QString::number(id));
    return keys;
}
