#pragma once

#include <param/atomic/KpaInteger.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaInteger>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaInteger, int, KpaIntegerConfig>;

/// A list of whole numbers.
class KESTRIN_PARAM_EXPORT KplIntegerList : public KplAAtomicList<KpaInteger, int, KpaIntegerConfig>
{
public:
    explicit KplIntegerList(const QString& key);
    KplIntegerList(const KplIntegerList& other, const QString& newKey);
    KplIntegerList* duplicate(const QString& newKey) const override;

    /// Whether the value is not the undefined marker; false for a rank out of range.
    bool isDefined(int rank) const;
};
