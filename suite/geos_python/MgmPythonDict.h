#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>

#include <geos_python/GeosPythonExport.h>

#include <variant>

/// The variables that a condition may name, with their values. A value type; nothing of Python is in it.
class KESTRIN_GEOS_PYTHON_EXPORT MgmPythonDict
{
public:
    using Value = std::variant<double, QString>;
    using Values = QMap<QString, Value>;

    /// The new dictionary also holds what `parent` holds now.
    explicit MgmPythonDict(const MgmPythonDict* parent = nullptr);

    /// Sets the variable `name`, and replaces one of that name. As Python does, names that are the same letters
    /// otherwise composed are one name. A name that a condition cannot write down is kept and never found.
    void createString(const QString& name, const QString& value);
    void createDouble(const QString& name, double value);

    const Values& getValues() const { return _values; }

private:
    void _create(const QString& name, const Value& value);

    Values _values;
};
