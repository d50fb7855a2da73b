#include <param/atomic/KpaVectorDouble.h>

template class KpaAVectorConfig<MbgVector3D, double, KpaDoubleConfig>;
template class KpaAAtomic<MbgVector3D, KpaVectorDoubleConfig>;
template class KpaAVector<MbgVector3D, double, KpaVectorDoubleConfig, KpaDoubleConfig>;

KpaVectorDoubleConfig::KpaVectorDoubleConfig() : KpaAVectorConfig(KpbEType::VECTOR_DOUBLE) {}

KpaVectorDouble::KpaVectorDouble(const QString& key) : KpaAVector(key) {}

KpaVectorDouble::KpaVectorDouble(const KpaVectorDouble& other, const QString& newKey) : KpaAVector(other, newKey) {}

KpaVectorDouble* KpaVectorDouble::duplicate(const QString& newKey) const
{
    return new KpaVectorDouble(*this, newKey);
}

// Each component notifies on its own, and an observer may destroy this parameter.
template <class Change>
void KpaVectorDouble::_changeOneByOne(Change change)
{
    const KuoPointer<KpbAParameter> self(this);
    for (int i = 0; self && i < ComponentCount; ++i)
        change(i);
}

void KpaVectorDouble::setComponentDetails(int i, const MbdVariableDetails& details)
{
    _changeItem(i, [&](KpaDoubleConfig& config) { return config.setDetails(details); });
}

void KpaVectorDouble::setComponentDetails(const MbdVariableDetails& a, const MbdVariableDetails& b,
                                          const MbdVariableDetails& c)
{
    const MbdVariableDetails details[] = {a, b, c};
    _changeOneByOne([&](int i) { setComponentDetails(i, details[i]); });
}

void KpaVectorDouble::setComponentPowerValue(int i, int powerValue)
{
    _changeItem(i, [&](KpaDoubleConfig& config) { return config.setUnitClass(config.getUnitClass(), powerValue); });
}

void KpaVectorDouble::setComponentPowerValues(int a, int b, int c)
{
    const int powers[] = {a, b, c};
    _changeItems([&](KpaDoubleConfig& config, int i) { return config.setUnitClass(config.getUnitClass(), powers[i]); });
}

void KpaVectorDouble::setComponentUnitClass(int i, const MbuEUnitClass& unitClass)
{
    _changeItem(i, [&](KpaDoubleConfig& config) { return config.setUnitClass(unitClass, config.getPowerValue()); });
}

void KpaVectorDouble::setComponentUnitClasses(const MbuEUnitClass& a, const MbuEUnitClass& b, const MbuEUnitClass& c)
{
    const MbuEUnitClass classes[] = {a, b, c};
    _changeItems(
        [&](KpaDoubleConfig& config, int i) { return config.setUnitClass(classes[i], config.getPowerValue()); });
}

void KpaVectorDouble::setUndefinedEnabled(int i, bool enabled)
{
    _changeItem(i, [&](KpaDoubleConfig& config) { return config.setUndefineEnabled(enabled); });
}

void KpaVectorDouble::setUndefinedEnabled(bool enabled)
{
    _changeOneByOne([&](int i) { setUndefinedEnabled(i, enabled); });
}
