#pragma once

#include <study/KsoDataFile.h>

/// A support of a file: a number of samples, for each of which its variables have a value.
class KESTRIN_STUDY_EXPORT KsoDataSupport final : public KsoADataItem
{
public:
    /// The largest number of samples that a support can have.
    static constexpr int MaximumSampleCount = 100000000;

    KsoDataFile* getFile() const { return static_cast<KsoDataFile*>(getParentItem()); }
    int getSampleCount() const { return _sampleCount; }
    /// That of its file.
    const MbgEDimension& getDimension() const { return getFile()->getDimension(); }

private:
    friend class KsmModelData;
    KsoDataSupport(KsmModelData* model, int id, const QString& name)
        : KsoADataItem(model, id, KsoEDataType::SUPPORT, name)
    {}
    void _read(const QJsonObject& attributes) override;
    QJsonObject _write() const override;
    static QJsonObject _attributes(int sampleCount);

    int _sampleCount = 0;
};
