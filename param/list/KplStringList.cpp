#include <param/list/KplStringList.h>

template class KpcList<KpaString>;
template class KplAAtomicList<KpaString, QString, KpaStringConfig>;

KplStringList::KplStringList(const QString& key) : KplAAtomicList(key) {}

KplStringList::KplStringList(const KplStringList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplStringList* KplStringList::duplicate(const QString& newKey) const
{
    return new KplStringList(*this, newKey);
}

int KplStringList::indexOf(const QString& text, bool caseSensitive) const
{
    const Qt::CaseSensitivity sensitivity = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (int i = 0; i < getItemCount(); ++i) {
        if (getItemAt(i)->getValue().compare(text, sensitivity) == 0)
            return i;
    }
    return -1;
}
