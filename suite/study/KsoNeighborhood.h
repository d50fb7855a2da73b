#pragma once

#include <study/KsoANamedItem.h>
#include <study/KsoDataIdentifier.h>
#include <study/KsoNeighborhoodIdentifier.h>

/// A search neighbourhood: the samples that it looks for, and the variables that it looks at.
class KESTRIN_STUDY_EXPORT KsoNeighborhood : public KsoANamedItem<KsoNeighborhoodKind>
{
public:
    /// The support whose samples are looked for; null if none was chosen.
    KsoDataIdentifier getSupportIdent() const { return _ident(getContent().support); }
    /// The variable that tells the groups of samples apart; null if none was chosen.
    KsoDataIdentifier getCodeVariableIdent() const { return _ident(getContent().codeVariable); }
    /// The variables whose large values are cut off.
    QList<KsoDataIdentifier> getLargeCutoffVariables() const { return _idents(getContent().largeCutoffVariables); }
    /// The variables whose small values are cut off.
    QList<KsoDataIdentifier> getSmallCutoffVariables() const { return _idents(getContent().smallCutoffVariables); }

private:
    template <class>
    friend class KsmANamedModel;
    using KsoANamedItem::KsoANamedItem;
    KsoDataIdentifier _ident(const MbbOrderedMap<QString, QString>& map) const;
    QList<KsoDataIdentifier> _idents(const QList<MbbOrderedMap<QString, QString>>& maps) const;
};
