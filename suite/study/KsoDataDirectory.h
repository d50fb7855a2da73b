#pragma once

#include <study/KsoADataItem.h>

/// A directory of the data tree: it has directories and files.
class KESTRIN_STUDY_EXPORT KsoDataDirectory final : public KsoADataItem
{
private:
    friend class KsmModelData;
    KsoDataDirectory(KsmModelData* model, int id, const QString& name)
        : KsoADataItem(model, id, KsoEDataType::DIRECTORY, name)
    {}
};
