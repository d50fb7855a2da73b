#pragma once

#include <geos_python/GeosPythonExport.h>

class MgmPythonDict;
class QString;

/// The Python of the process, which evaluates conditions.
///
/// A condition is one Python expression of
/// - numbers, texts on one line, `True` and `False`, and the names of the given variables;
/// - `and`, `or`, `not`, `A if C else B`, and parentheses;
/// - the comparisons `==`, `!=`, `<`, `<=`, `>`, `>=`, also in chains, and `in` and `not in` with a text or a list of
///   values in parentheses or brackets on the right;
/// - `+`, `-`, `*`, `/`, `//`, `%` and `**` of numbers, `+` of two texts, and `&`, `|` and `^` of two truth values;
/// - calls with arguments in order, of `abs`, `min` and `max` of two or more, `round`, `len`, `float`, `int`, `sqrt`,
///   `exp`, `log`, `log10`, `sin`, `cos`, `tan`, `floor`, `ceil` and `isnan`.
///
/// Everything else is refused: attributes, indices, keywords, formats, other calls. Conditions come from stored
/// documents, so none can reach the system, and each ends soon and in little memory: the text is limited to
/// `MaximumLength` characters and a depth that people do not reach, and all numbers are doubles with the arithmetic of
/// doubles. Dividing by zero gives an infinity, the root of a negative number and `float` of another text give what is
/// not a number. Thus nothing that is evaluated fails because of the values of its variables, only because of their
/// types; what `and`, `or`, `if` or a chain of comparisons passes over is not evaluated.
class KESTRIN_GEOS_PYTHON_EXPORT MgmPythonInterpreter
{
public:
    static constexpr int MaximumLength = 4096;

    MgmPythonInterpreter(const MgmPythonInterpreter&) = delete;
    MgmPythonInterpreter& operator=(const MgmPythonInterpreter&) = delete;

    /// The interpreter of the process, never null. The first call starts Python, unless the program has started one
    /// itself. It reads Python's own library alone: no environment variables, no site or user files. It lives as long
    /// as the process, so objects that die after `main` may still call it. Throws `MbeError` if Python does not start;
    /// the next call tries again.
    static MgmPythonInterpreter* getInstance();

    /// Whether Python takes the value of the condition as true.
    ///
    /// Throws `MbeUserError` for a condition that is refused, that is no Python, or that mixes texts and numbers. Its
    /// message starts with "<pre>", then comes what is wrong, then the line of the condition, and below it a "^" at the
    /// place. Throws `MbeMemoryError` if memory could not be had.
    bool evaluateCondition(const MgmPythonDict& variables, const QString& condition);

private:
    MgmPythonInterpreter() = default;
    ~MgmPythonInterpreter() = default;
};
