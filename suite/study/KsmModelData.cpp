#include <basic/MbbGlobal.h>
#include <basic/MbeTranslate.h>
#include <study/Ks.h>
#include <study/KsbIDriverItem.h>
#include <study/KsbJson.h>
#include <study/KsbValues.h>
#include <study/KsmModelData.h>

#include <QtCore/QSet>
#include <QtCore/QVector>

#include <algorithm>
#include <exception>
#include <utility>

namespace {

const QString modelName = QStringLiteral("data");

/// What belongs below what.
bool mayContain(const KsoEDataType& parent, const KsoEDataType& child)
{
    if (parent == KsoEDataType::DIRECTORY)
        return child == KsoEDataType::DIRECTORY || child == KsoEDataType::FILE;
    if (parent == KsoEDataType::FILE)
        return child == KsoEDataType::SUPPORT;
    return parent == KsoEDataType::SUPPORT && child > KsoEDataType::SUPPORT;
}

/// Variables and macro variables are in one list for people, so they share their names.
const KsoADataItem* findNamesake(const KsoADataItem* parent, const KsoEDataType& type, const QString& name)
{
    if (type < KsoEDataType::VARIABLE)
        return parent->getChildItem(type, name);
    const KsoADataItem* variable = parent->getChildItem(KsoEDataType::VARIABLE, name);
    return variable ? variable : parent->getChildItem(KsoEDataType::MACRO_VARIABLE, name);
}

QList<KsoADataItem*> withDescendants(KsoADataItem* item)
{
    QList<KsoADataItem*> items{item};
    for (int i = 0; i < items.count(); ++i)
        items.append(items.at(i)->getChildItems());
    return items;
}

[[noreturn]] void failDamaged(int id, const QString& what)
{
    throw MbeError(MbeError::Storage, QStringLiteral("The data item %1 is damaged: %2").arg(QString::number(id), what));
}

void requireCount(int count, int maximum, const QString& what)
{
    if (count < 0 || count > maximum)
        throw MbeUserError(QStringLiteral("%1 is no number of %2: it must lie between 0 and %3.")
                               .arg(QString::number(count), what, QString::number(maximum)));
}

void requireValues(const KsoDataSupport* support, qint64 count)
{
    if (count != support->getSampleCount())
        throw MbeUserError(QStringLiteral("There are %1 values for the %2 samples of the support '%3'.")
                               .arg(QString::number(count), QString::number(support->getSampleCount()),
                                    support->getIdentifier().toString()));
}

void requireTexts(const MbdEVarType& type)
{
    if (type != MbdEVarType::STRING)
        throw MbeUserError(QStringLiteral("The values of the variable are no texts."));
}

QByteArray encoded(const KsoDataSupport* support, const MbdEVarType& type, const std::vector<double>& values)
{
    requireValues(support, qint64(values.size()));
    return KsbValues::encode(type, values);
}

QByteArray encoded(const KsoDataSupport* support, const MbdEVarType& type, const QStringList& texts)
{
    requireTexts(type);
    requireValues(support, texts.count());
    return KsbValues::encode(texts);
}

} // namespace

/// What a running step has done: how to undo it, and what to tell of it.
struct KsmModelData::Step
{
    std::vector<std::function<void()>> undo;
    KsmModifData modif;
    std::exception_ptr failure;
};

KsmModelData::KsmModelData(KssProject* project, KsbIDriverItem* driver)
    : KsmAItemModel(project),
      _driver(driver),
      _root(new KsoDataDirectory(this, 0, QString()))
{
    _own.insert(_root.get());
    mbeTranslate([this] { _load(); });
}

KsmModelData::~KsmModelData() = default;

void KsmModelData::_load()
{
    const QList<KsbItemRecord> records = _driver->list(modelName);
    for (const KsbItemRecord& record : records)
        _make(record);
    _link(records);
    _requireReachable(records);
}

void KsmModelData::_make(const KsbItemRecord& record)
{
    if (record.id <= 0 || _items.count(record.id) != 0)
        failDamaged(record.id, QStringLiteral("its id is none, or that of another item."));
    if (!KsoEDataType::existsValue(record.kind))
        failDamaged(record.id, QStringLiteral("it is of the unknown kind %1.").arg(record.kind));
    if (const QString reason = Ks::describeInvalidName(record.name); !reason.isEmpty())
        failDamaged(record.id, reason);
    auto item = _newItem(KsoEDataType::fromValue(record.kind), record.id, record.name);
    try {
        item->_setAttributes(KsbJson::parse(record.attributes));
    }
    catch (const MbeError& error) {
        failDamaged(record.id, error.getMessage());
    }
    _own.insert(item.get());
    _items.emplace(record.id, std::move(item));
}

void KsmModelData::_link(const QList<KsbItemRecord>& records)
{
    for (const KsbItemRecord& record : records) {
        KsoADataItem* item = getItemFromId(record.id);
        KsoADataItem* parent = getItemFromId(record.parent);
        if (!parent)
            failDamaged(record.id, QStringLiteral("there is no item of the id %1 above it.").arg(record.parent));
        if (!mayContain(parent->getType(), item->getType()))
            failDamaged(record.id, QStringLiteral("it cannot lie below the item %1.").arg(record.parent));
        if (findNamesake(parent, item->getType(), item->getName()))
            failDamaged(record.id, QStringLiteral("the name '%1' is taken.").arg(item->getName()));
        parent->_addChild(item);
    }
}

void KsmModelData::_requireReachable(const QList<KsbItemRecord>& records) const
{
    const QList<KsoADataItem*> reached = withDescendants(_root.get());
    const QSet<KsoADataItem*> found(reached.begin(), reached.end());
    for (const KsbItemRecord& record : records) {
        if (!found.contains(getItemFromId(record.id)))
            failDamaged(record.id, QStringLiteral("it lies below itself."));
    }
}

std::unique_ptr<KsoADataItem> KsmModelData::_newItem(const KsoEDataType& type, int id, const QString& name)
{
    if (type == KsoEDataType::DIRECTORY)
        return std::unique_ptr<KsoADataItem>(new KsoDataDirectory(this, id, name));
    if (type == KsoEDataType::FILE)
        return std::unique_ptr<KsoADataItem>(new KsoDataFile(this, id, name));
    if (type == KsoEDataType::SUPPORT)
        return std::unique_ptr<KsoADataItem>(new KsoDataSupport(this, id, name));
    if (type == KsoEDataType::VARIABLE)
        return std::unique_ptr<KsoADataItem>(new KsoDataVariable(this, id, name));
    return std::unique_ptr<KsoADataItem>(new KsoDataMacroVariable(this, id, name));
}

KsoDataIdentifier KsmModelData::getRootDirectory() const
{
    return _root->getIdentifier();
}

KsoADataItem* KsmModelData::getItemFromId(int id) const
{
    if (id == 0)
        return _root.get();
    const auto found = _items.find(id);
    return found == _items.end() ? nullptr : found->second.get();
}

void KsmModelData::_requireOwn(const KsoADataItem* item) const
{
    if (_own.count(item) == 0)
        throw MbeProgrammingError(QStringLiteral("The data item is null, gone or of another project."));
}

void KsmModelData::_requireNotRoot(const KsoADataItem* item) const
{
    _requireOwn(item);
    if (item == _root.get())
        throw MbeUserError(QStringLiteral("The root directory cannot be changed."));
}

void KsmModelData::_requirePlace(const KsoADataItem* parent, const KsoEDataType& type)
{
    if (!mayContain(parent->getType(), type))
        throw MbeUserError(QStringLiteral("The item cannot lie below '%1'.").arg(parent->getIdentifier().toString()));
}

void KsmModelData::_requireName(const KsoADataItem* parent, const KsoEDataType& type, const QString& name)
{
    if (const QString reason = Ks::describeInvalidName(name); !reason.isEmpty())
        throw MbeUserError(reason);
    if (findNamesake(parent, type, name))
        throw MbeUserError(
            QStringLiteral("The name '%1' is taken in '%2'.").arg(name, parent->getIdentifier().toString()));
}

void KsmModelData::inOneStep(const std::function<void()>& body)
{
    if (_step) {
        body();
        return;
    }
    Step step;
    _step = &step;
    try {
        mbeTranslate([&] {
            _driver->inOneStep([&] {
                body();
                if (step.failure)
                    std::rethrow_exception(step.failure);
            });
        });
    }
    catch (...) {
        for (auto undo = step.undo.rbegin(); undo != step.undo.rend(); ++undo)
            (*undo)();
        _step = nullptr;
        throw;
    }
    _step = nullptr;
    step.undo.clear();
    notify(step.modif);
}

void KsmModelData::_change(const std::function<void()>& body)
{
    inOneStep([&] {
        try {
            body();
        }
        catch (...) {
            _step->failure = std::current_exception();
            throw;
        }
    });
}

void KsmModelData::_hang(KsoADataItem* item, KsoADataItem* parent, const QString& name)
{
    item->_parent->_removeChild(item);
    item->_setName(name);
    parent->_addChild(item);
    ++_treeState;
}

void KsmModelData::_insert(std::unique_ptr<KsoADataItem> item, KsoADataItem* parent)
{
    parent->_addChild(item.get());
    _own.insert(item.get());
    const int id = item->getId();
    _items[id] = std::move(item);
    ++_treeState;
}

std::unique_ptr<KsoADataItem> KsmModelData::_take(KsoADataItem* item)
{
    const auto place = _items.find(item->getId());
    std::unique_ptr<KsoADataItem> taken = std::move(place->second);
    _items.erase(place);
    _own.erase(item);
    item->_parent->_removeChild(item);
    ++_treeState;
    return taken;
}

KsoADataItem* KsmModelData::_create(KsoADataItem* parent, const KsoEDataType& type, const QString& name,
                                    const QJsonObject& attributes, const QByteArray* content)
{
    _requireOwn(parent);
    _requirePlace(parent, type);
    _requireName(parent, type, name);
    KsoDataIdentifier ident;
    int id = 0;
    _change([&] {
        id = _driver->insert(modelName, {0, parent->getId(), type.getValue(), name, KsbJson::toText(attributes)});
        if (content)
            _driver->writeContent(id, 0, *content);
        auto item = _newItem(type, id, name);
        item->_setAttributes(attributes);
        KsoADataItem* created = item.get();
        _insert(std::move(item), parent);
        _step->undo.emplace_back([this, created] { _take(created); });
        ident = created->getIdentifier();
        _step->modif.add(ident, KsmModifData::Created);
    });
    // Observers may have removed the item, or destroyed the project.
    return ident.getModel() ? getItemFromId(id) : nullptr;
}

KsoDataDirectory* KsmModelData::createDirectory(KsoDataDirectory* parent, const QString& name)
{
    return static_cast<KsoDataDirectory*>(_create(parent, KsoEDataType::DIRECTORY, name, {}));
}

KsoDataFile* KsmModelData::createFile(KsoDataDirectory* parent, const QString& name, const MbgEGeometrySet& geometrySet,
                                      const MbgEDimension& dimension)
{
    return static_cast<KsoDataFile*>(
        _create(parent, KsoEDataType::FILE, name, KsoDataFile::_attributes(geometrySet, dimension)));
}

KsoDataSupport* KsmModelData::createSupport(KsoDataFile* file, const QString& name, int sampleCount)
{
    requireCount(sampleCount, KsoDataSupport::MaximumSampleCount, QStringLiteral("samples"));
    return static_cast<KsoDataSupport*>(
        _create(file, KsoEDataType::SUPPORT, name, KsoDataSupport::_attributes(sampleCount)));
}

KsoDataVariable* KsmModelData::_createVariable(KsoDataSupport* support, const QString& name,
                                               const MbdVariableDetails& details, const MbdEVarRole& role,
                                               const QByteArray* content)
{
    return static_cast<KsoDataVariable*>(
        _create(support, KsoEDataType::VARIABLE, name, KsoAVariableItem::_attributes(details, role), content));
}

KsoDataVariable* KsmModelData::createVariable(KsoDataSupport* support, const QString& name,
                                              const MbdVariableDetails& details, const MbdEVarRole& role)
{
    return _createVariable(support, name, details, role, nullptr);
}

KsoDataVariable* KsmModelData::createVariable(KsoDataSupport* support, const QString& name,
                                              const MbdVariableDetails& details, const MbdEVarRole& role,
                                              const std::vector<double>& values)
{
    _requireOwn(support);
    const QByteArray content = encoded(support, details.getType(), values);
    return _createVariable(support, name, details, role, &content);
}

KsoDataVariable* KsmModelData::createVariable(KsoDataSupport* support, const QString& name,
                                              const MbdVariableDetails& details, const MbdEVarRole& role,
                                              const QStringList& texts)
{
    _requireOwn(support);
    const QByteArray content = encoded(support, details.getType(), texts);
    return _createVariable(support, name, details, role, &content);
}

KsoDataMacroVariable* KsmModelData::createMacroVariable(KsoDataSupport* support, const QString& name,
                                                        const MbdVariableDetails& details, int realisationCount)
{
    requireCount(realisationCount, KsoDataMacroVariable::MaximumRealisationCount, QStringLiteral("realisations"));
    return static_cast<KsoDataMacroVariable*>(_create(support, KsoEDataType::MACRO_VARIABLE, name,
                                                      KsoDataMacroVariable::_attributes(details, realisationCount)));
}

void KsmModelData::rename(KsoADataItem* item, const QString& name)
{
    _requireNotRoot(item);
    if (name == item->getName())
        return;
    _requireName(item->getParentItem(), item->getType(), name);
    _place(item, item->getParentItem(), name);
}

void KsmModelData::move(KsoADataItem* item, KsoADataItem* parent)
{
    _requireNotRoot(item);
    _requireOwn(parent);
    if (parent == item->getParentItem())
        return;
    _requirePlace(parent, item->getType());
    for (const KsoADataItem* above = parent; above; above = above->getParentItem()) {
        if (above == item)
            throw MbeUserError(QStringLiteral("The directory '%1' cannot be moved below itself.")
                                   .arg(item->getIdentifier().toString()));
    }
    if (item->getType() >= KsoEDataType::VARIABLE)
        requireValues(static_cast<KsoDataSupport*>(parent),
                      static_cast<KsoDataSupport*>(item->getParentItem())->getSampleCount());
    _requireName(parent, item->getType(), item->getName());
    _place(item, parent, item->getName());
}

void KsmModelData::_place(KsoADataItem* item, KsoADataItem* parent, const QString& name)
{
    _change([&] {
        const KsoDataIdentifier before = item->getIdentifier();
        KsoADataItem* const formerParent = item->getParentItem();
        const QString formerName = item->getName();
        _driver->update({item->getId(), parent->getId(), item->getType().getValue(), name,
                         KsbJson::toText(item->_getAttributes())});
        _hang(item, parent, name);
        _step->undo.emplace_back([this, item, formerParent, formerName] { _hang(item, formerParent, formerName); });
        _step->modif.add(before, KsmModifData::Renamed);
        _step->modif.add(item->getIdentifier(), KsmModifData::Renamed);
    });
}

void KsmModelData::remove(KsoADataItem* item)
{
    _requireNotRoot(item);
    _change([&] {
        const KsoDataIdentifier before = item->getIdentifier();
        const QList<KsoADataItem*> removed = withDescendants(item);
        QList<int> ids;
        for (const KsoADataItem* one : removed)
            ids.append(one->getId());
        _driver->remove(ids);
        for (int i = removed.count() - 1; i >= 0; --i) {
            KsoADataItem* const parent = removed.at(i)->getParentItem();
            // A function must be copyable, so what it holds is shared.
            const auto kept = std::make_shared<std::unique_ptr<KsoADataItem>>(_take(removed.at(i)));
            _step->undo.emplace_back([this, kept, parent] { _insert(std::move(*kept), parent); });
        }
        _step->modif.add(before, KsmModifData::Removed);
    });
}

void KsmModelData::_edit(KsoADataItem* item, const QJsonObject& changes)
{
    const QJsonObject before = item->_getAttributes();
    QJsonObject after = before;
    for (auto change = changes.begin(); change != changes.end(); ++change)
        after.insert(change.key(), change.value());
    if (after == before)
        return;
    _change([&] {
        _driver->update({item->getId(), item->getParentItem()->getId(), item->getType().getValue(), item->getName(),
                         KsbJson::toText(after)});
        item->_setAttributes(after);
        _step->undo.emplace_back([item, before] { item->_setAttributes(before); });
        _step->modif.add(item->getIdentifier(), KsmModifData::Details);
    });
}

void KsmModelData::setGeometry(KsoDataFile* file, const MbgEGeometrySet& geometrySet, const MbgEDimension& dimension)
{
    _requireOwn(file);
    _edit(file, KsoDataFile::_attributes(geometrySet, dimension));
}

void KsmModelData::setSampleCount(KsoDataSupport* support, int sampleCount)
{
    _requireOwn(support);
    requireCount(sampleCount, KsoDataSupport::MaximumSampleCount, QStringLiteral("samples"));
    if (sampleCount != support->getSampleCount() && !support->getChildItems().isEmpty())
        throw MbeUserError(QStringLiteral("The support '%1' has variables, so its number of samples stays.")
                               .arg(support->getIdentifier().toString()));
    _edit(support, KsoDataSupport::_attributes(sampleCount));
}

void KsmModelData::_editDetails(KsoADataItem* variable, const MbdEVarType& type, const MbdVariableDetails& details)
{
    if (details.getType() != type)
        throw MbeUserError(
            QStringLiteral("The type of the variable '%1' cannot change.").arg(variable->getIdentifier().toString()));
    _edit(variable, KsbJson::fromDetails(details));
}

void KsmModelData::setDetails(KsoAVariableItem* variable, const MbdVariableDetails& details)
{
    _requireOwn(variable);
    _editDetails(variable, variable->getStorageType(), details);
}

void KsmModelData::setDetails(KsoDataMacroVariable* variable, const MbdVariableDetails& details)
{
    _requireOwn(variable);
    _editDetails(variable, variable->getDetails().getType(), details);
}

void KsmModelData::setRole(KsoAVariableItem* variable, const MbdEVarRole& role)
{
    _requireOwn(variable);
    _edit(variable, KsoAVariableItem::_attributes(variable->getDetails(), role));
}

void KsmModelData::setApplicationFlags(KsoADataItem* item, const QStringList& flags)
{
    _requireNotRoot(item);
    _edit(item, KsoADataItem::_attributes(flags));
}

namespace {

const KsoDataSupport* supportOf(const KsoADataItem* variable)
{
    return static_cast<const KsoDataSupport*>(variable->getParentItem());
}

void requireIndex(const KsoDataMacroVariable* variable, int index)
{
    if (index < 0 || index >= variable->getRealisationCount())
        throw MbeUserError(QStringLiteral("The macro variable '%1' has no realisation of the index %2.")
                               .arg(variable->getIdentifier().toString())
                               .arg(index));
}

} // namespace

void KsmModelData::_storeContent(KsoADataItem* variable, int number, const QByteArray& content)
{
    _change([&] {
        _driver->writeContent(variable->getId(), number, content);
        _step->modif.add(variable->getIdentifier(), KsmModifData::Values);
    });
}

/// Gives what `decode(bytes, exists)` gives; an error tells the variable.
template <class Decode>
auto KsmModelData::_decoded(const KsoADataItem* variable, int number, Decode decode) const
{
    return mbeTranslate(
        [&] {
            const std::optional<QByteArray> content = _driver->readContent(variable->getId(), number);
            return decode(content.value_or(QByteArray()), content.has_value());
        },
        [&] { return QStringLiteral("The values of '%1' cannot be read.").arg(variable->getIdentifier().toString()); });
}

std::vector<double> KsmModelData::_readValues(const KsoADataItem* variable, const MbdVariableDetails& details,
                                              int number) const
{
    if (details.getType() == MbdEVarType::STRING)
        throw MbeUserError(QStringLiteral("The values of the variable are texts."));
    const int count = supportOf(variable)->getSampleCount();
    return _decoded(variable, number, [&](const QByteArray& bytes, bool exists) {
        return exists ? KsbValues::decode(details.getType(), bytes, count)
                      : std::vector<double>(std::size_t(count), MbbGlobal::D_FFFF);
    });
}

QStringList KsmModelData::_readTexts(const KsoADataItem* variable, const MbdVariableDetails& details, int number) const
{
    requireTexts(details.getType());
    const int count = supportOf(variable)->getSampleCount();
    return _decoded(variable, number, [&](const QByteArray& bytes, bool exists) {
        return exists ? KsbValues::decodeTexts(bytes, count) : QVector<QString>(count).toList();
    });
}

void KsmModelData::readValues(const KsoAVariableItem* variable, std::vector<double>& values) const
{
    _requireOwn(variable);
    values = _readValues(variable, variable->getDetails(), 0);
}

void KsmModelData::readValues(const KsoDataMacroVariable* variable, int index, std::vector<double>& values) const
{
    _requireOwn(variable);
    requireIndex(variable, index);
    values = _readValues(variable, variable->getDetails(), index);
}

void KsmModelData::readCodes(const KsoAVariableItem* variable, std::vector<short>& codes) const
{
    _requireOwn(variable);
    if (variable->getStorageType() != MbdEVarType::ENUM)
        throw MbeUserError(QStringLiteral("The values of the variable are no categories."));
    const std::vector<double> values = _readValues(variable, variable->getDetails(), 0);
    codes.resize(values.size());
    std::transform(values.begin(), values.end(), codes.begin(),
                   [](double value) { return value == MbbGlobal::D_FFFF ? short(MbbGlobal::I16_FFFF) : short(value); });
}

void KsmModelData::readTexts(const KsoAVariableItem* variable, QStringList& texts) const
{
    _requireOwn(variable);
    texts = _readTexts(variable, variable->getDetails(), 0);
}

void KsmModelData::readTexts(const KsoDataMacroVariable* variable, int index, QStringList& texts) const
{
    _requireOwn(variable);
    requireIndex(variable, index);
    texts = _readTexts(variable, variable->getDetails(), index);
}

void KsmModelData::writeValues(KsoAVariableItem* variable, const std::vector<double>& values)
{
    _requireOwn(variable);
    _storeContent(variable, 0, encoded(supportOf(variable), variable->getStorageType(), values));
}

void KsmModelData::writeTexts(KsoAVariableItem* variable, const QStringList& texts)
{
    _requireOwn(variable);
    _storeContent(variable, 0, encoded(supportOf(variable), variable->getStorageType(), texts));
}

void KsmModelData::writeValues(KsoDataMacroVariable* variable, int index, const std::vector<double>& values)
{
    _requireOwn(variable);
    requireIndex(variable, index);
    _storeContent(variable, index, encoded(supportOf(variable), variable->getDetails().getType(), values));
}

void KsmModelData::writeTexts(KsoDataMacroVariable* variable, int index, const QStringList& texts)
{
    _requireOwn(variable);
    requireIndex(variable, index);
    _storeContent(variable, index, encoded(supportOf(variable), variable->getDetails().getType(), texts));
}
