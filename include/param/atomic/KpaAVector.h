#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaAVectorConfig.h>

/// A vector of up to three components, each within limits of its own. Components are counted from 0; setters pass over
/// a component that there is not, getters reach the nearest one.
///
/// A setter for all components changes the configuration once and notifies once, unless it says otherwise.
template <class Vector, class Scalar, class Config, class ItemConfig>
class Q_DECL_EXPORT KpaAVector : public KpaAAtomic<Vector, Config>
{
public:
    Scalar getV1() const { return getComponentValue(0); }
    Scalar getV2() const { return getComponentValue(1); }
    Scalar getV3() const { return getComponentValue(2); }
    Scalar getComponentValue(int i) const { return this->_value[Config::nearestComponent(i)]; }
    const QString& getComponentLabel(int i) const { return _config.itemLabel(i); }
    Scalar getComponentMinimum(int i) const { return _config.itemConfig(i).getMinimum(); }
    Scalar getComponentMaximum(int i) const { return _config.itemConfig(i).getMaximum(); }
    Scalar getComponentStep(int i) const { return _config.itemConfig(i).getStep(); }
    bool isComponentMinimumDefined(int i) const { return _config.itemConfig(i).isMinimumDefined(); }
    bool isComponentMaximumDefined(int i) const { return _config.itemConfig(i).isMaximumDefined(); }
    bool isComponenStepDefined(int i) const { return _config.itemConfig(i).isStepDefined(); }
    /// Whether all three components are defined.
    bool isDefined() const { return this->_value.isDefined(); }
    /// Whether the live components have one value.
    bool areAllValuesEqual() const;
    Kp::VectorDim getDimension() const { return _config.getDimension(); }
    Scalar getFillValue() const { return _config.getFillValue(); }
    Kp::VectorLink getLinkMode() const { return _config.getLinkMode(); }

    /// `fillValue` stands in the components beyond `dimension` from now on.
    void setDimension(Kp::VectorDim dimension, Scalar fillValue)
    {
        this->_configChangedIf(_config.setDimension(dimension, fillValue));
    }
    void setLinkMode(Kp::VectorLink mode) { this->_configChangedIf(_config.setLinkMode(mode)); }
    void setComponentLabels(const QString& a, const QString& b, const QString& c);

    void setComponentValue(int i, Scalar value);
    void setComponentValue(Scalar value) { setComponentValues(value, value, value); }
    void setComponentValues(Scalar a, Scalar b, Scalar c) { this->setValue(Vector(a, b, c)); }
    void setComponentAutoValue(Scalar value) { setComponentAutoValues(value, value, value); }
    void setComponentAutoValues(Scalar a, Scalar b, Scalar c) { this->setAutoValue(Vector(a, b, c)); }

    void setComponentMinimum(int i, Scalar value) { _setItem(&ItemConfig::setMinimum, i, value); }
    void setComponentMinimum(Scalar value) { setComponentMinimums(value, value, value); }
    void setComponentMinimums(const Vector& values) { setComponentMinimums(values[0], values[1], values[2]); }
    void setComponentMinimums(Scalar a, Scalar b, Scalar c) { _setItems(&ItemConfig::setMinimum, a, b, c); }
    void unsetMinimum() { setComponentMinimum(ItemConfig().getMinimum()); }

    void setComponentMaximum(int i, Scalar value) { _setItem(&ItemConfig::setMaximum, i, value); }
    void setComponentMaximum(Scalar value) { setComponentMaximums(value, value, value); }
    void setComponentMaximums(const Vector& values) { setComponentMaximums(values[0], values[1], values[2]); }
    void setComponentMaximums(Scalar a, Scalar b, Scalar c) { _setItems(&ItemConfig::setMaximum, a, b, c); }
    void unsetMaximum() { setComponentMaximum(ItemConfig().getMaximum()); }

    void setComponentStep(int i, Scalar value) { _setItem(&ItemConfig::setStep, i, value); }
    void setComponentStep(Scalar value) { setComponentSteps(value, value, value); }
    void setComponentSteps(const Vector& values) { setComponentSteps(values[0], values[1], values[2]); }
    void setComponentSteps(Scalar a, Scalar b, Scalar c) { _setItems(&ItemConfig::setStep, a, b, c); }
    void unsetStep() { setComponentStep(ItemConfig().getStep()); }

protected:
    explicit KpaAVector(const QString& key) : KpaAAtomic<Vector, Config>(key, Config()) {}
    KpaAVector(const KpaAVector& other, const QString& newKey) : KpaAAtomic<Vector, Config>(other, newKey) {}

    static constexpr int ComponentCount = Config::ComponentCount;
    static bool _isComponent(int i) { return i >= 0 && i < ComponentCount; }

    /// Runs `change(ItemConfig&)`, which gives whether it changed something, on one component.
    template <class Change>
    void _changeItem(int i, Change change)
    {
        if (_isComponent(i))
            this->_configChangedIf(change(_config.itemConfig(i)));
    }
    /// Runs `change(ItemConfig&, int)` on all components.
    template <class Change>
    void _changeItems(Change change)
    {
        bool changed = false;
        for (int i = 0; i < ComponentCount; ++i)
            changed = change(_config.itemConfig(i), i) || changed;
        this->_configChangedIf(changed);
    }

    using KpaAAtomic<Vector, Config>::_config;

private:
    using Setter = bool (ItemConfig::*)(Scalar);

    void _setItem(Setter set, int i, Scalar value)
    {
        _changeItem(i, [&](ItemConfig& config) { return (config.*set)(value); });
    }
    void _setItems(Setter set, Scalar a, Scalar b, Scalar c)
    {
        const Scalar values[] = {a, b, c};
        _changeItems([&](ItemConfig& config, int i) { return (config.*set)(values[i]); });
    }
};

template <class Vector, class Scalar, class Config, class ItemConfig>
bool KpaAVector<Vector, Scalar, Config, ItemConfig>::areAllValuesEqual() const
{
    const bool secondEqual = getV2() == getV1();
    switch (getDimension()) {
    case Kp::VectorDim1:
        return true;
    case Kp::VectorDim2:
        return secondEqual;
    case Kp::VectorDim3:
        return secondEqual && getV3() == getV1();
    default:
        return false;
    }
}

template <class Vector, class Scalar, class Config, class ItemConfig>
void KpaAVector<Vector, Scalar, Config, ItemConfig>::setComponentLabels(const QString& a, const QString& b,
                                                                        const QString& c)
{
    const QString labels[] = {a, b, c};
    _changeItems([&](ItemConfig&, int i) { return KpaConfigTools::store(_config.itemLabel(i), labels[i]); });
}

template <class Vector, class Scalar, class Config, class ItemConfig>
void KpaAVector<Vector, Scalar, Config, ItemConfig>::setComponentValue(int i, Scalar value)
{
    if (!_isComponent(i))
        return;
    Vector vector = this->_value;
    vector[i] = value;
    this->setValue(vector);
}
