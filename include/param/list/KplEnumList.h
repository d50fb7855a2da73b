#pragma once

#include <param/atomic/KpaEnum.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaEnum>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaEnum, int, KpaEnumConfig>;

/// A list of choices among the items that the prototype offers. Ranks name the items of the list, and keys and labels
/// the choices.
class KESTRIN_PARAM_EXPORT KplEnumList : public KplAAtomicList<KpaEnum, int, KpaEnumConfig>
{
public:
    explicit KplEnumList(const QString& key);
    KplEnumList(const KplEnumList& other, const QString& newKey);
    KplEnumList* duplicate(const QString& newKey) const override;

    /// Key and label of the choice; empty for a rank out of range and for a value that is no choice.
    QString getItemKeyAt(int rank) const;
    QString getItemLabelAt(int rank) const;
    /// The same of all items; `getItemKeys` gives the keys of the items themselves.
    QStringList getItemKeysXX() const;
    QStringList getItemLabels() const;

    /// A key or label that is not found goes to Qt's debug log, and nothing changes.
    void setItemFromKeyAt(int rank, const QString& key);
    void setItemFromLabelAt(int rank, const QString& label);
    /// Brings the list to as many items as there are texts, and each item to its own.
    void setItemFromKeys(const QStringList& keys);
    void setItemFromLabels(const QStringList& labels);

private:
    void _setItems(const QStringList& texts, void (KpaEnum::*set)(const QString&));
};
