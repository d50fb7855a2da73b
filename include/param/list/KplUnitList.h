#pragma once

#include <param/atomic/KpaUnit.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaUnit>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaUnit, MbuUnit, KpaUnitConfig>;

/// A list of units.
class KESTRIN_PARAM_EXPORT KplUnitList : public KplAAtomicList<KpaUnit, MbuUnit, KpaUnitConfig>
{
public:
    explicit KplUnitList(const QString& key);
    KplUnitList(const KplUnitList& other, const QString& newKey);
    KplUnitList* duplicate(const QString& newKey) const override;
};
