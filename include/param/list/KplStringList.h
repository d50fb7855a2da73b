#pragma once

#include <param/atomic/KpaString.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaString>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaString, QString, KpaStringConfig>;

/// A list of texts.
class KESTRIN_PARAM_EXPORT KplStringList : public KplAAtomicList<KpaString, QString, KpaStringConfig>
{
public:
    explicit KplStringList(const QString& key);
    KplStringList(const KplStringList& other, const QString& newKey);
    KplStringList* duplicate(const QString& newKey) const override;

    /// Whether an item has this text, and the rank of the first that has, or -1.
    bool contains(const QString& text, bool caseSensitive) const { return indexOf(text, caseSensitive) >= 0; }
    int indexOf(const QString& text, bool caseSensitive) const;
};
