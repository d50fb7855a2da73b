#include <study/KsmModelCharts.h>

#include <study/KsbJson.h>
#include <study/KsoChartsFilter.h>

#include <QtCore/QJsonArray>

template class KsmANamedModel<KsoChartsKind>;

const QString KsoChartsIdentifier::KEY_FOLDER = QStringLiteral("folder");
const QString KsoChartsIdentifier::KEY_VIEW = QStringLiteral("view");

namespace {

const QString foldersKey = QStringLiteral("folders");
const QString viewsKey = QStringLiteral("views");
const QString idKey = QStringLiteral("id");
const QString nameKey = QStringLiteral("name");

QUuid readId(const QJsonObject& json)
{
    return QUuid::fromString(KsbJson::readText(json, idKey));
}

QJsonArray toArray(const QVector<KsoChartsInfo::View>& views)
{
    QJsonArray array;
    for (const KsoChartsInfo::View& view : views)
        array.append(QJsonObject{{idKey, view.id.toString()}, {nameKey, view.name}});
    return array;
}

KsoChartsInfo::Folder toFolder(const QJsonObject& json)
{
    KsoChartsInfo::Folder folder{readId(json), KsbJson::readText(json, nameKey), {}};
    for (const QJsonObject& view : KsbJson::readObjects(json, viewsKey))
        folder.views.append({readId(view), KsbJson::readText(view, nameKey)});
    return folder;
}

/// What the records of chart file and folder say of what lies in them.
int reasonsFromAbove(const KsmModifCharts& modif, const KsoChartsIdentifier& ident)
{
    if (ident.getLevel() == KsoChartsIdentifier::Charts)
        return 0;
    const int ofFile = modif.getReasons(KsoChartsIdentifier(ident.getModel(), ident.getName()));
    const int found = ofFile & KsmReason::Reloaded ? ofFile : ofFile & KsmReason::ListMask;
    if (ident.getLevel() == KsoChartsIdentifier::Folder)
        return found;
    return found | (modif.getReasons(ident.getParent()) & KsmReason::Folders);
}

} // namespace

QJsonObject KsoChartsKind::write(const Content& content)
{
    QJsonArray folders;
    for (const KsoChartsInfo::Folder& folder : content.getFolders())
        folders.append(
            QJsonObject{{idKey, folder.id.toString()}, {nameKey, folder.name}, {viewsKey, toArray(folder.views)}});
    return {{foldersKey, folders}};
}

KsoChartsInfo KsoChartsKind::read(const QJsonObject& json)
{
    QVector<KsoChartsInfo::Folder> folders;
    for (const QJsonObject& folder : KsbJson::readObjects(json, foldersKey))
        folders.append(toFolder(folder));
    KsoChartsInfo info;
    if (!info.restore(folders))
        KsbJson::failDamaged(foldersKey);
    return info;
}

KsoChartsIdentifier::KsoChartsIdentifier(KsmModelCharts* model, const QString& name,
                                         const KsoChartsInfo::Folder& folder, const KsoChartsInfo::View& view)
    : KsoANamedIdentifierOf(model, name),
      _folder(isNull() ? QString() : folder.name),
      _view(_folder.isEmpty() ? QString() : view.name),
      _folderId(folder.id),
      _viewId(view.id)
{}

KsoChartsIdentifier::KsoChartsIdentifier(KsmModelCharts* model, const QString& name, const QString& folder,
                                         const QString& view)
    : KsoChartsIdentifier(model, name, KsoChartsInfo::Folder{QUuid(), folder, {}}, {QUuid(), view})
{
    if (const KsoCharts* item = getChartsItem())
        _lookUp(item->getInfo());
}

KsoChartsIdentifier::KsoChartsIdentifier(KsmModelCharts* model, const QString& name, const KsoChartsInfo& info,
                                         const QString& folder, const QString& view)
    : KsoChartsIdentifier(model, name, KsoChartsInfo::Folder{QUuid(), folder, {}}, {QUuid(), view})
{
    _lookUp(info);
}

void KsoChartsIdentifier::_lookUp(const KsoChartsInfo& info)
{
    const KsoChartsInfo::Folder* folder = info.findFolder(_folder);
    const KsoChartsInfo::View* view = info.findView(_folder, _view);
    _folderId = folder ? folder->id : QUuid();
    _viewId = view ? view->id : QUuid();
}

KsoChartsIdentifier KsoChartsIdentifier::fromMap(const MbbOrderedMap<QString, QString>& map, KsmModelCharts* model)
{
    return KsoChartsIdentifier(model, map.value(Ks::KEY_NAME), map.value(KEY_FOLDER), map.value(KEY_VIEW));
}

KsoChartsIdentifier KsoChartsIdentifier::fromViewPath(const QString& path, KsmModelCharts* model)
{
    const QStringList names = path.split(QLatin1Char('/'));
    if (names.size() > 3 || names.contains(QString()))
        return KsoChartsIdentifier();
    return KsoChartsIdentifier(model, names.first(), names.value(1), names.value(2));
}

MbbOrderedMap<QString, QString> KsoChartsIdentifier::toMap(bool complete) const
{
    MbbOrderedMap<QString, QString> map;
    if (!isNull() && (complete || getLevel() == Charts))
        map.insert(Ks::KEY_NAME, getName());
    if (!_folder.isEmpty() && (complete || getLevel() == Folder))
        map.insert(KEY_FOLDER, _folder);
    if (!_view.isEmpty())
        map.insert(KEY_VIEW, _view);
    return map;
}

KsoCharts* KsoChartsIdentifier::getChartsItem() const
{
    return static_cast<KsoCharts*>(_findNamed());
}

KsoAItem* KsoChartsIdentifier::_findItem() const
{
    KsoCharts* item = getChartsItem();
    if (!item || getLevel() == Charts)
        return item;
    const KsoChartsInfo& info = item->getInfo();
    const bool found = getLevel() == Folder ? bool(info.findFolder(_folder)) : bool(info.findView(_folder, _view));
    return found ? item : nullptr;
}

QStringList KsoChartsIdentifier::_names() const
{
    QStringList names = KsoANamedIdentifierOf::_names();
    for (const QString& name : {_folder, _view}) {
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

KsoChartsIdentifier KsoChartsIdentifier::getParent() const
{
    if (getLevel() == Charts)
        return KsoChartsIdentifier();
    return KsoChartsIdentifier(getModel(), getName(), getLevel() == View ? _folder : QString());
}

bool KsoChartsIdentifier::isAncestorOf(const KsoChartsIdentifier& other) const
{
    return !isNull() && !other.isNull() && getModel() == other.getModel() && getLevel() < other.getLevel() &&
           getName() == other.getName() && (getLevel() == Charts || _folder == other._folder);
}

KsoChartsIdentifier KsoChartsIdentifier::changeRoot(const KsoChartsIdentifier& root) const
{
    if (isNull() || root.isNull() || getLevel() < root.getLevel())
        return *this;
    if (getLevel() == root.getLevel())
        return root;
    const QString folder = root.getLevel() == Folder ? root._folder : _folder;
    return KsoChartsIdentifier(root.getModel(), root.getName(), folder, _view);
}

KsoChartsIdentifier KsoChartsIdentifier::present() const
{
    const KsoCharts* item = KsoChartsIdentifier(getModel(), _presentName()).getChartsItem();
    return present(item ? item->getInfo() : KsoChartsInfo());
}

KsoChartsIdentifier KsoChartsIdentifier::present(const KsoChartsInfo& info) const
{
    KsoChartsIdentifier ident(getModel(), _presentName(), _folder, _view);
    ident._folderId = _folderId;
    ident._viewId = _viewId;
    return info.updateViewRef(ident);
}

bool KsmModifCharts::hasModif(const KsoChartsIdentifier& ident, int reasons) const
{
    return ((getReasons(ident) | reasonsFromAbove(*this, ident)) & reasons) != 0;
}

bool KsoChartsFilter::check(const KsoChartsIdentifier& ident) const
{
    if (ident.isNull() || ident.getLevel() != _level)
        return false;
    const KsoCharts* item = ident.getChartsItem();
    return (!item || check(item)) && (ident.exists() || isNewAccepted());
}

KsmModelCharts::KsmModelCharts(KssProject* project, KsbIDriverItem* driver) : KsmANamedModel(project, driver)
{
    _load();
}

KsmModelCharts::~KsmModelCharts() = default;

// The record has former and new names.
template <class Edit>
void KsmModelCharts::_editInfo(KsoCharts* charts, int reason, const QList<Path>& named, Edit edit)
{
    _requireOwn(charts);
    KsoChartsInfo info = charts->getInfo();
    if (!edit(info))
        throw MbeUserError(QStringLiteral("The name is taken or none, or there is no such folder or view in '%1'.")
                               .arg(charts->getName()));
    KsmModifCharts modif;
    modif.add(charts->getIdentifier(), reason);
    for (const Path& path : named)
        modif.add(KsoChartsIdentifier(this, charts->getName(), path.first, path.second), reason);
    _edit(charts, info, modif);
}

void KsmModelCharts::addFolder(KsoCharts* charts, const QString& folder)
{
    _editInfo(charts, KsmReason::Folders, {{folder, QString()}},
              [&](KsoChartsInfo& info) { return info.addFolder(folder); });
}

void KsmModelCharts::renameFolder(KsoCharts* charts, const QString& folder, const QString& name)
{
    if (folder == name)
        return;
    _editInfo(charts, KsmReason::Folders, {{folder, QString()}, {name, QString()}},
              [&](KsoChartsInfo& info) { return info.renameFolder(folder, name); });
}

void KsmModelCharts::removeFolder(KsoCharts* charts, const QString& folder)
{
    _editInfo(charts, KsmReason::Folders, {{folder, QString()}},
              [&](KsoChartsInfo& info) { return info.removeFolder(folder); });
}

void KsmModelCharts::addView(KsoCharts* charts, const QString& folder, const QString& view)
{
    _editInfo(charts, KsmReason::Views, {{folder, QString()}, {folder, view}},
              [&](KsoChartsInfo& info) { return info.addView(folder, view); });
}

void KsmModelCharts::renameView(KsoCharts* charts, const QString& folder, const QString& view, const QString& name)
{
    if (view == name)
        return;
    _editInfo(charts, KsmReason::Views, {{folder, QString()}, {folder, view}, {folder, name}},
              [&](KsoChartsInfo& info) { return info.renameView(folder, view, name); });
}

void KsmModelCharts::removeView(KsoCharts* charts, const QString& folder, const QString& view)
{
    _editInfo(charts, KsmReason::Views, {{folder, QString()}, {folder, view}},
              [&](KsoChartsInfo& info) { return info.removeView(folder, view); });
}
