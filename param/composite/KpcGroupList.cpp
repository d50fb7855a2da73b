#include <param/composite/KpcGroupList.h>

template class KpcList<KpcGroup>;

KpcGroupList::KpcGroupList(const QString& key, const KstITransactable& transactable) : KpcList(key, transactable) {}

KpcGroupList::KpcGroupList(const KpcGroupList& other, const QString& newKey) : KpcList(other, newKey) {}

KpcGroupList* KpcGroupList::duplicate(const QString& newKey) const
{
    return new KpcGroupList(*this, newKey);
}
