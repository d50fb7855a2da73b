#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaFSDirectoryConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<QString, KpaFSDirectoryConfig>;

/// The path of a folder.
class KESTRIN_PARAM_EXPORT KpaFSDirectory : public KpaAAtomic<QString, KpaFSDirectoryConfig>
{
public:
    explicit KpaFSDirectory(const QString& key);
    KpaFSDirectory(const KpaFSDirectory& other, const QString& newKey);
    KpaFSDirectory* duplicate(const QString& newKey) const override;

    bool getDirectoryMustExists() const { return _config.getDirectoryMustExists(); }
    const QString& getPathId() const { return _config.getPathId(); }

    void setDirectoryMustExists(bool mustExist) { _configChangedIf(_config.setDirectoryMustExists(mustExist)); }
    void setPathId(const QString& id) { _configChangedIf(_config.setPathId(id)); }
};
