#include <basic/MbbGlobal.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaSeed.h>

#include <QtCore/QObject>
#include <QtCore/QTime>

template class KpaAAtomic<unsigned long long, KpaSeedConfig>;

using KpaConfigTools::store;

namespace {
constexpr char randomText[] = "random";
} // namespace

bool KpaSeedConfig::setRandom(bool random)
{
    return store(_random, random);
}

bool KpaSeedConfig::setLastSeed(unsigned long long seed)
{
    const bool becomesDefined = store(_lastSeedDefined, true);
    const bool changed = store(_lastSeed, seed);
    return becomesDefined || changed;
}

unsigned long long KpaSeedConfig::fix(unsigned long long value, unsigned long long previous) const
{
    return value == 0 || value == MbbGlobal::UI64_FFFF ? previous : value;
}

QString KpaSeedConfig::toString(unsigned long long value) const
{
    QString text = _random ? QObject::tr("Random") : QString::number(value);
    if (_lastSeedDefined && (_random || value != _lastSeed))
        text += QObject::tr(" (last seed: %1)").arg(_lastSeed);
    return text;
}

MbbOrderedMap<QString, QString> KpaSeedConfig::serializeValue(unsigned long long value) const
{
    // Not through the serializer, which keeps one signed number as a marker; here it is the seed 2^63.
    return KpaConfigTools::singleValue(_random ? QLatin1String(randomText) : QString::number(qint64(value)));
}

unsigned long long KpaSeedConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                                   unsigned long long previous) const
{
    const QString text = map.value(KpaConfigTools::valueKey());
    _random = text.isEmpty() || text == QLatin1String(randomText);
    return _random ? previous : static_cast<unsigned long long>(KpsSerializer::toInt64(text, qint64(previous), true));
}

QString KpaSeedConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaSeedConfig ----------\n"
                       << " random           = " << KpaConfigTools::yesNo(_random) << '\n'
                       << " lastSeed         = " << _lastSeed << '\n';
    return text;
}

KpaSeed::KpaSeed(const QString& key) : KpaAAtomic(key, KpaSeedConfig()) {}

KpaSeed::KpaSeed(const KpaSeed& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaSeed* KpaSeed::duplicate(const QString& newKey) const
{
    return new KpaSeed(*this, newKey);
}

unsigned long long KpaSeed::generateSeed()
{
    unsigned long long seed = _value;
    if (isRandom())
        seed = static_cast<unsigned long long>(QTime::currentTime().second() * 1000 + QTime::currentTime().msec());
    _configChangedIf(_config.setLastSeed(seed));
    return seed;
}
