#pragma once

#include <param/composite/KpcGroup.h>
#include <param/composite/KpcList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpcGroup>;

/// A list of groups that look like the group that is its prototype.
class KESTRIN_PARAM_EXPORT KpcGroupList : public KpcList<KpcGroup>
{
public:
    KpcGroupList(const QString& key, const KstITransactable& transactable);
    KpcGroupList(const KpcGroupList& other, const QString& newKey);
    KpcGroupList* duplicate(const QString& newKey) const override;
};
