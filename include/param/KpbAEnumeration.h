#pragma once

#include <QtCore/QDebug>
#include <QtCore/QMap>

#include <basic/MbbAEnum.h>
#include <param/KpbFailure.h>

#include <iterator>

/// The registry and the operations that all enumeration classes of the library share. A class `E` derives from
/// `KpbAEnumeration<E>`, gives its items as static constants, and names itself:
///
///     static constexpr const char* _className = "KpbEType"; // as messages show it
///     static constexpr const char* _file = ".\\Kp";         // the source that messages name
///
/// The registry is complete once static initialisation has ended; nothing may use it before. It is ordered by value,
/// and lookups take the first item that fits. Copies of an item are values and are not registered.
template <class E>
class Q_DECL_EXPORT KpbAEnumeration : public MbbAEnum
{
public:
    /// Walks the registry in ascending order of values. It shares the map as it was when the walk began.
    class Iterator
    {
    public:
        bool hasNext() const { return _next != _items.constEnd(); }
        const E& next() { return **_next++; }

    private:
        friend class KpbAEnumeration;
        explicit Iterator(const QMap<int, E*>& items) : _items(items), _next(_items.constBegin()) {}
        Iterator(const Iterator&) = delete;
        Iterator& operator=(const Iterator&) = delete;

        const QMap<int, E*> _items;
        typename QMap<int, E*>::const_iterator _next;
    };

    static int count() { return _map.size(); }
    static Iterator createIterator() { return Iterator(_map); }

    static bool existsKey(const QString& key) { return _findKey(key); }
    static bool existsLabel(const QString& label) { return _findLabel(label); }
    static bool existsValue(int value) { return _findValue(value); }

    /// The registered item. Fails with an `MbeProgrammingError` where there is none.
    static const E& fromKey(const QString& key)
    {
        return _required(_findKey(key), "fromKey(const class QString &)", key);
    }
    static const E& fromLabel(const QString& label)
    {
        return _required(_findLabel(label), "fromLabel(const class QString &)", label);
    }
    static const E& fromValue(int value)
    {
        return _required(_findValue(value), "fromValue(int)", QString::number(value));
    }

    /// A copy of the registered item, or of `fallback` where there is none.
    static E fromKey(const QString& key, const E& fallback) { return _or(_findKey(key), fallback); }
    static E fromLabel(const QString& label, const E& fallback) { return _or(_findLabel(label), fallback); }
    static E fromValue(int value, const E& fallback) { return _or(_findValue(value), fallback); }

    friend bool operator==(const E& a, const E& b) { return a.getValue() == b.getValue(); }
    friend bool operator!=(const E& a, const E& b) { return a.getValue() != b.getValue(); }
    friend bool operator<(const E& a, const E& b) { return a.getValue() < b.getValue(); }
    friend bool operator<=(const E& a, const E& b) { return a.getValue() <= b.getValue(); }
    friend bool operator>(const E& a, const E& b) { return a.getValue() > b.getValue(); }
    friend bool operator>=(const E& a, const E& b) { return a.getValue() >= b.getValue(); }

protected:
    /// Makes an item and registers it, in the place of an earlier item of the same value.
    KpbAEnumeration(const QString& label, int value, const char* key) : MbbAEnum(label, value, key)
    {
        if (_map.contains(value))
            qDebug("%s: duplicated item %s [%d=%s]!\n", E::_className, label.toUtf8().constData(), value, key);
        _map.insert(value, static_cast<E*>(this));
    }
    KpbAEnumeration(const KpbAEnumeration&) = default;
    KpbAEnumeration& operator=(const KpbAEnumeration&) = default;
    ~KpbAEnumeration() = default;

    static QMap<int, E*> _map;

private:
    template <class Fits>
    static const E* _find(Fits fits)
    {
        for (const E* item : qAsConst(_map)) {
            if (item && fits(*item))
                return item;
        }
        return nullptr;
    }
    static const E* _findKey(const QString& key)
    {
        return _find([&](const E& item) { return item.getKey() == key; });
    }
    static const E* _findLabel(const QString& label)
    {
        return _find([&](const E& item) { return item.getLabel() == label; });
    }
    static const E* _findValue(int value) { return _map.value(value, nullptr); }

    static const E& _required(const E* item, const char* function, const QString& asked)
    {
        if (!item) {
            const QString name = QString::fromLatin1(E::_className);
            Kp::failProgramming(QStringLiteral("const class %1 &__cdecl %1::").arg(name) + QLatin1String(function),
                                QString::fromLatin1(E::_file), asked + QStringLiteral(" is not valid"));
        }
        return *item;
    }
    static E _or(const E* item, const E& fallback) { return item ? *item : fallback; }
};
