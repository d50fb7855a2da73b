#include <study/KsbJson.h>
#include <study/KsoDataSupport.h>

namespace {

const QString samplesKey = QStringLiteral("samples");

} // namespace

void KsoDataSupport::_read(const QJsonObject& attributes)
{
    _sampleCount = KsbJson::readInt(attributes, samplesKey, 0, MaximumSampleCount, 0);
}

QJsonObject KsoDataSupport::_write() const
{
    return _attributes(_sampleCount);
}

QJsonObject KsoDataSupport::_attributes(int sampleCount)
{
    return {{samplesKey, sampleCount}};
}
