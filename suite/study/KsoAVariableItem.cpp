#include <study/KsbJson.h>
#include <study/KsoAVariableItem.h>

namespace {

const QString roleKey = QStringLiteral("role");

} // namespace

void KsoAVariableItem::_read(const QJsonObject& attributes)
{
    const MbdVariableDetails details = KsbJson::readDetails(attributes);
    _role = KsbJson::readEnum<MbdEVarRole>(attributes, roleKey);
    _details = details;
}

QJsonObject KsoAVariableItem::_write() const
{
    return _attributes(_details, _role);
}

QJsonObject KsoAVariableItem::_attributes(const MbdVariableDetails& details, const MbdEVarRole& role)
{
    QJsonObject attributes = KsbJson::fromDetails(details);
    attributes.insert(roleKey, role.getKey());
    return attributes;
}
