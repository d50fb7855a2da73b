#pragma once

#include <basic/MbdVariableDetails.h>
#include <study/KsoDataSupport.h>

/// A macro variable of the data tree: a row of realisations of one variable, such as the outcomes of a simulation. Each
/// realisation has one value for each sample of the support.
class KESTRIN_STUDY_EXPORT KsoDataMacroVariable final : public KsoADataItem
{
public:
    /// The largest number of realisations.
    static constexpr int MaximumRealisationCount = 1000000;

    KsoDataSupport* getSupport() const { return static_cast<KsoDataSupport*>(getParentItem()); }
    const MbdVariableDetails& getDetails() const { return _details; }
    int getRealisationCount() const { return _realisationCount; }

private:
    friend class KsmModelData;
    KsoDataMacroVariable(KsmModelData* model, int id, const QString& name)
        : KsoADataItem(model, id, KsoEDataType::MACRO_VARIABLE, name)
    {}
    void _read(const QJsonObject& attributes) override;
    QJsonObject _write() const override;
    static QJsonObject _attributes(const MbdVariableDetails& details, int realisationCount);

    MbdVariableDetails _details;
    int _realisationCount = 0;
};
