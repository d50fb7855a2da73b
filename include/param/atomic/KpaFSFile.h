#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaFSFileConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<QString, KpaFSFileConfig>;

/// The path of a file to open or to save.
class KESTRIN_PARAM_EXPORT KpaFSFile : public KpaAAtomic<QString, KpaFSFileConfig>
{
public:
    explicit KpaFSFile(const QString& key);
    KpaFSFile(const KpaFSFile& other, const QString& newKey);
    KpaFSFile* duplicate(const QString& newKey) const override;

    const KpaFSFileConfig::Filters& getFilters() const { return _config.getFilters(); }
    /// Empty where there is no such filter.
    QStringList getFilter(const QString& name) const { return _config.getFilter(name); }
    bool getOpenMode() const { return _config.getOpenMode(); }
    bool isAnyFileAllowed() const { return _config.isAnyFileAllowed(); }
    const QString& getPathId() const { return _config.getPathId(); }

    /// Stores the patterns under `name`, which keeps its place if it is there. An empty name or list is ignored.
    void addFilter(const QString& name, const QStringList& patterns)
    {
        _configChangedIf(_config.addFilter(name, patterns));
    }
    void clearFilters() { _configChangedIf(_config.clearFilters()); }
    void setFilters(const KpaFSFileConfig::Filters& filters) { _configChangedIf(_config.setFilters(filters)); }
    void setOpenMode(bool open) { _configChangedIf(_config.setOpenMode(open)); }
    void setAnyFileAllowed(bool allowed) { _configChangedIf(_config.setAnyFileAllowed(allowed)); }
    void setPathId(const QString& id) { _configChangedIf(_config.setPathId(id)); }
};
