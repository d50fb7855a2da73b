#include <param/list/KplBoolList.h>

template class KpcList<KpaBool>;
template class KplAAtomicList<KpaBool, bool, KpaBoolConfig>;

KplBoolList::KplBoolList(const QString& key) : KplAAtomicList(key) {}

KplBoolList::KplBoolList(const KplBoolList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplBoolList* KplBoolList::duplicate(const QString& newKey) const
{
    return new KplBoolList(*this, newKey);
}
