#pragma once

#include <basic/MbdVariableDetails.h>

/// Makes details records.
class KESTRIN_BASIC_EXPORT MbdVariableDetailsHelper
{
public:
    /// Details of numbers of `unitClass`, of power 1 and in the default format of the class.
    static MbdVariableDetails createDetails(const MbuEUnitClass& unitClass);
};
