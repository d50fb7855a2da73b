#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaFSDirectory.h>

#include <util/KusFileUtils.h>
#include <util/KusPath.h>

#include <QtCore/QDir>

template class KpaAAtomic<QString, KpaFSDirectoryConfig>;

bool KpaFSDirectoryConfig::setDirectoryMustExists(bool mustExist)
{
    return KpaConfigTools::store(_directoryMustExists, mustExist);
}

bool KpaFSDirectoryConfig::setPathId(const QString& id)
{
    return KpaConfigTools::store(_pathId, id);
}

QString KpaFSDirectoryConfig::fix(const QString& value, const QString& previous) const
{
    return KusFileUtils::fixDirectoryPath(value, previous, _directoryMustExists);
}

QString KpaFSDirectoryConfig::toString(const QString& value) const
{
    return QDir::toNativeSeparators(value);
}

MbbOrderedMap<QString, QString> KpaFSDirectoryConfig::serializeValue(const QString& value) const
{
    return KpaConfigTools::singleValue(KusPath(KusPath::Directory, value).shortPath());
}

QString KpaFSDirectoryConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const QString&) const
{
    return KusPath(KusPath::Directory, map.value(KpaConfigTools::valueKey())).absolutePath();
}

QString KpaFSDirectoryConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaFSDirectoryConfig --------\n"
                       << " must exist       = " << KpaConfigTools::yesNo(_directoryMustExists) << '\n'
                       << " path id          = " << _pathId << '\n';
    return text;
}

KpaFSDirectory::KpaFSDirectory(const QString& key) : KpaAAtomic(key, KpaFSDirectoryConfig()) {}

KpaFSDirectory::KpaFSDirectory(const KpaFSDirectory& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaFSDirectory* KpaFSDirectory::duplicate(const QString& newKey) const
{
    return new KpaFSDirectory(*this, newKey);
}
