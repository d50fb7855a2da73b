#pragma once

#include <study/KsoANamedItem.h>
#include <study/KsoGeosSetIdentifier.h>

/// A geostatistical set: documents under names, such as a variogram model, that are used together.
class KESTRIN_STUDY_EXPORT KsoGeosSet : public KsoANamedItem<KsoGeosSetKind>
{
public:
    QStringList getDocumentNames() const { return getContent().keys(); }
    bool hasDocument(const QString& name) const { return getContent().contains(name); }
    /// Empty if there is none.
    QString getDocument(const QString& name) const { return getContent().value(name); }

private:
    template <class>
    friend class KsmANamedModel;
    using KsoANamedItem::KsoANamedItem;
};
