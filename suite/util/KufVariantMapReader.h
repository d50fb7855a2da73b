#pragma once

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <basic/MbeError.h>
#include <util/KufISampleFilterRule.h>

#include <algorithm>
#include <cmath>

/// Reads the fields of a rule of a sample filter from its map. A field that is missing has its default; one that cannot
/// be read is an `MbeUserError`, and so is a version that nobody writes.
class KufVariantMapReader
{
public:
    KufVariantMapReader(const QMap<QString, QVariant>& map, int version) : _map(map)
    {
        if (version != KufISampleFilterRule::MapVersion)
            throw MbeUserError(QObject::tr("A filter rule of version %1 cannot be read.").arg(version));
    }

    bool readBool(const QString& name, bool byDefault) const
    {
        return _read(name, byDefault, [](const QVariant& value, bool& result) {
            result = value.toBool();
            return value.type() == QVariant::Bool;
        });
    }
    double readDouble(const QString& name, double byDefault) const
    {
        return _read(name, byDefault, [](const QVariant& value, double& result) {
            bool isNumber = false;
            result = value.toDouble(&isNumber);
            return isNumber && std::isfinite(result);
        });
    }
    QString readText(const QString& name) const
    {
        return _read(name, QString(), [](const QVariant& value, QString& result) {
            result = value.toString();
            return value.type() == QVariant::String;
        });
    }
    QStringList readTexts(const QString& name) const
    {
        return _read(name, QStringList(), [](const QVariant& value, QStringList& result) {
            result = value.toStringList();
            const QVariantList items = value.toList();
            const auto isText = [](const QVariant& item) { return item.type() == QVariant::String; };
            return (value.type() == QVariant::StringList || value.type() == QVariant::List) &&
                   std::all_of(items.begin(), items.end(), isText);
        });
    }
    /// The item of the key.
    template <class Enum>
    Enum readEnum(const QString& name) const
    {
        return _read(name, Enum(), [](const QVariant& value, Enum& result) {
            result = Enum::fromKey(value.toString(), Enum());
            return Enum::existsKey(value.toString());
        });
    }

private:
    template <class T, class Take>
    T _read(const QString& name, const T& byDefault, Take take) const
    {
        const auto found = _map.constFind(name);
        if (found == _map.constEnd())
            return byDefault;
        T result = byDefault;
        if (!take(*found, result))
            throw MbeUserError(
                QObject::tr("'%1' of a filter rule cannot be '%2'.").arg(name, found->toString().left(100)));
        return result;
    }

    const QMap<QString, QVariant>& _map;
};
