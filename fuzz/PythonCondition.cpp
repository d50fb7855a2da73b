// A condition on samples: it is true, false, or refused with the line that is wrong.
#include "Fuzzing.h"

#include <basic/MbeError.h>
#include <geos_python/MgmPythonDict.h>
#include <geos_python/MgmPythonInterpreter.h>

namespace {

MgmPythonDict makeVariables()
{
    MgmPythonDict variables;
    variables.createDouble("CU", 0.5);
    variables.createString("ROCK", "Sand");
    return variables;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MgmPythonDict variables = makeVariables();
    try {
        MgmPythonInterpreter::getInstance()->evaluateCondition(variables, QString::fromUtf8(bytesOf(data, size)));
    }
    catch (const MbeUserError& error) {
        require(error.getMessage().startsWith("<pre>"), "a refused condition is shown", error.getMessage().toUtf8());
    }
    return 0;
}
