#pragma once

#include <QtCore/QStringList>

#include <study/KsoAItemIdentifier.h>

class KsmANamedItemModel;

/// What the identifiers of named items share: the name, and the id of the item that had it when the identifier was
/// made. Identifiers are equal when model and names are; they stay the same when the item is renamed, and then name
/// nothing, but `_presentName()` still knows.
class KESTRIN_STUDY_EXPORT KsoANamedIdentifier : public KsoAItemIdentifier
{
public:
    ~KsoANamedIdentifier() override;

    bool isNull() const override { return _name.isEmpty(); }
    QString getName() const override { return _name; }
    /// The name under `Ks::KEY_NAME`; empty for null.
    MbbOrderedMap<QString, QString> toMap(bool complete) const override;
    /// The names joined by "/"; empty for null.
    QString toString() const { return _names().join(QLatin1Char('/')); }

protected:
    KsoANamedIdentifier() = default;
    KsoANamedIdentifier(KsmANamedItemModel* model, const QString& name);
    KsoANamedIdentifier(const KsoANamedIdentifier&) = default;
    KsoANamedIdentifier& operator=(const KsoANamedIdentifier&) = default;

    KsoAItem* _findItem() const override { return _findNamed(); }
    /// The item of the name; null without a model.
    KsoAItem* _findNamed() const;
    /// The name that the item has now which the identifier was made for; the name itself if that is not known.
    QString _presentName() const;
    /// What tells the identifier from others of its model.
    virtual QStringList _names() const;
    bool _isEqual(const KsoANamedIdentifier& other) const;
    bool _isLess(const KsoANamedIdentifier& other) const;
    uint _hash(uint seed) const;

private:
    KsmANamedItemModel* _namedModel() const;

    QString _name;
    int _itemId = -1;
};
