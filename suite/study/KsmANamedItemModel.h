#pragma once

#include <study/KsmAItemModel.h>

/// Base of the models whose items are found by one name.
class KESTRIN_STUDY_EXPORT KsmANamedItemModel : public KsmAItemModel
{
public:
    ~KsmANamedItemModel() override;

    /// Null if there is no item of the name. User items come before built-in ones.
    virtual KsoAItem* findItem(const QString& name) const = 0;

protected:
    using KsmAItemModel::KsmAItemModel;
};
