#pragma once

#include <basic/MbbGlobal.h>
#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What an integer parameter admits: limits, a cycle, the undefined marker. Limits and step that are not set hold
/// `MbbGlobal::I32_FFFF`. Setters give whether something changed.
class KESTRIN_PARAM_EXPORT KpaIntegerConfig
{
public:
    /// All fields.
    friend bool operator==(const KpaIntegerConfig& a, const KpaIntegerConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::INTEGER; }
    int getInitialValue() const { return 0; }

    int getStep() const { return _step; }
    int getMinimum() const { return _minimum; }
    int getMaximum() const { return _maximum; }
    bool isStepDefined() const { return isDefined(_step); }
    bool isMinimumDefined() const { return isDefined(_minimum); }
    bool isMaximumDefined() const { return isDefined(_maximum); }
    bool isDefined(int value) const { return value != MbbGlobal::I32_FFFF; }
    bool isUndefineEnabled() const { return _undefineEnabled; }
    bool isWrapped() const { return _wrapped; }

    bool setStep(int step);
    bool setMinimum(int minimum);
    bool setMaximum(int maximum);
    bool setUndefineEnabled(bool enabled);
    /// Whether values wrap around between two limits instead of being clamped. The cycle runs from the minimum,
    /// included, to the maximum, excluded; a value that lies whole cycles below the minimum lands on the maximum.
    bool setWrapped(bool wrapped);

    int fix(int value, int previous) const;
    QString toString(int value) const;
    MbbOrderedMap<QString, QString> serializeValue(int value) const;
    int unserializeValue(const MbbOrderedMap<QString, QString>& map, int previous) const;
    QString debug() const;

private:
    int _wrappedFix(int value) const;

    int _step = MbbGlobal::I32_FFFF;
    int _maximum = MbbGlobal::I32_FFFF;
    int _minimum = MbbGlobal::I32_FFFF;
    bool _wrapped = false;
    bool _undefineEnabled = false;
};
