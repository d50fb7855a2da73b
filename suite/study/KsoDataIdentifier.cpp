#include <study/Ks.h>
#include <study/KsmModelData.h>
#include <study/KsoDataIdentifier.h>

#include <QtCore/QUrl>

#include <algorithm>
#include <functional>
#include <tuple>

KsoDataIdentifier::KsoDataIdentifier(KsmModelData* model, const KsoEDataType& type, const QStringList& path,
                                     const QString& file, const QString& support, const QString& name)
    : KsoAItemIdentifier(model),
      _named(true),
      _type(type),
      _path(path),
      _file(file),
      _support(support),
      _name(name)
{}

KsoDataIdentifier KsoDataIdentifier::directory(KsmModelData* model, const QStringList& path)
{
    return {model, KsoEDataType::DIRECTORY, path};
}

KsoDataIdentifier KsoDataIdentifier::file(KsmModelData* model, const QStringList& path, const QString& file)
{
    return {model, KsoEDataType::FILE, path, file};
}

KsoDataIdentifier KsoDataIdentifier::support(KsmModelData* model, const QStringList& path, const QString& file,
                                             const QString& support)
{
    return {model, KsoEDataType::SUPPORT, path, file, support};
}

KsoDataIdentifier KsoDataIdentifier::variable(KsmModelData* model, const QStringList& path, const QString& file,
                                              const QString& support, const QString& name)
{
    return {model, KsoEDataType::VARIABLE, path, file, support, name};
}

KsoDataIdentifier KsoDataIdentifier::macroVariable(KsmModelData* model, const QStringList& path, const QString& file,
                                                   const QString& support, const QString& name)
{
    return {model, KsoEDataType::MACRO_VARIABLE, path, file, support, name};
}

KsoDataIdentifier KsoDataIdentifier::fromMap(const MbbOrderedMap<QString, QString>& map, KsmModelData* model)
{
    const QStringList path = map.value(Ks::KEY_PATH).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    const QString file = map.value(Ks::KEY_FILE);
    const QString variable = map.value(Ks::KEY_NAME);
    const QString macroVariable = map.value(Ks::KEY_MACRO);
    const QString name = variable.isEmpty() ? macroVariable : variable;
    QString support = map.value(Ks::KEY_SUPPORT);
    if (file.isEmpty()) {
        const bool isDirectory = map.contains(Ks::KEY_PATH) && support.isEmpty() && name.isEmpty();
        return isDirectory ? directory(model, path) : KsoDataIdentifier();
    }
    const KsoDataIdentifier fileIdent = KsoDataIdentifier::file(model, path, file);
    if (name.isEmpty())
        return support.isEmpty() ? fileIdent : KsoDataIdentifier::support(model, path, file, support);
    if (const KsoDataSupport* unique = support.isEmpty() ? fileIdent.getSupport() : nullptr)
        support = unique->getName();
    const KsoEDataType& type = variable.isEmpty() ? KsoEDataType::MACRO_VARIABLE : KsoEDataType::VARIABLE;
    return {model, type, path, file, support, name};
}

QString KsoDataIdentifier::getName() const
{
    if (_type == KsoEDataType::DIRECTORY)
        return _path.isEmpty() ? QString() : _path.last();
    if (_type == KsoEDataType::FILE)
        return _file;
    return _type == KsoEDataType::SUPPORT ? _support : _name;
}

MbbOrderedMap<QString, QString> KsoDataIdentifier::toMap(bool complete) const
{
    MbbOrderedMap<QString, QString> map;
    if (isNull())
        return map;
    const auto insertFrom = [&](const KsoEDataType& type, const QString& key, const QString& text) {
        if (_type == type || (complete && _type > type))
            map.insert(key, text);
    };
    insertFrom(KsoEDataType::DIRECTORY, Ks::KEY_PATH, complete ? _path.join(QLatin1Char('/')) : getName());
    insertFrom(KsoEDataType::FILE, Ks::KEY_FILE, _file);
    if (!_support.isEmpty())
        insertFrom(KsoEDataType::SUPPORT, Ks::KEY_SUPPORT, _support);
    if (_type == KsoEDataType::VARIABLE)
        map.insert(Ks::KEY_NAME, _name);
    if (_type == KsoEDataType::MACRO_VARIABLE)
        map.insert(Ks::KEY_MACRO, _name);
    return map;
}

void KsoDataIdentifier::clean() const
{
    _item = nullptr;
    _itemState = 0;
}

KsmModelData* KsoDataIdentifier::getModel() const
{
    return static_cast<KsmModelData*>(KsoAItemIdentifier::getModel());
}

KsoDataIdentifier KsoDataIdentifier::getParent() const
{
    if (isNull() || isRoot())
        return {};
    if (_type == KsoEDataType::DIRECTORY)
        return directory(getModel(), _path.mid(0, _path.count() - 1));
    if (_type == KsoEDataType::FILE)
        return directory(getModel(), _path);
    if (_type == KsoEDataType::SUPPORT || _support.isEmpty())
        return file(getModel(), _path, _file);
    return support(getModel(), _path, _file, _support);
}

KsoDataIdentifier KsoDataIdentifier::_ancestor(const KsoEDataType& type) const
{
    KsoDataIdentifier ident = *this;
    while (ident._type > type)
        ident = ident.getParent();
    return ident;
}

bool KsoDataIdentifier::isAncestorOf(const KsoDataIdentifier& other) const
{
    return !isNull() && !other.isNull() && getModel() == other.getModel() && other != *this && other._isInside(*this);
}

bool KsoDataIdentifier::_isInside(const KsoDataIdentifier& root) const
{
    if (root._type == KsoEDataType::DIRECTORY)
        return root._path.count() <= _path.count() && std::equal(root._path.begin(), root._path.end(), _path.begin());
    if (_type <= root._type || _path != root._path || _file != root._file)
        return false;
    if (root._type == KsoEDataType::FILE)
        return true;
    return root._type == KsoEDataType::SUPPORT && _support == root._support;
}

KsoDataIdentifier KsoDataIdentifier::changeRoot(const KsoDataIdentifier& root) const
{
    if (isNull() || root.isNull() || root.isAncestorOf(*this))
        return *this;
    if (_type <= root._type || root._type >= KsoEDataType::VARIABLE)
        return _type == root._type ? root : *this;
    if (root._type == KsoEDataType::DIRECTORY)
        return {root.getModel(), _type, _isInside(root) ? _path : root._path, _file, _support, _name};
    const QString support = root._type == KsoEDataType::FILE ? root._supportLike(_support) : root._support;
    return {root.getModel(), _type, root._path, root._file, support, _name};
}

QString KsoDataIdentifier::_supportLike(const QString& name) const
{
    const KsoDataFile* file = getFile();
    if (!file || file->getChildItem(KsoEDataType::SUPPORT, name))
        return name;
    const KsoDataSupport* unique = file->getUniqueSupport();
    return unique ? unique->getName() : name;
}

KsoADataItem* KsoDataIdentifier::getDataItem() const
{
    return static_cast<KsoADataItem*>(getItem());
}

KsoDataFile* KsoDataIdentifier::getFile() const
{
    return dynamic_cast<KsoDataFile*>(_ancestor(KsoEDataType::FILE).getDataItem());
}

KsoDataSupport* KsoDataIdentifier::getSupport() const
{
    KsoADataItem* item = _ancestor(KsoEDataType::SUPPORT).getDataItem();
    if (const auto* file = dynamic_cast<KsoDataFile*>(item))
        return file->getUniqueSupport();
    return dynamic_cast<KsoDataSupport*>(item);
}

KsoAVariableItem* KsoDataIdentifier::getAVariableItem() const
{
    return dynamic_cast<KsoAVariableItem*>(getDataItem());
}

KsoDataMacroVariable* KsoDataIdentifier::getMacroVariable() const
{
    return dynamic_cast<KsoDataMacroVariable*>(getDataItem());
}

QStringList KsoDataIdentifier::_names() const
{
    QStringList names = _path;
    for (const QString& name : {_file, _support, _name}) {
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

QString KsoDataIdentifier::toString() const
{
    return isRoot() ? QStringLiteral("/") : _names().join(QLatin1Char('/'));
}

QString KsoDataIdentifier::toString(const KsoDataIdentifier& root) const
{
    return root.isAncestorOf(*this) ? QStringList(_names().mid(root._names().count())).join(QLatin1Char('/'))
                                    : toString();
}

QString KsoDataIdentifier::encode() const
{
    if (isNull())
        return QString();
    QStringList parts;
    for (const QString& name : _path)
        parts.append(QString::fromLatin1(QUrl::toPercentEncoding(name)));
    const QStringList own{_file, _support, _name};
    for (int level = 0; level < std::min(_type.getValue(), 3); ++level)
        parts.append(QString::fromLatin1(QUrl::toPercentEncoding(own.at(level))));
    return _type.getKey() + QLatin1Char(':') + parts.join(QLatin1Char('/'));
}

bool KsoDataIdentifier::_isEqual(const KsoDataIdentifier& other) const
{
    return _named == other._named && _type == other._type && _name == other._name && _support == other._support &&
           _file == other._file && _path == other._path && getModel() == other.getModel();
}

bool KsoDataIdentifier::_isLess(const KsoDataIdentifier& other) const
{
    const auto rank = [](const KsoDataIdentifier& ident) {
        return std::tie(ident._named, ident._path, ident._file, ident._support, ident._name, ident._type);
    };
    if (rank(*this) < rank(other))
        return true;
    return !(rank(other) < rank(*this)) && std::less<const KsmModelData*>()(getModel(), other.getModel());
}

uint KsoDataIdentifier::_hash(uint seed) const
{
    return qHash(_path, seed) ^ (qHash(_file, seed) * 3) ^ (qHash(_support, seed) * 5) ^ (qHash(_name, seed) * 7) ^
           uint(_type.getValue());
}

KsoAItem* KsoDataIdentifier::_findItem() const
{
    const quint64 state = getModel()->getTreeState();
    if (_itemState != state) {
        _item = _lookUp();
        _itemState = state;
    }
    return _item;
}

KsoADataItem* KsoDataIdentifier::_lookUp() const
{
    KsoADataItem* item = getModel()->getRootItem();
    const auto descend = [&](const KsoEDataType& type, const QString& name) {
        item = item ? item->getChildItem(type, name) : nullptr;
    };
    for (const QString& name : _path)
        descend(KsoEDataType::DIRECTORY, name);
    if (_type >= KsoEDataType::FILE)
        descend(KsoEDataType::FILE, _file);
    if (_type >= KsoEDataType::SUPPORT && _support.isEmpty())
        item = item ? static_cast<KsoDataFile*>(item)->getUniqueSupport() : nullptr;
    else if (_type >= KsoEDataType::SUPPORT)
        descend(KsoEDataType::SUPPORT, _support);
    if (_type >= KsoEDataType::VARIABLE)
        descend(_type, _name);
    return item;
}
