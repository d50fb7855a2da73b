#pragma once

#include <basic/MbbGlobal.h>
#include <basic/MbbOrderedMap.h>
#include <basic/MbbStringFormat.h>
#include <basic/MbdVariableDetails.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What a double parameter admits: limits, a cycle, the undefined marker; and how its values show: the unit class, the
/// exponent of the unit, a display format. All numbers are in the storage unit of the unit class. Limits and step that
/// are not set hold `MbbGlobal::D_FFFF`. Setters give whether something changed.
///
/// Conversions and texts throw only what `MbuUnitService` throws where its database is missing; nothing has changed
/// then.
class KESTRIN_PARAM_EXPORT KpaDoubleConfig
{
public:
    KpaDoubleConfig();
    KpaDoubleConfig(const MbuEUnitClass& unitClass, int powerValue);

    /// All fields; also those of a custom format that is not in use.
    friend bool operator==(const KpaDoubleConfig& a, const KpaDoubleConfig& b) = default;

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
    const MbuEUnitClass& getUnitClass() const { return _unitClass; }
    /// The exponent of the unit: 2 for a surface that is measured in a unit of length.
    int getPowerValue() const { return _powerValue; }
    const QString& getUndefString() const { return _undefString; }
    bool useCustomFormat() const { return _useCustomFormat; }
    /// The last custom format, also where it is not in use.
    const MbbStringFormat& getCustomFormat() const { return _customFormat; }
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

    double fix(double value, double previous) const;
    QString toString(double value) const;
    MbbOrderedMap<QString, QString> serializeValue(double value) const;
    double unserializeValue(const MbbOrderedMap<QString, QString>& map, double previous) const;
    QString debug() const;

private:
    double _clamp(double value) const;
    double _wrappedFix(double value) const;
    bool _isUnitCompatible(const MbuUnit& unit) const;

    double _step = MbbGlobal::D_FFFF;
    double _minimum = MbbGlobal::D_FFFF;
    double _maximum = MbbGlobal::D_FFFF;
    bool _wrapped = false;
    bool _undefineEnabled = false;
    MbuEUnitClass _unitClass;
    int _powerValue;
    QString _undefString;
    bool _useCustomFormat = false;
    MbbStringFormat _customFormat;
};
