#include <study/KsbJson.h>
#include <study/KsoDataFile.h>
#include <study/KsoDataSupport.h>

namespace {

const QString geometryKey = QStringLiteral("geometry");
const QString dimensionKey = QStringLiteral("dimension");

} // namespace

KsoDataSupport* KsoDataFile::getUniqueSupport() const
{
    return hasUniqueChild() ? static_cast<KsoDataSupport*>(getChildItems().first()) : nullptr;
}

void KsoDataFile::_read(const QJsonObject& attributes)
{
    const auto geometrySet = KsbJson::readEnum<MbgEGeometrySet>(attributes, geometryKey);
    _dimension = KsbJson::readEnum<MbgEDimension>(attributes, dimensionKey);
    _geometrySet = geometrySet;
}

QJsonObject KsoDataFile::_write() const
{
    return _attributes(_geometrySet, _dimension);
}

QJsonObject KsoDataFile::_attributes(const MbgEGeometrySet& geometrySet, const MbgEDimension& dimension)
{
    return {{geometryKey, geometrySet.getKey()}, {dimensionKey, dimension.getKey()}};
}
