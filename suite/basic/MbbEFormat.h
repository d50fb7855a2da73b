#pragma once

#include <basic/MbbAEnumClass.h>

/// How a number is written. A default one is GENERAL.
class KESTRIN_BASIC_EXPORT MbbEFormat : public MbbAEnumClass<MbbEFormat>
{
public:
    static const MbbEFormat DECIMAL;    ///< value 0: a fixed number of decimals, "1250.00"
    static const MbbEFormat SCIENTIFIC; ///< value 1: mantissa and exponent, "1.25e+03"
    static const MbbEFormat GENERAL;    ///< value 2: the shorter of the two for a number of significant digits, "1250"

    MbbEFormat() : MbbEFormat(GENERAL) {}

    static QList<const MbbEFormat*> items();
    static constexpr const char* ClassName = "MbbEFormat";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
