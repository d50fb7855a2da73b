#pragma once

#include <basic/MbbEFormat.h>
#include <basic/MbuUnit.h>

#include <optional>

/// How numbers of a unit class are shown: the unit to show them in, the notation, the text for undefined values. A
/// plain value. Texts are those of the C locale and the same on every machine.
class KESTRIN_BASIC_EXPORT MbbStringFormat
{
public:
    static constexpr int DefaultPrecision = 10;
    static constexpr int MaximumPrecision = 17;

    /// Shows plain numbers with ten significant digits.
    MbbStringFormat();
    /// The same for values of `unitClass`, shown in its storage unit.
    explicit MbbStringFormat(const MbuEUnitClass& unitClass);
    /// For plain numbers, followed by `symbol`.
    MbbStringFormat(const MbbEFormat& notation, int precision, const QString& symbol);

    /// The class of the display unit.
    const MbuEUnitClass& getUnitClass() const { return _unit.getUnitClass(); }

    const MbuUnit& getDisplayUnit() const { return _unit; }
    /// The unit brings its class along.
    void setDisplayUnit(const MbuUnit& unit) { _unit = unit; }

    const MbbEFormat& getNotation() const { return _notation; }
    void setNotation(const MbbEFormat& notation) { _notation = notation; }

    /// The number of decimals, for GENERAL of significant digits.
    int getPrecision() const { return _precision; }
    /// Values outside 0 to `MaximumPrecision` are moved to the nearer bound.
    void setPrecision(int precision);

    /// The custom symbol if there is one, even an empty one, otherwise that of the display unit.
    QString getSymbol() const { return _symbol.value_or(_unit.getSymbol()); }
    bool hasCustomSymbol() const { return _symbol.has_value(); }
    void setCustomSymbol(const QString& symbol) { _symbol = symbol; }
    void unsetCustomSymbol() { _symbol.reset(); }
    /// The symbol raised to a power, as `MbuUnitService::poweredUnitSymbol` writes it.
    QString getDisplayUnitSymbol(int powerValue) const;

    /// What an undefined value shows; initially `MbbGlobal::STR_NA`.
    const QString& getUndefinedText() const { return _undefinedText; }
    void setUndefinedText(const QString& text) { _undefinedText = text; }

    /// The text of `value`, which is given in the storage unit raised to `powerValue` and shown in the display unit
    /// raised to the same power. `showSymbol` other than 0 appends the symbol: after a blank, or at once for "°", "′"
    /// and "″". The text is filled up with blanks on the left to `minimumWidth` characters. The undefined marker
    /// `MbbGlobal::D_FFFF` gives the undefined text if `undefineEnabled`, otherwise an empty one, filled up alike. A
    /// number that rounds to zero has no sign. Throws what `MbuUnitService` throws without its database.
    QString valueToString(double value, int powerValue = 1, int showSymbol = 1, int minimumWidth = 0,
                          bool undefineEnabled = true) const;

    /// True when both would give the same text for every value.
    bool _isEqual(const MbbStringFormat& other) const;
    friend bool operator==(const MbbStringFormat& a, const MbbStringFormat& b) { return a._isEqual(b); }
    friend bool operator!=(const MbbStringFormat& a, const MbbStringFormat& b) { return !a._isEqual(b); }

private:
    QString _numberText(double value) const;

    MbuUnit _unit;
    MbbEFormat _notation;
    int _precision = DefaultPrecision;
    QString _undefinedText;
    std::optional<QString> _symbol;
};
