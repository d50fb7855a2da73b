#include <param/KpsSerializer.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaConfigTools.h>

#include <QtCore/QObject>

template class KpaAAtomic<bool, KpaBoolConfig>;

QString KpaBoolConfig::toString(bool value) const
{
    return value ? QObject::tr("yes") : QObject::tr("no");
}

MbbOrderedMap<QString, QString> KpaBoolConfig::serializeValue(bool value) const
{
    return KpaConfigTools::singleValue(KpsSerializer::fromBool(value));
}

bool KpaBoolConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, bool previous) const
{
    return KpsSerializer::toBool(map.value(KpaConfigTools::valueKey()), previous);
}

QString KpaBoolConfig::debug() const
{
    return QStringLiteral("----- KpaBoolConfig ----------\n");
}

KpaBool::KpaBool(const QString& key) : KpaAAtomic(key, KpaBoolConfig()) {}

KpaBool::KpaBool(const KpaBool& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaBool* KpaBool::duplicate(const QString& newKey) const
{
    return new KpaBool(*this, newKey);
}
