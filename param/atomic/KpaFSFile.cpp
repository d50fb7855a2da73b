#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaFSFile.h>

#include <util/KuaApplication.h>
#include <util/KusFileUtils.h>
#include <util/KusPath.h>

#include <QtCore/QDir>

template class KpaAAtomic<QString, KpaFSFileConfig>;

using KpaConfigTools::store;

bool KpaFSFileConfig::addFilter(const QString& name, const QStringList& patterns)
{
    if (name.isEmpty() || patterns.isEmpty() || getFilter(name) == patterns)
        return false;
    _filters.insert(name, patterns);
    return true;
}

bool KpaFSFileConfig::clearFilters()
{
    return setFilters(Filters());
}

bool KpaFSFileConfig::setFilters(const Filters& filters)
{
    return store(_filters, filters);
}

bool KpaFSFileConfig::setOpenMode(bool open)
{
    return store(_openMode, open);
}

bool KpaFSFileConfig::setAnyFileAllowed(bool allowed)
{
    return store(_anyFileAllowed, allowed);
}

bool KpaFSFileConfig::setPathId(const QString& id)
{
    return store(_pathId, id);
}

QStringList KpaFSFileConfig::_allPatterns() const
{
    QStringList patterns;
    for (const auto& filter : _filters)
        patterns += filter.value;
    return patterns;
}

QString KpaFSFileConfig::fix(const QString& value, const QString& previous) const
{
    return KusFileUtils::fixFilePath(value, previous, _anyFileAllowed, _allPatterns(), _openMode);
}

QString KpaFSFileConfig::toString(const QString& value) const
{
    return KuaApplication::isRunningTest() ? KusPath(KusPath::File, value).shortPath()
                                           : QDir::toNativeSeparators(value);
}

MbbOrderedMap<QString, QString> KpaFSFileConfig::serializeValue(const QString& value) const
{
    return KpaConfigTools::singleValue(KusPath(KusPath::File, value).shortPath());
}

QString KpaFSFileConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const QString&) const
{
    return KusPath(KusPath::File, map.value(KpaConfigTools::valueKey())).absolutePath();
}

QString KpaFSFileConfig::debug() const
{
    QString text;
    QTextStream stream(&text);
    stream << "----- KpaFSFileConfig --------\n"
           << " mode             = " << (_openMode ? "Open" : "Save") << '\n'
           << " filters          = ";
    for (const auto& [name, patterns] : _filters)
        stream << QStringLiteral("%1 (%2) ").arg(name, patterns.join(QLatin1Char(' ')));
    stream << '\n'
           << " any file allowed = " << KpaConfigTools::yesNo(_anyFileAllowed) << '\n'
           << " path id          = " << _pathId << '\n';
    stream.flush();
    return text;
}

KpaFSFile::KpaFSFile(const QString& key) : KpaAAtomic(key, KpaFSFileConfig()) {}

KpaFSFile::KpaFSFile(const KpaFSFile& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaFSFile* KpaFSFile::duplicate(const QString& newKey) const
{
    return new KpaFSFile(*this, newKey);
}
