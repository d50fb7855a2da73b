#include <param/composite/KpcFiche.h>

KpcFiche::KpcFiche(const QString& key, const QString& taskId, const KstITransactable& transactable)
    : KpcGroup(KpbEType::FICHE, key, transactable),
      _taskId(taskId)
{}

KpcFiche::KpcFiche(const KpcFiche& other, const QString& newKey) : KpcGroup(other, newKey), _taskId(other._taskId) {}

KpcFiche* KpcFiche::duplicate(const QString& newKey) const
{
    return new KpcFiche(*this, newKey);
}
