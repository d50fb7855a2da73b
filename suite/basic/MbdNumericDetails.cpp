#include <basic/MbbUserStringFormats.h>
#include <basic/MbdNumericDetails.h>

MbbStringFormat MbdNumericDetails::getStringFormat() const
{
    return _format ? *_format : MbbUserStringFormats::getStringFormat(_unitClass);
}
