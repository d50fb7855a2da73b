#pragma once

#include <param/composite/KpcChildren.h>
#include <param/composite/KpcList.h>

class KpaColor;
class KpaString;

/// One rule of `KpcSampleCategories`: the colour and the name of a category, and the condition that its samples fulfil.
class KESTRIN_PARAM_EXPORT KpcSampleCategoriesRule : public KpcAComposite
{
public:
    KpcSampleCategoriesRule(const QString& key, const KstITransactable& transactable);
    KpcSampleCategoriesRule(const KpcSampleCategoriesRule& other, const QString& newKey);
    KpcSampleCategoriesRule* duplicate(const QString& newKey) const override;

    /// Takes over the values of `other`; null changes nothing.
    void resetFromParam(const KpcSampleCategoriesRule* other);
    /// "name : condition".
    QString toString() const override;

private:
    friend class KpcSampleCategories;

    void _declare(KpcChildren children);
    void _setValues(const QColor& color, const QString& name, const QString& cond);

    KpcChild<KpaColor> _color;
    KpcChild<KpaString> _name;
    KpcChild<KpaString> _cond;
};

extern template class KESTRIN_PARAM_EXPORT KpcList<KpcSampleCategoriesRule>;
