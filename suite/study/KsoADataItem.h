#pragma once

#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <study/KsoAItem.h>
#include <study/KsoDataIdentifier.h>

#include <utility>

/// An item of the data tree. It lives until it or something above it is removed from the model, or the model dies.
class KESTRIN_STUDY_EXPORT KsoADataItem : public KsoAItem
{
public:
    ~KsoADataItem() override;

    const KsoEDataType& getType() const { return _type; }
    KsmModelData* getModel() const { return _model; }
    /// Null for the root directory.
    KsoADataItem* getParentItem() const { return _parent; }
    /// In order of making.
    const QList<KsoADataItem*>& getChildItems() const { return _children; }
    /// The child of the level and the name; null if there is none.
    KsoADataItem* getChildItem(const KsoEDataType& type, const QString& name) const;
    bool hasUniqueChild() const { return _children.count() == 1; }
    KsoDataIdentifier getIdentifier() const;
    /// The applications that the item is for; all if there is none.
    const QStringList& getApplicationFlags() const { return _applicationFlags; }

protected:
    KsoADataItem(KsmModelData* model, int id, const KsoEDataType& type, const QString& name);

private:
    friend class KsmModelData;

    /// Takes over what was stored of the item. What cannot be is an `MbeError`, with nothing taken over.
    void _setAttributes(const QJsonObject& attributes);
    QJsonObject _getAttributes() const;
    static QJsonObject _attributes(const QStringList& applicationFlags);
    /// What the derived class reads and writes.
    virtual void _read(const QJsonObject& attributes);
    virtual QJsonObject _write() const;
    void _addChild(KsoADataItem* child);
    void _removeChild(KsoADataItem* child);

    KsoEDataType _type;
    KsmModelData* _model;
    KsoADataItem* _parent = nullptr;
    QList<KsoADataItem*> _children;
    QHash<std::pair<int, QString>, KsoADataItem*> _childrenByName;
    QStringList _applicationFlags;
};
