#pragma once

#include <param/atomic/KpaBool.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaBool>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaBool, bool, KpaBoolConfig>;

/// A list of yes or no.
class KESTRIN_PARAM_EXPORT KplBoolList : public KplAAtomicList<KpaBool, bool, KpaBoolConfig>
{
public:
    explicit KplBoolList(const QString& key);
    KplBoolList(const KplBoolList& other, const QString& newKey);
    KplBoolList* duplicate(const QString& newKey) const override;
};
