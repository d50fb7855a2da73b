#pragma once

#include <basic/MbbAFlags.h>

#include <initializer_list>

/// A set of items of the enumeration class `Enum`. A default one is empty.
///
/// A derived class that has constants must define them in the source file of `Enum`, behind its items: constants of
/// different files are made in no fixed order.
template <class Flags, class Enum>
class MbbAEnumFlags : public MbbAFlags
{
public:
    using EnumType = Enum;

    /// All items of the enumeration.
    static Flags all()
    {
        Flags flags;
        for (const Enum* item : Enum::items())
            flags.setFlag(*item);
        return flags;
    }

    bool contains(const Enum& item) const { return testFlag(item); }
    /// The items in the set, ascending by value.
    QList<Enum> getItems() const
    {
        QList<Enum> found;
        for (const Enum* item : Enum::items()) {
            if (testFlag(*item))
                found.append(*item);
        }
        return found;
    }

protected:
    MbbAEnumFlags() = default;
    MbbAEnumFlags(std::initializer_list<Enum> items)
    {
        for (const Enum& item : items)
            setFlag(item);
    }
    MbbAEnumFlags(const MbbAEnumFlags&) = default;
    MbbAEnumFlags& operator=(const MbbAEnumFlags&) = default;
    ~MbbAEnumFlags() = default;
};
