#pragma once

#include <param/atomic/KpaDouble.h>

/// The configuration of a composite of numbers, under the names that it has at a single number: a setter reaches every
/// number, in one notification, and a getter reads the first. `Composite` derives from this class and gives its numbers
/// with `_numbers()`, a range of pointers that live as long as it does.
template <class Composite>
class Q_DECL_EXPORT KpcNumberForwarder
{
public:
    // clang-format off
    void setMinimum(double minimum) { _each([&](auto& n) { n.setMinimum(minimum); }); }
    void setMinimum(double minimum, const MbuUnit& unit) { _each([&](auto& n) { n.setMinimum(minimum, unit); }); }
    void setMaximum(double maximum) { _each([&](auto& n) { n.setMaximum(maximum); }); }
    void setMaximum(double maximum, const MbuUnit& unit) { _each([&](auto& n) { n.setMaximum(maximum, unit); }); }
    void setRange(double a, double b) { _each([&](auto& n) { n.setRange(a, b); }); }
    void setRange(double a, double b, const MbuUnit& unit) { _each([&](auto& n) { n.setRange(a, b, unit); }); }
    void setStep(double step) { _each([&](auto& n) { n.setStep(step); }); }
    void setStep(double step, const MbuUnit& unit) { _each([&](auto& n) { n.setStep(step, unit); }); }
    void unsetMinimum() { _each([](auto& n) { n.unsetMinimum(); }); }
    void unsetMaximum() { _each([](auto& n) { n.unsetMaximum(); }); }
    void unsetStep() { _each([](auto& n) { n.unsetStep(); }); }
    void setUnitClass(const MbuEUnitClass& unitClass) { _each([&](auto& n) { n.setUnitClass(unitClass); }); }
    void setPowerValue(int powerValue) { _each([&](auto& n) { n.setPowerValue(powerValue); }); }
    void setCustomFormat(const MbbStringFormat& format) { _each([&](auto& n) { n.setCustomFormat(format); }); }
    void setDetails(const MbdVariableDetails& details) { _each([&](auto& n) { n.setDetails(details); }); }
    void setUndefineEnabled(bool enabled) { _each([&](auto& n) { n.setUndefineEnabled(enabled); }); }
    void setWrapping(bool wrapped) { _each([&](auto& n) { n.setWrapping(wrapped); }); }
    // clang-format on

    double getMinimum() const { return _first().getMinimum(); }
    double getMaximum() const { return _first().getMaximum(); }
    double getStep() const { return _first().getStep(); }
    bool isMinimumDefined() const { return _first().isMinimumDefined(); }
    bool isMaximumDefined() const { return _first().isMaximumDefined(); }
    bool isStepDefined() const { return _first().isStepDefined(); }
    bool isUndefineEnabled() const { return _first().isUndefineEnabled(); }
    bool isWrapped() const { return _first().isWrapped(); }
    const MbuEUnitClass& getUnitClass() const { return _first().getUnitClass(); }
    int getPowerValue() const { return _first().getPowerValue(); }
    const MbbStringFormat& getCustomFormat() const { return _first().getCustomFormat(); }
    bool useCustomFormat() const { return _first().useCustomFormat(); }
    MbdVariableDetails getDetails() const { return _first().getDetails(); }

private:
    friend Composite;
    KpcNumberForwarder() = default;

    const Composite& _composite() const { return static_cast<const Composite&>(*this); }
    const auto& _first() const { return **_composite()._numbers().begin(); }

    // An observer may destroy the composite, and the numbers with it.
    template <class Change>
    void _each(Change change)
    {
        KuoLock<KpnModif> lock(&_composite());
        for (auto* number : _composite()._numbers()) {
            if (!lock.isAlive())
                return;
            change(*number);
        }
        lock.commit();
    }
};
