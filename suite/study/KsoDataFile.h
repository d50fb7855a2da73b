#pragma once

#include <basic/MbgEDimension.h>
#include <basic/MbgEGeometrySet.h>
#include <study/KsoADataItem.h>

class KsoDataSupport;

/// A file of the data tree: a geometry and its supports.
class KESTRIN_STUDY_EXPORT KsoDataFile final : public KsoADataItem
{
public:
    const MbgEGeometrySet& getGeometrySet() const { return _geometrySet; }
    const MbgEDimension& getDimension() const { return _dimension; }
    /// Its support if there is exactly one, otherwise null.
    KsoDataSupport* getUniqueSupport() const;

private:
    friend class KsmModelData;
    KsoDataFile(KsmModelData* model, int id, const QString& name) : KsoADataItem(model, id, KsoEDataType::FILE, name) {}
    void _read(const QJsonObject& attributes) override;
    QJsonObject _write() const override;
    static QJsonObject _attributes(const MbgEGeometrySet& geometrySet, const MbgEDimension& dimension);

    MbgEGeometrySet _geometrySet;
    MbgEDimension _dimension;
};
