#include <basic/MbdVariableDetailsHelper.h>

MbdVariableDetails MbdVariableDetailsHelper::createDetails(const MbuEUnitClass& unitClass)
{
    return MbdVariableDetails(unitClass);
}
