#pragma once

#include <QtCore/QString>

#include <basic/BasicExport.h>

/// Protected base of the enumeration classes: a stable key, a label for people and an integer value.
class KESTRIN_BASIC_EXPORT MbbAEnum
{
public:
    const QString& getKey() const { return _key; }
    const QString& getLabel() const { return _label; }
    int getValue() const { return _value; }

protected:
    MbbAEnum(const QString& label, int value, const char* key)
        : _key(QString::fromLatin1(key)),
          _label(label),
          _value(value)
    {}
    MbbAEnum(const MbbAEnum&) = default;
    MbbAEnum& operator=(const MbbAEnum&) = default;
    ~MbbAEnum() = default;

private:
    QString _key;
    QString _label;
    int _value;
};
