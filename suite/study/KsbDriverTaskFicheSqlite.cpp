#include <basic/MbbDebug.h>
#include <study/KsbDriverTaskFicheSqlite.h>
#include <study/KsbSqliteFile.h>
#include <util/KuxXml.h>

#include <QtXml/QDomDocument>

#include <utility>

namespace {

QVariant blob(const QByteArray& bytes)
{
    return KsbSqliteConnection::blob(bytes);
}

QVariant encoded(const QString& text)
{
    return KsbSqliteConnection::encoded(text);
}

QString decoded(const QVariant& value)
{
    return KsbSqliteConnection::decoded(value);
}

/// The text to store: empty for a document without a root, which no text of XML can stand for.
QByteArray toStoredText(const QDomDocument& document)
{
    return document.documentElement().isNull() ? QByteArray() : KuxXml::toText(document);
}

KuxXmlResult fromStoredText(const QByteArray& text, QDomDocument* document)
{
    if (!text.isEmpty())
        return KuxXml::parse(text, document);
    *document = QDomDocument(QString());
    return {};
}

QString describe(const KuxXmlResult& result)
{
    return QStringLiteral("line %1, column %2: %3")
        .arg(QString::number(result.line), QString::number(result.column), result.message);
}

bool exists(KsbSqliteConnection& connection, const QVariant& id, const QVariant& key)
{
    return connection.value(QStringLiteral("SELECT 1 FROM fiche WHERE id = ? AND key = ?"), {id, key}).isValid();
}

void supersede(KsbSqliteConnection& connection, const QVariant& id, const QVariant& key, const QString& reason)
{
    const QString time = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
    connection.execute(QStringLiteral("INSERT INTO superseded (id, key, document, time, reason) "
                                      "SELECT id, key, document, ?, ? FROM fiche WHERE id = ? AND key = ?"),
                       {time, reason, id, key});
    connection.execute(QStringLiteral("DELETE FROM fiche WHERE id = ? AND key = ?"), {id, key});
}

} // namespace

KsbDriverTaskFicheSqlite::KsbDriverTaskFicheSqlite(std::shared_ptr<KsbSqliteFile> store) : _store(std::move(store)) {}

KsbDriverTaskFicheSqlite::~KsbDriverTaskFicheSqlite() = default;

std::unique_ptr<KsbDriverTaskFicheSqlite> KsbDriverTaskFicheSqlite::create(const QString& filePath)
{
    return std::make_unique<KsbDriverTaskFicheSqlite>(KsbSqliteFile::create(filePath));
}

std::unique_ptr<KsbDriverTaskFicheSqlite> KsbDriverTaskFicheSqlite::open(const QString& filePath, KssOpenMode mode)
{
    return std::make_unique<KsbDriverTaskFicheSqlite>(KsbSqliteFile::open(filePath, mode));
}

const QString& KsbDriverTaskFicheSqlite::getFilePath() const
{
    return _store->getPath();
}

void KsbDriverTaskFicheSqlite::setLockTimeout(int milliseconds)
{
    _store->setLockTimeout(milliseconds);
}

QMap<QString, QString> KsbDriverTaskFicheSqlite::listAll() const
{
    return _store->read([](KsbSqliteConnection& connection) {
        // The values of one key are walked from the latest inserted to the first.
        QMultiMap<QString, QString> forms;
        connection.forEach(QStringLiteral("SELECT id, key FROM fiche ORDER BY id, key DESC"), {},
                           [&](const QSqlQuery& row) { forms.insert(decoded(row.value(0)), decoded(row.value(1))); });
        return QMap<QString, QString>(forms);
    });
}

QStringList KsbDriverTaskFicheSqlite::listKeys(const QString& id) const
{
    return _store->read([&](KsbSqliteConnection& connection) {
        QStringList keys;
        connection.forEach(QStringLiteral("SELECT key FROM fiche WHERE id = ? ORDER BY key"), {encoded(id)},
                           [&](const QSqlQuery& row) { keys.append(decoded(row.value(0))); });
        return keys;
    });
}

bool KsbDriverTaskFicheSqlite::exists(const QString& id, const QString& key) const
{
    return _store->read(
        [&](KsbSqliteConnection& connection) { return ::exists(connection, encoded(id), encoded(key)); });
}

void KsbDriverTaskFicheSqlite::read(const QString& id, const QString& key, QDomDocument& document) const
{
    document = QDomDocument();
    const QVariant text = _store->read([&](KsbSqliteConnection& connection) {
        return connection.value(QStringLiteral("SELECT document FROM fiche WHERE id = ? AND key = ?"),
                                {encoded(id), encoded(key)});
    });
    if (!text.isValid())
        return;
    QDomDocument stored;
    const KuxXmlResult result = fromStoredText(text.toByteArray(), &stored);
    if (result.ok)
        document = stored;
    else
        MbbDebug::printWarning(QStringLiteral("Cannot read the form '%1' with the key '%2' in '%3', %4")
                                   .arg(id, key, getFilePath(), describe(result)));
}

void KsbDriverTaskFicheSqlite::write(const QString& id, const QString& key, const QDomDocument& document)
{
    if (document.isNull()) {
        MbbDebug::printWarning(QStringLiteral("The form '%1' with the key '%2' is not stored in '%3': it is null.")
                                   .arg(id, key, getFilePath()));
        return;
    }
    const QByteArray text = toStoredText(document);
    QDomDocument reread;
    if (const KuxXmlResult result = fromStoredText(text, &reread); !result.ok)
        KsbSqliteFile::fail(
            getFilePath(), QStringLiteral("The form '%1' with the key '%2' is not stored, because it could not be read "
                                          "again, %3")
                               .arg(id, key, describe(result)));
    _store->change([&](KsbSqliteConnection& connection) {
        connection.execute(QStringLiteral("INSERT OR REPLACE INTO fiche (id, key, document) VALUES (?, ?, ?)"),
                           {encoded(id), encoded(key), blob(text)});
    });
}

void KsbDriverTaskFicheSqlite::rename(const QString& id, const QString& oldKey, const QString& newKey)
{
    if (oldKey == newKey)
        return;
    _store->change([&](KsbSqliteConnection& connection) {
        if (!::exists(connection, encoded(id), encoded(oldKey)))
            return;
        supersede(connection, encoded(id), encoded(newKey), QStringLiteral("Another form was renamed to its key."));
        connection.execute(QStringLiteral("UPDATE fiche SET key = ? WHERE id = ? AND key = ?"),
                           {encoded(newKey), encoded(id), encoded(oldKey)});
    });
}

QList<KsbDriverTaskFicheSqlite::Superseded> KsbDriverTaskFicheSqlite::listSuperseded() const
{
    return _store->read([](KsbSqliteConnection& connection) {
        QList<Superseded> forms;
        connection.forEach(QStringLiteral("SELECT number, id, key, time, reason FROM superseded ORDER BY number"), {},
                           [&](const QSqlQuery& row) {
                               forms.append({row.value(0).toLongLong(), decoded(row.value(1)), decoded(row.value(2)),
                                             QDateTime::fromString(row.value(3).toString(), Qt::ISODateWithMs),
                                             row.value(4).toString()});
                           });
        return forms;
    });
}

void KsbDriverTaskFicheSqlite::restoreSuperseded(qint64 number)
{
    _store->change([&](KsbSqliteConnection& connection) {
        QVariantList place;
        connection.forEach(QStringLiteral("SELECT id, key FROM superseded WHERE number = ?"), {number},
                           [&](const QSqlQuery& row) {
                               place = {row.value(0), row.value(1)};
                           });
        if (place.isEmpty())
            KsbSqliteFile::fail(getFilePath(),
                                QStringLiteral("It has no superseded form of the number %1.").arg(number));
        const QVariant id = blob(place.at(0).toByteArray());
        const QVariant key = blob(place.at(1).toByteArray());
        supersede(connection, id, key, QStringLiteral("An older form was restored under its key."));
        connection.execute(QStringLiteral("INSERT INTO fiche (id, key, document) "
                                          "SELECT id, key, document FROM superseded WHERE number = ?"),
                           {number});
        connection.execute(QStringLiteral("DELETE FROM superseded WHERE number = ?"), {number});
    });
}
