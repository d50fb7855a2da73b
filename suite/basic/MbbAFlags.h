#pragma once

#include <QtCore/QList>
#include <QtCore/QSet>

#include <basic/MbbAEnum.h>

#include <algorithm>

/// Protected base of sets of enumeration items. Items are told apart by their integer values.
class KESTRIN_BASIC_EXPORT MbbAFlags
{
public:
    bool testFlag(const MbbAEnum& item) const { return _values.contains(item.getValue()); }
    void setFlag(const MbbAEnum& item, bool on = true)
    {
        if (on)
            _values.insert(item.getValue());
        else
            _values.remove(item.getValue());
    }
    bool isEmpty() const { return _values.isEmpty(); }
    int count() const { return int(_values.size()); }
    /// The values of the items in the set, ascending.
    QList<int> getValues() const
    {
        QList<int> values = _values.values();
        std::sort(values.begin(), values.end());
        return values;
    }

    friend bool operator==(const MbbAFlags& a, const MbbAFlags& b) { return a._values == b._values; }
    friend bool operator!=(const MbbAFlags& a, const MbbAFlags& b) { return a._values != b._values; }

protected:
    MbbAFlags() = default;
    MbbAFlags(const MbbAFlags&) = default;
    MbbAFlags& operator=(const MbbAFlags&) = default;
    ~MbbAFlags() = default;

private:
    QSet<int> _values;
};
