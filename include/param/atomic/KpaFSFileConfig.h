#pragma once

#include <QtCore/QStringList>

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What a file parameter admits. Setters give whether something changed.
class KESTRIN_PARAM_EXPORT KpaFSFileConfig
{
public:
    using Filters = MbbOrderedMap<QString, QStringList>;

    /// All fields.
    friend bool operator==(const KpaFSFileConfig& a, const KpaFSFileConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::FS_FILE; }
    QString getInitialValue() const { return {}; }

    /// Lists of patterns such as "*.txt", by the name of the filter.
    const Filters& getFilters() const { return _filters; }
    /// Empty where there is no such filter.
    QStringList getFilter(const QString& name) const { return _filters.value(name); }
    /// True to open an existing file, false to save.
    bool getOpenMode() const { return _openMode; }
    /// Whether the file need not match a filter.
    bool isAnyFileAllowed() const { return _anyFileAllowed; }
    /// The id under which a file dialog remembers its folder.
    const QString& getPathId() const { return _pathId; }

    /// Stores the patterns under `name`, which keeps its place if it is there. An empty name or list is ignored.
    bool addFilter(const QString& name, const QStringList& patterns);
    bool clearFilters();
    bool setFilters(const Filters& filters);
    bool setOpenMode(bool open);
    bool setAnyFileAllowed(bool allowed);
    bool setPathId(const QString& id);

    QString fix(const QString& value, const QString& previous) const;
    /// In the form of the system; while the program runs as a test, in the short form.
    QString toString(const QString& value) const;
    /// In the short form, which does not depend on the machine.
    MbbOrderedMap<QString, QString> serializeValue(const QString& value) const;
    QString unserializeValue(const MbbOrderedMap<QString, QString>& map, const QString& previous) const;
    QString debug() const;

private:
    QStringList _allPatterns() const;

    Filters _filters;
    bool _openMode = true;
    bool _anyFileAllowed = true;
    QString _pathId;
};
