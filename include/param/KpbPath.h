#pragma once

#include <QtCore/QDataStream>
#include <QtCore/QStringList>

#include <param/KpExport.h>

#include <algorithm>

/// The address of a parameter relative to another one: a list of keys, in which ".." stands for the parent. Value
/// semantics; it survives the parameters that it names.
class KESTRIN_PARAM_EXPORT KpbPath : public QStringList
{
public:
    KpbPath() = default;
    /// A path of one entry.
    explicit KpbPath(const QString& key) : QStringList(key) {}

    /// The entry that stands for the parent.
    static const QString& getUpString();

    /// The entries joined by `separator`, or by "/" where that is empty.
    QString toString(const QString& separator = QString()) const;

    /// Lexicographic over the entries; a proper prefix comes first.
    friend bool operator<(const KpbPath& a, const KpbPath& b)
    {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end());
    }
};

KESTRIN_PARAM_EXPORT QDataStream& operator<<(QDataStream& stream, const KpbPath& path);
KESTRIN_PARAM_EXPORT QDataStream& operator>>(QDataStream& stream, KpbPath& path);
