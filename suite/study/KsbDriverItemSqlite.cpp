#include <study/KsbDriverItemSqlite.h>
#include <study/KsbSqliteFile.h>

#include <QtCore/QScopeGuard>
#include <QtCore/QSet>

#include <limits>
#include <utility>

namespace {

[[noreturn]] void failDamaged(const QSqlQuery& row, const QString& path, const QString& what)
{
    KsbSqliteFile::fail(
        path, QStringLiteral("It is damaged: the %1 of the item %2 is none.").arg(what, row.value(0).toString()));
}

int toInt(const QSqlQuery& row, int column, const QString& path, const QString& what)
{
    const QVariant value = row.value(column);
    const bool isNumber = value.type() == QVariant::LongLong || value.type() == QVariant::Int;
    const qint64 number = value.toLongLong();
    if (!isNumber || number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        failDamaged(row, path, what);
    return int(number);
}

KsbItemRecord toRecord(const QSqlQuery& row, const QString& path)
{
    if (row.value(3).type() != QVariant::ByteArray || row.value(3).toByteArray().size() % 2 != 0)
        failDamaged(row, path, QStringLiteral("name"));
    KsbItemRecord record;
    record.id = toInt(row, 0, path, QStringLiteral("id"));
    record.parent = toInt(row, 1, path, QStringLiteral("parent"));
    record.kind = toInt(row, 2, path, QStringLiteral("kind"));
    record.name = KsbSqliteConnection::decoded(row.value(3));
    record.attributes = row.value(4).toByteArray();
    return record;
}

/// The model of the record; invalid if there is none.
QVariant modelOf(KsbSqliteConnection& connection, int id)
{
    return connection.value(QStringLiteral("SELECT model FROM item WHERE id = ?"), {id});
}

QString requireModel(KsbSqliteConnection& connection, int id)
{
    const QVariant model = modelOf(connection, id);
    if (!model.isValid())
        KsbSqliteFile::fail(connection.getPath(), QStringLiteral("It has no item of the id %1.").arg(id));
    return model.toString();
}

} // namespace

KsbDriverItemSqlite::KsbDriverItemSqlite(std::shared_ptr<KsbSqliteFile> store) : _store(std::move(store)) {}

KsbDriverItemSqlite::~KsbDriverItemSqlite() = default;

std::unique_ptr<KsbDriverItemSqlite> KsbDriverItemSqlite::open(const QString& filePath, KssOpenMode mode)
{
    return std::make_unique<KsbDriverItemSqlite>(KsbSqliteFile::open(filePath, mode));
}

QList<KsbItemRecord> KsbDriverItemSqlite::list(const QString& model) const
{
    return _store->read([&](KsbSqliteConnection& connection) {
        QList<KsbItemRecord> records;
        if (!_atBegin)
            _known.insert(model, _readStates(connection).value(model));
        if (KsbSqliteFile::versionOf(connection) < KsbSqliteFile::ItemsVersion)
            return records;
        connection.forEach(
            QStringLiteral("SELECT id, parent, kind, name, attributes FROM item WHERE model = ? ORDER BY id"), {model},
            [&](const QSqlQuery& row) { records.append(toRecord(row, _store->getPath())); });
        return records;
    });
}

KsbDriverItemSqlite::States KsbDriverItemSqlite::_readStates(KsbSqliteConnection& connection)
{
    States states;
    if (KsbSqliteFile::versionOf(connection) < KsbSqliteFile::ItemsVersion)
        return states;
    connection.forEach(QStringLiteral("SELECT model, number FROM item_state"), {}, [&](const QSqlQuery& row) {
        states.insert(row.value(0).toString(), row.value(1).toLongLong());
    });
    return states;
}

bool KsbDriverItemSqlite::_isKnown(const QString& model) const
{
    const auto known = _known.constFind(model);
    return known == _known.constEnd() || *known == _atBegin->value(model);
}

void KsbDriverItemSqlite::_requireKnown(const QString& model) const
{
    if (!_isKnown(model))
        KsbSqliteFile::fail(_store->getPath(),
                            QStringLiteral("Its items were changed by another user of the file. Open it again."));
}

void KsbDriverItemSqlite::_change(const std::function<void(KsbSqliteConnection&)>& body)
{
    inOneStep([&] { _store->change(body); });
}

void KsbDriverItemSqlite::_changeModel(KsbSqliteConnection& connection, const QString& model) const
{
    _requireKnown(model);
    connection.execute(QStringLiteral("INSERT OR REPLACE INTO item_state (model, number) VALUES "
                                      "(?, 1 + coalesce((SELECT number FROM item_state WHERE model = ?), 0))"),
                       {model, model});
}

int KsbDriverItemSqlite::insert(const QString& model, const KsbItemRecord& record)
{
    int id = 0;
    _change([&](KsbSqliteConnection& connection) {
        _changeModel(connection, model);
        const qint64 inserted =
            connection
                .execute(QStringLiteral("INSERT INTO item (model, parent, kind, name, attributes) "
                                        "VALUES (?, ?, ?, ?, ?)"),
                         {model, record.parent, record.kind, KsbSqliteConnection::encoded(record.name),
                          KsbSqliteConnection::blob(record.attributes)})
                .lastInsertId()
                .toLongLong();
        if (inserted > std::numeric_limits<int>::max())
            KsbSqliteFile::fail(_store->getPath(), QStringLiteral("It has no ids for items left."));
        id = int(inserted);
    });
    return id;
}

void KsbDriverItemSqlite::update(const KsbItemRecord& record)
{
    _change([&](KsbSqliteConnection& connection) {
        _changeModel(connection, requireModel(connection, record.id));
        connection.execute(QStringLiteral("UPDATE item SET parent = ?, name = ?, attributes = ? WHERE id = ?"),
                           {record.parent, KsbSqliteConnection::encoded(record.name),
                            KsbSqliteConnection::blob(record.attributes), record.id});
    });
}

void KsbDriverItemSqlite::remove(const QList<int>& ids)
{
    _change([&](KsbSqliteConnection& connection) {
        QSet<QString> models;
        for (const int id : ids) {
            const QVariant model = modelOf(connection, id);
            if (!model.isValid())
                continue;
            models.insert(model.toString());
            connection.execute(QStringLiteral("DELETE FROM content WHERE item = ?"), {id});
            connection.execute(QStringLiteral("DELETE FROM item WHERE id = ?"), {id});
        }
        for (const QString& model : models)
            _changeModel(connection, model);
    });
}

std::optional<QByteArray> KsbDriverItemSqlite::readContent(int id, int number) const
{
    return _store->read([&](KsbSqliteConnection& connection) -> std::optional<QByteArray> {
        if (KsbSqliteFile::versionOf(connection) < KsbSqliteFile::ItemsVersion)
            return std::nullopt;
        const QVariant bytes =
            connection.value(QStringLiteral("SELECT bytes FROM content WHERE item = ? AND number = ?"), {id, number});
        return bytes.isValid() ? std::optional<QByteArray>(bytes.toByteArray()) : std::nullopt;
    });
}

void KsbDriverItemSqlite::writeContent(int id, int number, const QByteArray& content)
{
    _change([&](KsbSqliteConnection& connection) {
        _requireKnown(requireModel(connection, id));
        connection.execute(QStringLiteral("INSERT OR REPLACE INTO content (item, number, bytes) VALUES (?, ?, ?)"),
                           {id, number, KsbSqliteConnection::blob(content)});
    });
}

void KsbDriverItemSqlite::inOneStep(const std::function<void()>& body)
{
    if (_atBegin)
        return body();
    const auto readStates = [this] { return _store->read(_readStates); };
    const auto end = qScopeGuard([this] { _atBegin.reset(); });
    States atEnd;
    _store->changeOnce([&] {
        _atBegin = readStates();
        body();
        atEnd = readStates();
    });
    for (auto known = _known.begin(); known != _known.end(); ++known) {
        if (_isKnown(known.key()))
            *known = atEnd.value(known.key());
    }
}
