#pragma once

#include <basic/MbbAEnumClass.h>

/// What the values of a variable are. A default one is DOUBLE.
class KESTRIN_BASIC_EXPORT MbdEVarType : public MbbAEnumClass<MbdEVarType>
{
public:
    static const MbdEVarType BYTE;    ///< value 0
    static const MbdEVarType INTEGER; ///< value 1
    static const MbdEVarType FLOAT;   ///< value 2
    static const MbdEVarType DOUBLE;  ///< value 3
    static const MbdEVarType BOOLEAN; ///< value 4
    static const MbdEVarType ENUM;    ///< value 5: categories of a catalog
    static const MbdEVarType STRING;  ///< value 6

    MbdEVarType() : MbdEVarType(DOUBLE) {}

    /// Whether the values are numbers in a unit; neither booleans nor categories are.
    bool isNumeric() const { return getValue() <= 3; }

    static QList<const MbdEVarType*> items();
    static constexpr const char* ClassName = "MbdEVarType";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
