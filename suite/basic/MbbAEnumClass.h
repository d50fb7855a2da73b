#pragma once

#include <QtCore/QList>

#include <basic/MbbAEnum.h>
#include <basic/MbeError.h>

/// The operations of an enumeration class whose items are the static constants of `Item`. `Item` derives from it and
/// gives
///
/// - `static QList<const Item*> items()`: the addresses of its constants, ascending by value;
/// - `static constexpr const char* ClassName`: its name in messages.
///
/// Items are compared by value. Keys are compared exactly.
template <class Item>
class MbbAEnumClass : public MbbAEnum
{
public:
    /// Walks the items in ascending order of values.
    class Iterator
    {
    public:
        bool hasNext() const { return _next < _items.size(); }
        const Item& next() { return *_items.at(_next++); }

    private:
        friend class MbbAEnumClass;
        explicit Iterator(const QList<const Item*>& items) : _items(items) {}

        const QList<const Item*> _items;
        int _next = 0;
    };

    static int count() { return Item::items().count(); }
    static Iterator createIterator() { return Iterator(Item::items()); }

    static bool existsKey(const QString& key) { return _find(key, &MbbAEnum::getKey) != nullptr; }
    static bool existsLabel(const QString& label) { return _find(label, &MbbAEnum::getLabel) != nullptr; }
    static bool existsValue(int value) { return _find(value, &MbbAEnum::getValue) != nullptr; }

    /// The item; an `MbeProgrammingError` if there is none.
    static const Item& fromKey(const QString& key)
    {
        return _require(_find(key, &MbbAEnum::getKey), QStringLiteral("key"), key);
    }
    static const Item& fromLabel(const QString& label)
    {
        return _require(_find(label, &MbbAEnum::getLabel), QStringLiteral("label"), label);
    }
    static const Item& fromValue(int value)
    {
        return _require(_find(value, &MbbAEnum::getValue), QStringLiteral("value"), QString::number(value));
    }

    /// The item, or `fallback` if there is none.
    static Item fromKey(const QString& key, const Item& fallback)
    {
        return _orElse(_find(key, &MbbAEnum::getKey), fallback);
    }
    static Item fromLabel(const QString& label, const Item& fallback)
    {
        return _orElse(_find(label, &MbbAEnum::getLabel), fallback);
    }
    static Item fromValue(int value, const Item& fallback)
    {
        return _orElse(_find(value, &MbbAEnum::getValue), fallback);
    }

    friend bool operator==(const Item& a, const Item& b) { return a.getValue() == b.getValue(); }
    friend bool operator!=(const Item& a, const Item& b) { return a.getValue() != b.getValue(); }
    friend bool operator<(const Item& a, const Item& b) { return a.getValue() < b.getValue(); }
    friend bool operator<=(const Item& a, const Item& b) { return a.getValue() <= b.getValue(); }
    friend bool operator>(const Item& a, const Item& b) { return a.getValue() > b.getValue(); }
    friend bool operator>=(const Item& a, const Item& b) { return a.getValue() >= b.getValue(); }

protected:
    using MbbAEnum::MbbAEnum;
    MbbAEnumClass(const MbbAEnumClass&) = default;
    MbbAEnumClass& operator=(const MbbAEnumClass&) = default;
    ~MbbAEnumClass() = default;

private:
    template <class T, class Result>
    static const Item* _find(const T& wanted, Result (MbbAEnum::*getter)() const)
    {
        for (const Item* item : Item::items()) {
            if ((item->*getter)() == wanted)
                return item;
        }
        return nullptr;
    }
    static const Item& _require(const Item* item, const QString& what, const QString& wanted)
    {
        if (!item)
            throw MbeProgrammingError(QStringLiteral("%1 has no item of the %2 '%3'.")
                                          .arg(QString::fromLatin1(Item::ClassName), what, wanted));
        return *item;
    }
    static Item _orElse(const Item* item, const Item& fallback) { return item ? *item : fallback; }
};
