#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaIntegerConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<int, KpaIntegerConfig>;

/// An integer within limits.
class KESTRIN_PARAM_EXPORT KpaInteger : public KpaAAtomic<int, KpaIntegerConfig>
{
public:
    explicit KpaInteger(const QString& key);
    KpaInteger(const KpaInteger& other, const QString& newKey);
    KpaInteger* duplicate(const QString& newKey) const override;

    int getStep() const { return _config.getStep(); }
    int getMinimum() const { return _config.getMinimum(); }
    int getMaximum() const { return _config.getMaximum(); }
    bool isStepDefined() const { return _config.isStepDefined(); }
    bool isMinimumDefined() const { return _config.isMinimumDefined(); }
    bool isMaximumDefined() const { return _config.isMaximumDefined(); }
    bool isUndefineEnabled() const { return _config.isUndefineEnabled(); }
    bool isWrapped() const { return _config.isWrapped(); }
    /// Whether the value is not the undefined marker.
    bool isDefined() const { return _config.isDefined(_value); }

    void setStep(int step) { _configChangedIf(_config.setStep(step)); }
    void setMinimum(int minimum) { _configChangedIf(_config.setMinimum(minimum)); }
    void setMaximum(int maximum) { _configChangedIf(_config.setMaximum(maximum)); }
    /// The smaller of the two becomes the minimum, the undefined marker taken as the number that it is.
    void setRange(int a, int b);
    void setUndefineEnabled(bool enabled) { _configChangedIf(_config.setUndefineEnabled(enabled)); }
    void setWrapping(bool wrapped) { _configChangedIf(_config.setWrapped(wrapped)); }
    void unsetStep() { setStep(MbbGlobal::I32_FFFF); }
    void unsetMinimum() { setMinimum(MbbGlobal::I32_FFFF); }
    void unsetMaximum() { setMaximum(MbbGlobal::I32_FFFF); }
};
