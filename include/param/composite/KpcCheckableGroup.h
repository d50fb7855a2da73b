#pragma once

#include <param/composite/KpcChildren.h>

class KpaBool;
class KpcGroup;

/// A group with a check box in front of it: the content is enabled only while the box is checked and the whole is
/// enabled. Its children are the box, "USE_" and the key, and the group of the content, the key and "_GROUP".
class KESTRIN_PARAM_EXPORT KpcCheckableGroup : public KpcAComposite
{
public:
    KpcCheckableGroup(const QString& key, const KstITransactable& transactable);
    KpcCheckableGroup(const KpcCheckableGroup& other, const QString& newKey);
    KpcCheckableGroup* duplicate(const QString& newKey) const override;

    /// Whether the content is in use.
    bool isActive() const;
    void setLabels(const QString& checkLabel, const QString& groupLabel);
    QString toString() const override;
    void update(const KpnModif& modif) override;

private:
    void _declare(KpcChildren children, const QString& checkKey, const QString& contentKey);
    void _uncheckIfDisabled();
    void _enableContentIfActive();

    KpcChild<KpaBool> _check;
    KpcChild<KpcGroup> _content;
};
