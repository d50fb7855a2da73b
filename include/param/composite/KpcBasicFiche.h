#pragma once

#include <param/composite/KpcFiche.h>

/// A fiche outside any project: its transaction context is one that all basic fiches share and that has no project.
class KESTRIN_PARAM_EXPORT KpcBasicFiche : public KpcFiche
{
public:
    KpcBasicFiche(const QString& key, const QString& taskId);
    KpcBasicFiche(const KpcBasicFiche& other, const QString& newKey);
    KpcBasicFiche* duplicate(const QString& newKey) const override;
};
