#pragma once

#include <QtCore/QMap>
#include <QtCore/QStringList>

#include <study/KssDoubleListInfo.h>
#include <study/KssEDoubleListType.h>

/// The lists of numbers that the process knows by name, in several parts. It is empty at first and used on one thread.
class KESTRIN_STUDY_EXPORT KssDoubleListRegistry
{
public:
    KssDoubleListRegistry(const KssDoubleListRegistry&) = delete;
    KssDoubleListRegistry& operator=(const KssDoubleListRegistry&) = delete;

    /// Never null; it lives as long as the process.
    static KssDoubleListRegistry* getInstance();

    /// Invalid if the part has no list of the name.
    KssDoubleListInfo getInfo(const KssEDoubleListType& type, const QString& name) const;
    /// The names of the part, sorted.
    QStringList getNames(const KssEDoubleListType& type) const;
    /// Keeps the list, in place of the one of the name. An empty name is an `MbeProgrammingError`.
    void setList(const KssEDoubleListType& type, const QString& name, const MbuEUnitClass& unitClass,
                 const QList<double>& list);
    /// Nothing happens if there is no such list.
    void removeList(const KssEDoubleListType& type, const QString& name);

private:
    KssDoubleListRegistry() = default;

    QMap<int, QMap<QString, KssDoubleListInfo>> _parts;
};
