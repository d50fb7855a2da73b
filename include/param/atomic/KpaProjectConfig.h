#pragma once

#include <QtCore/QUrl>

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// Any URL of a project is admitted. It has no state.
class KESTRIN_PARAM_EXPORT KpaProjectConfig
{
public:
    friend bool operator==(const KpaProjectConfig&, const KpaProjectConfig&) { return true; }

    const KpbEType& getType() const { return KpbEType::PROJECT; }
    QUrl getInitialValue() const { return {}; }

    QUrl fix(const QUrl& value, const QUrl&) const { return value; }
    /// The name of the project; empty if no such project is open.
    QString toString(const QUrl& value) const;
    MbbOrderedMap<QString, QString> serializeValue(const QUrl& value) const;
    QUrl unserializeValue(const MbbOrderedMap<QString, QString>& map, const QUrl& previous) const;
    QString debug() const;
};
