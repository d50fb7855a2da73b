#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaSeedConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<unsigned long long, KpaSeedConfig>;

/// The seed of a random number generator: a chosen one, or another one at each generation.
class KESTRIN_PARAM_EXPORT KpaSeed : public KpaAAtomic<unsigned long long, KpaSeedConfig>
{
public:
    explicit KpaSeed(const QString& key);
    KpaSeed(const KpaSeed& other, const QString& newKey);
    KpaSeed* duplicate(const QString& newKey) const override;

    bool isRandom() const { return _config.isRandom(); }
    void setRandom(bool random) { _configChangedIf(_config.setRandom(random)); }
    /// The seed to use now, which is remembered as the last one. In random mode it is the clock's milliseconds within
    /// the minute, 0 to 59999, and the value stays what it is.
    unsigned long long generateSeed();
};
