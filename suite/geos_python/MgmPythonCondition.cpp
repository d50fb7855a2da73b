#include <pybind11/embed.h>

#include <QtCore/QSet>

#include <basic/MbeError.h>
#include <geos_python/MgmPythonCondition.h>
#include <geos_python/MgmPythonDict.h>

#include <climits>
#include <cmath>
#include <limits>
#include <map>
#include <string>

namespace py = pybind11;

namespace {

// How a call of the short list is named in the rewritten tree, which no text of a condition can name.
std::string callName(const std::string& function)
{
    return function + "()";
}

py::str toPython(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return {utf8.constData(), static_cast<std::size_t>(utf8.size())};
}

QString toText(const py::handle& object)
{
    return QString::fromStdString(py::str(object));
}

// The double that a value of a condition stands for; only doubles and truth values stand for one.
double toNumber(const py::handle& value)
{
    if (PyUnicode_Check(value.ptr()))
        throw py::type_error("A number is needed, and this is a text.");
    return value.cast<double>();
}

double toWhole(const py::handle& value)
{
    return std::trunc(toNumber(value));
}

bool toTruth(const py::handle& value)
{
    if (!PyBool_Check(value.ptr()))
        throw py::type_error("Two truth values are needed, such as those of comparisons in parentheses.");
    return value.cast<bool>();
}

double parseNumber(const py::handle& value)
{
    if (!PyUnicode_Check(value.ptr()))
        return toNumber(value);
    const auto parsed = py::reinterpret_steal<py::object>(PyFloat_FromString(value.ptr()));
    if (parsed)
        return parsed.cast<double>();
    PyErr_Clear();
    return std::nan("");
}

// Python's quotient and remainder, which have the sign of the divisor.
double modulo(double a, double b)
{
    const double rest = std::fmod(a, b);
    if (rest == 0.0)
        return std::copysign(rest, b);
    return (rest < 0.0) != (b < 0.0) ? rest + b : rest;
}

// Of what is left without the remainder: a quotient of doubles may be rounded up to the next whole number.
double floorDivide(double a, double b)
{
    if (b == 0.0)
        return a / b;
    const double rest = std::fmod(a, b);
    const double quotient = std::round((a - rest) / b);
    return rest != 0.0 && (rest < 0.0) != (b < 0.0) ? quotient - 1.0 : quotient;
}

py::object add(const py::handle& a, const py::handle& b)
{
    if (PyUnicode_Check(a.ptr()) && PyUnicode_Check(b.ptr()))
        return py::reinterpret_steal<py::object>(PyUnicode_Concat(a.ptr(), b.ptr()));
    return py::float_(toNumber(a) + toNumber(b));
}

// `pythonRound` is Python's own function, which rounds the decimal form.
double roundTo(const py::object& pythonRound, const py::handle& value, const py::handle& digits)
{
    const double number = toNumber(value);
    const double count = toWhole(digits);
    if (!std::isfinite(number) || std::isnan(count))
        return number;
    // Beyond these numbers of digits nothing is rounded, or everything.
    const int bounded = static_cast<int>(std::min(400.0, std::max(-400.0, count)));
    try {
        return pythonRound(number, bounded).cast<double>();
    }
    catch (const py::error_already_set& error) {
        if (!error.matches(PyExc_OverflowError))
            throw;
        return std::copysign(std::numeric_limits<double>::infinity(), number);
    }
}

constexpr int AnyCount = INT_MAX;

struct Function
{
    int minimum; // of arguments
    int maximum;
    py::object callable;
};

// What the rewritten trees call. Made once and never destroyed: conditions may be evaluated after `main`.
class Tables
{
public:
    Tables()
    {
        _addFunctions();
        _addOperators();
    }

    const Function* findFunction(const std::string& name) const
    {
        const auto it = _functions.find(name);
        return it == _functions.end() ? nullptr : &it->second;
    }
    // The operator's name in the rewritten tree, empty for one that no condition has.
    std::string findOperator(const py::handle& node) const
    {
        const std::string kind = py::type::of(node).attr("__name__").cast<std::string>();
        return _operators.count(kind) ? kind : std::string();
    }
    py::dict makeGlobals() const
    {
        py::dict globals;
        globals["__builtins__"] = py::dict();
        for (const auto& [name, function] : _functions)
            globals[callName(name).c_str()] = function.callable;
        for (const auto& [name, callable] : _operators)
            globals[callName(name).c_str()] = callable;
        return globals;
    }

private:
    void _addNumeric(const char* name, double (*function)(double))
    {
        _functions[name] = {1, 1, py::cpp_function([function](py::handle x) { return function(toNumber(x)); })};
    }

    void _addFunctions()
    {
        _addNumeric("abs", [](double x) { return std::fabs(x); });
        _addNumeric("sqrt", [](double x) { return std::sqrt(x); });
        _addNumeric("exp", [](double x) { return std::exp(x); });
        _addNumeric("log", [](double x) { return std::log(x); });
        _addNumeric("log10", [](double x) { return std::log10(x); });
        _addNumeric("sin", [](double x) { return std::sin(x); });
        _addNumeric("cos", [](double x) { return std::cos(x); });
        _addNumeric("tan", [](double x) { return std::tan(x); });
        _addNumeric("floor", [](double x) { return std::floor(x); });
        _addNumeric("ceil", [](double x) { return std::ceil(x); });
        _functions["isnan"] = {1, 1, py::cpp_function([](py::handle x) { return std::isnan(toNumber(x)); })};
        _functions["float"] = {1, 1, py::cpp_function([](py::handle x) { return parseNumber(x); })};
        _functions["int"] = {1, 1, py::cpp_function([](py::handle x) { return std::trunc(parseNumber(x)); })};
        _functions["len"] = {1, 1, py::cpp_function([](py::handle x) { return static_cast<double>(py::len(x)); })};
        const py::module_ builtins = py::module_::import("builtins");
        py::object round = py::cpp_function([](py::handle x) { return std::nearbyint(toNumber(x)); });
        const py::object pythonRound = builtins.attr("round");
        round = py::cpp_function([pythonRound](py::handle x, py::handle n) { return roundTo(pythonRound, x, n); },
                                 py::sibling(round));
        _functions["round"] = {1, 2, round};
        _functions["min"] = {2, AnyCount, builtins.attr("min")};
        _functions["max"] = {2, AnyCount, builtins.attr("max")};
    }

    void _addArithmetic(const char* name, double (*function)(double, double))
    {
        _operators[name] =
            py::cpp_function([function](py::handle a, py::handle b) { return function(toNumber(a), toNumber(b)); });
    }

    void _addLogical(const char* name, bool (*function)(bool, bool))
    {
        _operators[name] =
            py::cpp_function([function](py::handle a, py::handle b) { return function(toTruth(a), toTruth(b)); });
    }

    void _addOperators()
    {
        _operators["UAdd"] = py::cpp_function([](py::handle a) { return toNumber(a); });
        _operators["USub"] = py::cpp_function([](py::handle a) { return -toNumber(a); });
        _operators["Add"] = py::cpp_function([](py::handle a, py::handle b) { return add(a, b); });
        _addArithmetic("Sub", [](double a, double b) { return a - b; });
        _addArithmetic("Mult", [](double a, double b) { return a * b; });
        _addArithmetic("Div", [](double a, double b) { return a / b; });
        _addArithmetic("FloorDiv", floorDivide);
        _addArithmetic("Mod", modulo);
        _addArithmetic("Pow", [](double a, double b) { return std::pow(a, b); });
        _addLogical("BitAnd", [](bool a, bool b) { return a && b; });
        _addLogical("BitOr", [](bool a, bool b) { return a || b; });
        _addLogical("BitXor", [](bool a, bool b) { return a != b; });
    }

    std::map<std::string, Function> _functions;
    std::map<std::string, py::object> _operators; // by the kind of their nodes
};

const Tables* tables = nullptr;

// Checks a syntax tree and turns it into the tree that is evaluated. Positions stay those of the text.
class Rewriter
{
public:
    Rewriter(const MgmConditionText& text, const MgmPythonDict& variables)
        : _text(text),
          _variables(variables.getValues()),
          _ast(py::module_::import("_ast"))
    {}

    // `tree` is an Expression, which is changed.
    void rewrite(const py::object& tree) { tree.attr("body") = _rewrite(tree.attr("body"), 1); }

    // The values of the variables that the tree names.
    const py::dict& getValues() const { return _values; }

private:
    bool _isA(const py::handle& node, const char* kind) const { return py::isinstance(node, _ast.attr(kind)); }

    [[noreturn]] void _refuse(const py::handle& node, const QString& reason) const
    {
        _text.refuse(_text.getPosition(node.attr("lineno").cast<int>(), node.attr("col_offset").cast<int>()), reason);
    }

    py::object _rewrite(const py::object& node, int depth)
    {
        if (depth > MgmPythonCondition::MaximumDepth)
            _refuse(node, QStringLiteral("The condition is nested too deeply."));
        if (_isA(node, "Constant"))
            return _rewriteConstant(node);
        if (_isA(node, "Name"))
            return _rewriteName(node);
        if (_isA(node, "BoolOp"))
            return _rewriteList(node, "values", depth);
        if (_isA(node, "UnaryOp"))
            return _rewriteUnary(node, depth);
        if (_isA(node, "BinOp"))
            return _rewriteOperator(node, {node.attr("left"), node.attr("right")}, depth);
        if (_isA(node, "Compare"))
            return _rewriteCompare(node, depth);
        if (_isA(node, "IfExp"))
            return _rewriteChoice(node, depth);
        if (_isA(node, "Call"))
            return _rewriteCall(node, depth);
        _refuse(node, QStringLiteral("This is not allowed in a condition."));
    }

    py::object _rewriteConstant(const py::object& node)
    {
        const py::object value = node.attr("value");
        if (PyLong_CheckExact(value.ptr()))
            node.attr("value") = py::float_(value.cast<double>());
        else if (!PyBool_Check(value.ptr()) && !PyFloat_CheckExact(value.ptr()) && !PyUnicode_CheckExact(value.ptr()))
            _refuse(node, QStringLiteral("This value is not allowed in a condition."));
        return node;
    }

    py::object _rewriteName(const py::object& node)
    {
        const py::object id = node.attr("id");
        const QString name = toText(id);
        const auto it = _variables.constFind(name);
        if (it == _variables.constEnd())
            _refuse(node, QStringLiteral("name '%1' is not defined").arg(name));
        if (const double* number = std::get_if<double>(&*it))
            _values[id] = py::float_(*number);
        else
            _values[id] = toPython(std::get<QString>(*it));
        return node;
    }

    py::object _rewriteList(const py::object& node, const char* attribute, int depth)
    {
        py::list rewritten;
        for (const py::handle child : node.attr(attribute))
            rewritten.append(_rewrite(py::reinterpret_borrow<py::object>(child), depth + 1));
        node.attr(attribute) = rewritten;
        return node;
    }

    py::object _rewriteUnary(const py::object& node, int depth)
    {
        if (!_isA(node.attr("op"), "Not"))
            return _rewriteOperator(node, {node.attr("operand")}, depth);
        node.attr("operand") = _rewrite(node.attr("operand"), depth + 1);
        return node;
    }

    py::object _rewriteOperator(const py::object& node, const std::vector<py::object>& operands, int depth)
    {
        const std::string name = tables->findOperator(node.attr("op"));
        if (name.empty())
            _refuse(node, QStringLiteral("This operator is not allowed in a condition."));
        py::list arguments;
        for (const py::object& operand : operands)
            arguments.append(_rewrite(operand, depth + 1));
        return _makeCall(node, name, arguments);
    }

    py::object _rewriteCompare(const py::object& node, int depth)
    {
        node.attr("left") = _rewrite(node.attr("left"), depth + 1);
        const py::list operators = node.attr("ops");
        const py::list operands = node.attr("comparators");
        for (std::size_t i = 0; i < operands.size(); ++i) {
            const py::object operand = operands[i];
            const bool isMembership = _isA(operators[i], "In") || _isA(operators[i], "NotIn");
            if (_isA(operators[i], "Is") || _isA(operators[i], "IsNot"))
                _refuse(operand, QStringLiteral("This operator is not allowed in a condition."));
            if (isMembership && (_isA(operand, "Tuple") || _isA(operand, "List")))
                _rewriteList(operand, "elts", depth + 1);
            else
                operands[i] = _rewrite(operand, depth + 1);
        }
        return node;
    }

    py::object _rewriteChoice(const py::object& node, int depth)
    {
        for (const char* part : {"test", "body", "orelse"})
            node.attr(part) = _rewrite(node.attr(part), depth + 1);
        return node;
    }

    py::object _rewriteCall(const py::object& node, int depth)
    {
        const py::object called = node.attr("func");
        const std::string name = _isA(called, "Name") ? called.attr("id").cast<std::string>() : std::string();
        const Function* function = tables->findFunction(name);
        if (!function)
            _refuse(called, QStringLiteral("There is no such function in a condition."));
        if (py::len(node.attr("keywords")) > 0)
            _refuse(node, QStringLiteral("Arguments with names are not allowed in a condition."));
        const auto count = static_cast<int>(py::len(node.attr("args")));
        if (count < function->minimum || count > function->maximum)
            _refuse(node, QStringLiteral("%1() cannot take %2 argument(s).").arg(toText(py::str(name))).arg(count));
        _rewriteList(node, "args", depth);
        return _makeCall(node, name, node.attr("args"));
    }

    // A call at the place of `node`.
    py::object _makeCall(const py::object& node, const std::string& name, const py::list& arguments)
    {
        const py::object load = _ast.attr("Load")();
        const py::object callee = _ast.attr("Name")(py::str(callName(name)), load);
        py::object call = _ast.attr("Call")(callee, arguments, py::list());
        for (const char* place : {"lineno", "col_offset", "end_lineno", "end_col_offset"}) {
            callee.attr(place) = node.attr(place);
            call.attr(place) = node.attr(place);
        }
        return call;
    }

    const MgmConditionText& _text;
    const MgmPythonDict::Values& _variables;
    py::module_ _ast;
    py::dict _values;
};

py::object compile(const py::object& source, int flags)
{
    return py::module_::import("builtins").attr("compile")(source, "<condition>", "eval", flags, true);
}

// The place of what Python refused while it parsed.
int getSyntaxErrorPosition(const MgmConditionText& text, const py::object& error)
{
    const py::object line = error.attr("lineno");
    const py::object offset = error.attr("offset");
    if (line.is_none() || offset.is_none())
        return 0;
    // Python gives 0 where something is missing at the end of the line.
    const int character = offset.cast<int>();
    return text.getPositionOfCharacter(line.cast<int>(), character > 0 ? character - 1 : INT_MAX);
}

// The place of what failed while the condition was evaluated: where the instruction comes from that raised.
int getRuntimeErrorPosition(const MgmConditionText& text, const py::object& trace)
{
    if (!trace || trace.is_none())
        return 0;
    const py::list places(trace.attr("tb_frame").attr("f_code").attr("co_positions")());
    const auto at = trace.attr("tb_lasti").cast<std::size_t>() / 2;
    if (at >= places.size())
        return 0;
    const py::tuple place = places[at];
    if (place[0].is_none() || place[2].is_none())
        return 0;
    return text.getPosition(place[0].cast<int>(), place[2].cast<int>());
}

[[noreturn]] void refuse(const MgmConditionText& text, const py::error_already_set& error)
{
    if (error.matches(PyExc_MemoryError))
        throw MbeMemoryError(QStringLiteral("There is not enough memory to evaluate a condition."));
    if (error.matches(PyExc_SyntaxError))
        text.refuse(getSyntaxErrorPosition(text, error.value()), toText(error.value().attr("msg")));
    text.refuse(getRuntimeErrorPosition(text, error.trace()), toText(error.value()));
}

} // namespace

void MgmPythonCondition::prepare()
{
    if (!tables)
        tables = new Tables;
}

bool MgmPythonCondition::evaluate(const MgmPythonDict& variables, const QString& text)
{
    const MgmConditionText condition(text);
    try {
        const py::object onlyTree = py::module_::import("_ast").attr("PyCF_ONLY_AST");
        const py::object tree = compile(toPython(condition.getText()), onlyTree.cast<int>());
        Rewriter rewriter(condition, variables);
        rewriter.rewrite(tree);
        const py::object code = compile(tree, 0);
        const py::dict globals = tables->makeGlobals();
        const auto result =
            py::reinterpret_steal<py::object>(PyEval_EvalCode(code.ptr(), globals.ptr(), rewriter.getValues().ptr()));
        const int truth = result ? PyObject_IsTrue(result.ptr()) : -1;
        if (truth < 0)
            throw py::error_already_set();
        return truth != 0;
    }
    catch (const py::error_already_set& error) {
        refuse(condition, error);
    }
}
