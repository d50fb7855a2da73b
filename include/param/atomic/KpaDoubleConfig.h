#pragma once

#include <basic/MbbGlobal.h>
#include <basic/MbbOrderedMap.h>
#include <basic/MbbStringFormat.h>
#include <basic/MbdVariableDetails.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

#include <cmath>
#include <memory>

/// What a double parameter admits: limits, a cycle, the undefined marker; and how its values show: the unit class, the
/// exponent of the unit, a display format. All numbers are in the storage unit of the unit class. Limits and step that
/// are not set hold `MbbGlobal::D_FFFF`. Setters give whether something changed. What a getter refers to stays until
/// the field is set.
///
/// Conversions and texts throw only what `MbuUnitService` throws where its database is missing; nothing has changed
/// then.
class KESTRIN_PARAM_EXPORT KpaDoubleConfig
{
public:
    KpaDoubleConfig();
    KpaDoubleConfig(const MbuEUnitClass& unitClass, int powerValue);

    // No moving: a configuration always has a format.
    KpaDoubleConfig(const KpaDoubleConfig&) = default;
    KpaDoubleConfig& operator=(const KpaDoubleConfig&) = default;

    /// All fields; also those of a custom format that is not in use.
    friend bool operator==(const KpaDoubleConfig& a, const KpaDoubleConfig& b)
    {
        return a._step == b._step && a._minimum == b._minimum && a._maximum == b._maximum && a._wrapped == b._wrapped &&
               a._undefineEnabled == b._undefineEnabled && a._useCustomFormat == b._useCustomFormat &&
               a._powerValue == b._powerValue && *a._unitClass == *b._unitClass && a._undefString == b._undefString &&
               (a._customFormat == b._customFormat || *a._customFormat == *b._customFormat);
    }

    const KpbEType& getType() const { return KpbEType::DOUBLE; }
    double getInitialValue() const { return 0.0; }

    double getStep() const { return _step; }
    double getMinimum() const { return _minimum; }
    double getMaximum() const { return _maximum; }
    bool isStepDefined() const { return isDefined(_step); }
    bool isMinimumDefined() const { return isDefined(_minimum); }
    bool isMaximumDefined() const { return isDefined(_maximum); }
    bool isDefined(double value) const { return value != MbbGlobal::D_FFFF; }
    bool isUndefineEnabled() const { return _undefineEnabled; }
    bool isWrapped() const { return _wrapped; }
    const MbuEUnitClass& getUnitClass() const { return *_unitClass; }
    /// The exponent of the unit: 2 for a surface that is measured in a unit of length.
    int getPowerValue() const { return _powerValue; }
    const QString& getUndefString() const { return _undefString; }
    bool useCustomFormat() const { return _useCustomFormat; }
    /// The last custom format, also where it is not in use.
    const MbbStringFormat& getCustomFormat() const { return *_customFormat; }
    /// The custom format as it stands, if it is in use; otherwise the user's present format for the unit class, with
    /// the text for undefined values unless that is empty.
    MbbStringFormat getDisplayFormat() const;
    /// Unit class, power and, if it is in use, the custom format as the details of a variable.
    MbdVariableDetails getDetails() const;

    bool setStep(double step);
    bool setMinimum(double minimum);
    bool setMaximum(double maximum);
    /// Swaps the two only if both are defined.
    bool setRange(double minimum, double maximum);
    bool setUndefineEnabled(bool enabled);
    /// Whether values wrap around between two limits instead of being clamped. The cycle runs from the minimum,
    /// included, to the maximum, excluded; a value that lies whole cycles below the minimum lands on the maximum.
    /// Values are clamped all the same where no cycle can be walked, the range being zero or not finite, and become the
    /// minimum where that takes more turns than a 32-bit integer counts. Crossed limits go through the same arithmetic,
    /// which then need not end between them.
    bool setWrapped(bool wrapped);
    /// Drops a custom format, which is a change even where class and power stay the same.
    bool setUnitClass(const MbuEUnitClass& unitClass, int powerValue);
    bool setCustomFormat(const MbbStringFormat& format);
    /// The text to show for the undefined value; an empty one leaves it to the format.
    bool setUndefString(const QString& text);
    /// Takes over unit class and power; the format becomes the custom one if the class is NONE or does not show in its
    /// default format.
    bool setDetails(const MbdVariableDetails& details);

    /// The number in the storage unit, raised to the power; untouched if `unit` is of another class than the values.
    double convertToStorageUnit(double value, const MbuUnit& unit) const;
    /// The way back, on the same terms.
    double convertFromStorageUnit(double value, const MbuUnit& unit) const;

    double fix(double value, double previous) const
    {
        if (!isDefined(value)) [[unlikely]] {
            if (_undefineEnabled)
                return value;
            value = isDefined(previous) ? previous : 0.0;
        }
        if (_wrapped && isMinimumDefined() && isMaximumDefined()) [[unlikely]]
            return _wrappedFix(value);
        return _clamp(value);
    }
    QString toString(double value) const;
    MbbOrderedMap<QString, QString> serializeValue(double value) const;
    double unserializeValue(const MbbOrderedMap<QString, QString>& map, double previous) const;
    QString debug() const;

private:
    /// The minimum wins where the limits cross. Of a number and a NaN, the number stands. A zero at a limit that is
    /// zero takes the limit's sign. These are the results of `fmin` and `fmax`, whose calls would cost more than all
    /// else here.
    double _clamp(double value) const
    {
        if (!(value < _maximum) && _isLimit(_maximum))
            value = _maximum;
        if (!(value > _minimum) && _isLimit(_minimum))
            value = _minimum;
        return value;
    }
    bool _isLimit(double limit) const { return isDefined(limit) && !std::isnan(limit); }
    double _wrappedFix(double value) const;
    bool _isUnitCompatible(const MbuUnit& unit) const;

    double _step = MbbGlobal::D_FFFF;
    double _minimum = MbbGlobal::D_FFFF;
    double _maximum = MbbGlobal::D_FFFF;
    bool _wrapped = false;
    bool _undefineEnabled = false;
    bool _useCustomFormat = false;
    int _powerValue;
    // One of the constants.
    const MbuEUnitClass* _unitClass;
    QString _undefString;
    // Never null. Shared, as nearly all configurations have the same.
    std::shared_ptr<const MbbStringFormat> _customFormat;
};
