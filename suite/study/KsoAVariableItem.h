#pragma once

#include <basic/MbdEVarRole.h>
#include <basic/MbdEVarType.h>
#include <basic/MbdVariableDetails.h>
#include <study/KsoDataSupport.h>

/// A variable with one value for each sample of its support. Its values are read through the model, when they are asked
/// for.
class KESTRIN_STUDY_EXPORT KsoAVariableItem : public KsoADataItem
{
public:
    KsoDataSupport* getSupport() const { return static_cast<KsoDataSupport*>(getParentItem()); }
    /// The type of the details, which says how values are stored.
    MbdEVarType getStorageType() const { return _details.getType(); }
    const MbdEVarRole& getRole() const { return _role; }
    const MbdVariableDetails& getDetails() const { return _details; }
    MbdVariableDetails operator()() const { return _details; }

protected:
    using KsoADataItem::KsoADataItem;

private:
    friend class KsmModelData;
    void _read(const QJsonObject& attributes) override;
    QJsonObject _write() const override;
    static QJsonObject _attributes(const MbdVariableDetails& details, const MbdEVarRole& role);

    MbdVariableDetails _details;
    MbdEVarRole _role;
};
