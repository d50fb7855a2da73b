#pragma once

#include <QtCore/QString>

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What a folder parameter admits. Setters give whether something changed.
class KESTRIN_PARAM_EXPORT KpaFSDirectoryConfig
{
public:
    /// All fields.
    friend bool operator==(const KpaFSDirectoryConfig& a, const KpaFSDirectoryConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::FS_DIRECTORY; }
    QString getInitialValue() const { return {}; }

    bool getDirectoryMustExists() const { return _directoryMustExists; }
    /// The id under which a file dialog remembers its folder.
    const QString& getPathId() const { return _pathId; }

    bool setDirectoryMustExists(bool mustExist);
    bool setPathId(const QString& id);

    QString fix(const QString& value, const QString& previous) const;
    /// In the form of the system.
    QString toString(const QString& value) const;
    /// In the short form, which does not depend on the machine.
    MbbOrderedMap<QString, QString> serializeValue(const QString& value) const;
    QString unserializeValue(const MbbOrderedMap<QString, QString>& map, const QString& previous) const;
    QString debug() const;

private:
    bool _directoryMustExists = false;
    QString _pathId;
};
