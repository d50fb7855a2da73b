#pragma once

#include <geos_python/MgmConditionText.h>

class MgmPythonDict;

/// One condition on its way through Python: parsed to Python's syntax tree, checked and rewritten node by node so that
/// only the parts of a condition and the arithmetic of doubles are left, compiled, evaluated. The caller holds the lock
/// of the interpreter.
class MgmPythonCondition
{
public:
    static constexpr int MaximumDepth = 200;

    /// Makes what all conditions share. Called once, when the interpreter stands.
    static void prepare();

    /// Throws as MgmPythonInterpreter::evaluateCondition does.
    static bool evaluate(const MgmPythonDict& variables, const QString& text);
};
