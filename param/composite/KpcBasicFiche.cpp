#include <param/composite/KpcBasicFiche.h>

#include <study/KstATransactableDefault.h>

namespace {

class BasicContext final : public KstATransactableDefault
{};

const KstITransactable& basicContext()
{
    static const BasicContext context;
    return context;
}

} // namespace

KpcBasicFiche::KpcBasicFiche(const QString& key, const QString& taskId) : KpcFiche(key, taskId, basicContext()) {}

KpcBasicFiche::KpcBasicFiche(const KpcBasicFiche& other, const QString& newKey) : KpcFiche(other, newKey) {}

KpcBasicFiche* KpcBasicFiche::duplicate(const QString& newKey) const
{
    return new KpcBasicFiche(*this, newKey);
}
