#include <geos_python/MgmPythonDict.h>

MgmPythonDict::MgmPythonDict(const MgmPythonDict* parent)
{
    if (parent)
        _values = parent->_values;
}

void MgmPythonDict::createString(const QString& name, const QString& value)
{
    _create(name, value);
}

void MgmPythonDict::createDouble(const QString& name, double value)
{
    _create(name, value);
}

void MgmPythonDict::_create(const QString& name, const Value& value)
{
    _values.insert(name.normalized(QString::NormalizationForm_KC), value);
}
