#pragma once

#include <study/KsoAVariableItem.h>

/// A variable of the data tree.
class KESTRIN_STUDY_EXPORT KsoDataVariable final : public KsoAVariableItem
{
private:
    friend class KsmModelData;
    KsoDataVariable(KsmModelData* model, int id, const QString& name)
        : KsoAVariableItem(model, id, KsoEDataType::VARIABLE, name)
    {}
};
