#include <study/KsbJson.h>
#include <study/KsoDataMacroVariable.h>

namespace {

const QString realisationsKey = QStringLiteral("realisations");

} // namespace

void KsoDataMacroVariable::_read(const QJsonObject& attributes)
{
    const MbdVariableDetails details = KsbJson::readDetails(attributes);
    _realisationCount = KsbJson::readInt(attributes, realisationsKey, 0, MaximumRealisationCount, 0);
    _details = details;
}

QJsonObject KsoDataMacroVariable::_write() const
{
    return _attributes(_details, _realisationCount);
}

QJsonObject KsoDataMacroVariable::_attributes(const MbdVariableDetails& details, int realisationCount)
{
    QJsonObject attributes = KsbJson::fromDetails(details);
    attributes.insert(realisationsKey, realisationCount);
    return attributes;
}
