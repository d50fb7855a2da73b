#include <basic/MbbDebug.h>
#include <basic/MbeError.h>
#include <study/KsbDriverTaskFicheSqlite.h>
#include <util/KuxXml.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>
#include <QtCore/QUrl>
#include <QtCore/QVariant>
#include <QtCore/QtEndian>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <QtXml/QDomDocument>

#include <algorithm>
#include <atomic>
#include <type_traits>
#include <utility>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

constexpr int applicationId = 0x4B534631; // "KSF1"
constexpr int schemaVersion = 1;
constexpr qint64 sqliteHeaderSize = 100;
constexpr int initialLockTimeout = 5000;
constexpr unsigned long retryPause = 10;

const char* const schema[] = {
    "CREATE TABLE fiche (id BLOB NOT NULL, key BLOB NOT NULL, document BLOB NOT NULL, PRIMARY KEY (id, key))",
    "CREATE TABLE superseded (number INTEGER PRIMARY KEY AUTOINCREMENT, id BLOB NOT NULL, key BLOB NOT NULL, "
    "document BLOB NOT NULL, time TEXT NOT NULL, reason TEXT NOT NULL)",
};

// The result codes of SQLite that are told apart; its interface fixes the numbers.
enum ResultCode
{
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    IoError = 10,
    Corrupt = 11,
    Full = 13,
    CannotOpen = 14,
    Protocol = 15,
    NotADatabase = 26,
};

QString describe(int code)
{
    switch (code) {
    case Busy:
    case Locked:
    case Protocol:
        return QStringLiteral("It is locked by another user of the file.");
    case ReadOnly:
        return QStringLiteral("It is read-only.");
    case IoError:
        return QStringLiteral("Reading or writing it failed.");
    case Corrupt:
        return QStringLiteral("It is damaged.");
    case Full:
        return QStringLiteral("The disk is full, or the file has reached its largest size.");
    case CannotOpen:
        return QStringLiteral("It cannot be opened.");
    case NotADatabase:
        return QStringLiteral("It is no project file, or its start is damaged.");
    default:
        return QStringLiteral("The request failed.");
    }
}

QString failure(const QString& path, const QString& what)
{
    return QStringLiteral("Project file '%1': %2").arg(path, what);
}

[[noreturn]] void fail(const QString& path, const QString& what)
{
    throw MbeError(MbeError::Storage, failure(path, what));
}

/// A failure that SQLite reports.
class SqliteError : public MbeError
{
public:
    SqliteError(const QString& path, const QSqlError& error) : SqliteError(path, error, _resultCode(error)) {}

    /// Whether the cause can be that the files beside a database in write-ahead mode are missing and cannot be made.
    bool isRefusedAccess() const { return _code == CannotOpen || _code == ReadOnly; }
    bool isTransient() const { return _code == Busy || _code == Locked || _code == Protocol; }

private:
    SqliteError(const QString& path, const QSqlError& error, int code)
        : MbeError(Storage, failure(path, QStringLiteral("%1 (%2)").arg(describe(code), error.databaseText()))),
          _code(code)
    {}

    /// The plain code: the extended one has it in its lowest byte.
    static int _resultCode(const QSqlError& error) { return error.nativeErrorCode().toInt() & 0xff; }

    int _code;
};

/// One connection of Qt's SQLite driver under a name of its own, closed and taken off the list at the end.
class Connection
{
public:
    /// `query` is the query part of the file's SQLite URI.
    Connection(const QString& path, const QString& query, int lockTimeout)
        : _path(path),
          _name(_nextName()),
          _database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), _name))
    {
        QUrl url = QUrl::fromLocalFile(path);
        url.setQuery(query);
        _database.setDatabaseName(url.toString(QUrl::FullyEncoded));
        _database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(lockTimeout));
        if (!_database.open()) {
            const SqliteError error(_path, _database.lastError());
            _close();
            throw error;
        }
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { _close(); }

    const QString& getPath() const { return _path; }

    /// Runs a statement to its first row.
    QSqlQuery execute(const QString& sql, const QVariantList& values = {})
    {
        QSqlQuery query(_database);
        query.setForwardOnly(true);
        const bool prepared = query.prepare(sql);
        for (const QVariant& value : values)
            query.addBindValue(value);
        if (!prepared || !query.exec())
            throw SqliteError(_path, query.lastError());
        return query;
    }

    /// Runs a statement and calls `row(query)` on each of its rows.
    template <class Row>
    void forEach(const QString& sql, const QVariantList& values, Row row)
    {
        QSqlQuery query = execute(sql, values);
        while (query.next())
            row(query);
        if (query.lastError().isValid())
            throw SqliteError(_path, query.lastError());
    }

    /// The first column of the first row, invalid if there is no row.
    QVariant value(const QString& sql, const QVariantList& values = {})
    {
        QSqlQuery query = execute(sql, values);
        return query.next() ? query.value(0) : QVariant();
    }

private:
    static QString _nextName()
    {
        static std::atomic<quint64> count{0};
        return QStringLiteral("kestrin_task_fiche_%1").arg(++count);
    }

    void _close()
    {
        _database = QSqlDatabase();
        QSqlDatabase::removeDatabase(_name);
    }

    QString _path;
    QString _name;
    QSqlDatabase _database;
};

/// A write transaction, which is undone unless it is committed.
class Transaction
{
public:
    explicit Transaction(Connection& connection) : _connection(connection)
    {
        _connection.execute(QStringLiteral("BEGIN IMMEDIATE"));
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction()
    {
        if (!_committed)
            _rollBack();
    }

    void commit()
    {
        _connection.execute(QStringLiteral("COMMIT"));
        _committed = true;
    }

private:
    void _rollBack() noexcept
    {
        try {
            _connection.execute(QStringLiteral("ROLLBACK"));
        }
        catch (...) {
            // SQLite has undone the transaction itself where the failure was too grave to leave that to us.
        }
    }

    Connection& _connection;
    bool _committed = false;
};

/// A blob for binding: zero bytes are a value, where a null array would bind as NULL.
QVariant blob(const QByteArray& bytes)
{
    return bytes.isNull() ? QByteArray("") : bytes;
}

/// Identifiers and keys are stored as the bytes of their UTF-16 code units, high byte first: every QString comes back
/// as it was, and the order of the bytes is the order of QString.
QVariant encoded(const QString& text)
{
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    qToBigEndian<quint16>(text.utf16(), text.size(), bytes.data());
    return blob(bytes);
}

QString decoded(const QVariant& value)
{
    const QByteArray bytes = value.toByteArray();
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromBigEndian<quint16>(bytes.constData(), text.size(), text.data());
    return text;
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

void requireDriver(const QString& path)
{
    if (!QCoreApplication::instance())
        fail(path, QStringLiteral("It cannot be used before the program has a QCoreApplication."));
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE")))
        fail(path, QStringLiteral("It cannot be used because Qt's SQL driver QSQLITE is missing."));
}

void requireVersion(Connection& connection)
{
    const int version = connection.value(QStringLiteral("PRAGMA user_version")).toInt();
    if (version > schemaVersion)
        fail(connection.getPath(),
             QStringLiteral(
                 "It was written by a newer version of the program (version %1 of the file, up to %2 is known).")
                 .arg(version)
                 .arg(schemaVersion));
}

/// What is wrong with a file that SQLite takes for a database but that is none of ours.
QString describeForeign(const QString& path)
{
    const qint64 size = QFileInfo(path).size();
    if (size == 0)
        return QStringLiteral("It is empty: it was never completely made. Remove it and create it again.");
    return size < sqliteHeaderSize ? describe(NotADatabase) : QStringLiteral("It is a database of another program.");
}

void requireProject(Connection& connection)
{
    if (connection.value(QStringLiteral("PRAGMA application_id")).toInt() != applicationId)
        fail(connection.getPath(), describeForeign(connection.getPath()));
    requireVersion(connection);
}

/// In write-ahead mode EXTRA is the same as FULL; with a rollback journal it syncs the folder too.
void requireDurability(Connection& connection)
{
    connection.execute(QStringLiteral("PRAGMA synchronous = EXTRA"));
}

/// Takes the file to write-ahead mode. Where that cannot be done, now or on this file system, the rollback journal
/// stays, which is as safe.
void preferWriteAhead(Connection& connection)
{
    try {
        connection.execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    }
    catch (const SqliteError&) {
    }
}

/// Fills the new, empty file.
void initialize(const QString& path)
{
    Connection connection(path, QStringLiteral("mode=rw"), initialLockTimeout);
    requireDurability(connection);
    Transaction transaction(connection);
    for (const char* statement : schema)
        connection.execute(QString::fromLatin1(statement));
    connection.execute(QStringLiteral("PRAGMA application_id = %1").arg(applicationId));
    connection.execute(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
    transaction.commit();
}

/// Tells a file from another one that takes its name: device and inode. Where an open file cannot be replaced, there is
/// nothing to tell.
using FileIdentity = std::pair<quint64, quint64>;

FileIdentity identityOf([[maybe_unused]] const QString& path)
{
#ifdef Q_OS_UNIX
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) == 0)
        return {status.st_dev, status.st_ino};
#endif
    return {};
}

void removeFiles(const QString& path)
{
    for (const char* suffix : {"-journal", "-wal", "-shm", ""})
        QFile::remove(path + QLatin1String(suffix));
}

} // namespace

/// The open file: its connection, and what every operation on it needs.
class KsbDriverTaskFicheSqlite::Store
{
public:
    Store(const QString& path, KssOpenMode mode) : _path(path), _mode(mode), _thread(QThread::currentThread())
    {
        _retried([this] { _connect(); });
    }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    const QString& getPath() const { return _path; }

    void setLockTimeout(int milliseconds)
    {
        _requireThread();
        _lockTimeout = std::max(0, milliseconds);
        _connection->execute(QStringLiteral("PRAGMA busy_timeout = %1").arg(_lockTimeout));
    }

    /// Gives what `body(connection)` gives.
    template <class Body>
    auto read(Body body)
    {
        _requireThread();
        return _retried([&] { return body(_current()); });
    }

    /// Runs `body(connection)` in a transaction of its own: all of it, or nothing, is stored.
    template <class Body>
    void change(Body body)
    {
        _requireThread();
        if (_mode == KssOpenMode::ReadOnly)
            fail(_path, QStringLiteral("It was opened for reading only."));
        _retried([&] {
            Connection& connection = _current();
            _requireSameFile();
            Transaction transaction(connection);
            requireVersion(connection);
            body(connection);
            transaction.commit();
        });
    }

private:
    void _requireThread() const
    {
        if (QThread::currentThread() != _thread)
            throw MbeProgrammingError(
                failure(_path, QStringLiteral("Its store is used on another thread than the one that opened it.")));
    }

    /// Repeats `body` while the file is locked, until the time is over.
    template <class Body>
    std::invoke_result_t<Body> _retried(Body body)
    {
        QElapsedTimer timer;
        timer.start();
        for (;;) {
            try {
                return body();
            }
            catch (const SqliteError& error) {
                if (!error.isTransient() || timer.hasExpired(_lockTimeout))
                    throw;
            }
            QThread::msleep(retryPause);
        }
    }

    /// What is stored in a file that has lost its name would be lost with it.
    void _requireSameFile() const
    {
        if (!QFileInfo::exists(_path))
            fail(_path, QStringLiteral("It does not exist any more."));
        if (identityOf(_path) != _identity)
            fail(_path, QStringLiteral("It was replaced by another file. Open it again."));
    }

    Connection& _current()
    {
        if (_frozen)
            _connect();
        return *_connection;
    }

    void _connect()
    {
        _identity = identityOf(_path);
        try {
            _frozen = false;
            _connectAs(_mode == KssOpenMode::ReadOnly ? QStringLiteral("mode=ro") : QStringLiteral("mode=rw"));
        }
        catch (const SqliteError& error) {
            if (!error.isRefusedAccess())
                throw;
            _requireNoPendingChanges();
            _frozen = true;
            _connectAs(QStringLiteral("mode=ro&immutable=1"));
        }
    }

    void _connectAs(const QString& query)
    {
        auto connection = std::make_unique<Connection>(_path, query, _lockTimeout);
        requireProject(*connection);
        requireDurability(*connection);
        if (_mode == KssOpenMode::ReadWrite && !_frozen)
            preferWriteAhead(*connection);
        _connection = std::move(connection);
    }

    /// Without its log a file would show what it was before the latest changes, and without its rollback journal a
    /// change that was never completed.
    void _requireNoPendingChanges() const
    {
        for (const char* suffix : {"-wal", "-journal"}) {
            const QString log = QFileInfo(_path).canonicalFilePath() + QLatin1String(suffix);
            if (QFileInfo(log).size() > 0)
                fail(_path,
                     QStringLiteral("It cannot be opened together with the changes that wait in '%1': its folder "
                                    "cannot be written, or access is refused.")
                         .arg(log));
        }
    }

    QString _path;
    KssOpenMode _mode;
    QThread* _thread;
    int _lockTimeout = initialLockTimeout;
    FileIdentity _identity;
    std::unique_ptr<Connection> _connection;
    /// Whether the file is read without its shared index, because its folder does not let us make one. What another
    /// process writes is not seen through such a connection, so each reading takes a new one.
    bool _frozen = false;
};

namespace {

bool exists(Connection& connection, const QVariant& id, const QVariant& key)
{
    return connection.value(QStringLiteral("SELECT 1 FROM fiche WHERE id = ? AND key = ?"), {id, key}).isValid();
}

void supersede(Connection& connection, const QVariant& id, const QVariant& key, const QString& reason)
{
    const QString time = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
    connection.execute(QStringLiteral("INSERT INTO superseded (id, key, document, time, reason) "
                                      "SELECT id, key, document, ?, ? FROM fiche WHERE id = ? AND key = ?"),
                       {time, reason, id, key});
    connection.execute(QStringLiteral("DELETE FROM fiche WHERE id = ? AND key = ?"), {id, key});
}

} // namespace

KsbDriverTaskFicheSqlite::KsbDriverTaskFicheSqlite(std::unique_ptr<Store> store) : _store(std::move(store)) {}

KsbDriverTaskFicheSqlite::~KsbDriverTaskFicheSqlite() = default;

std::unique_ptr<KsbDriverTaskFicheSqlite> KsbDriverTaskFicheSqlite::create(const QString& filePath)
{
    const QString path = QFileInfo(filePath).absoluteFilePath();
    requireDriver(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        fail(path, QFileInfo::exists(path) ? QStringLiteral("It exists already.")
                                           : QStringLiteral("It cannot be created: %1.").arg(file.errorString()));
    file.close();
    try {
        initialize(path);
    }
    catch (...) {
        removeFiles(path);
        throw;
    }
    return open(path);
}

std::unique_ptr<KsbDriverTaskFicheSqlite> KsbDriverTaskFicheSqlite::open(const QString& filePath, KssOpenMode mode)
{
    const QFileInfo info(filePath);
    const QString path = info.absoluteFilePath();
    requireDriver(path);
    if (!info.exists())
        fail(path, QStringLiteral("It does not exist."));
    if (!info.isFile())
        fail(path, QStringLiteral("It is not a file."));
    return std::unique_ptr<KsbDriverTaskFicheSqlite>(new KsbDriverTaskFicheSqlite(std::make_unique<Store>(path, mode)));
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
    return _store->read([](Connection& connection) {
        // The values of one key are walked from the latest inserted to the first.
        QMultiMap<QString, QString> forms;
        connection.forEach(QStringLiteral("SELECT id, key FROM fiche ORDER BY id, key DESC"), {},
                           [&](const QSqlQuery& row) { forms.insert(decoded(row.value(0)), decoded(row.value(1))); });
        return QMap<QString, QString>(forms);
    });
}

QStringList KsbDriverTaskFicheSqlite::listKeys(const QString& id) const
{
    return _store->read([&](Connection& connection) {
        QStringList keys;
        connection.forEach(QStringLiteral("SELECT key FROM fiche WHERE id = ? ORDER BY key"), {encoded(id)},
                           [&](const QSqlQuery& row) { keys.append(decoded(row.value(0))); });
        return keys;
    });
}

bool KsbDriverTaskFicheSqlite::exists(const QString& id, const QString& key) const
{
    return _store->read([&](Connection& connection) { return ::exists(connection, encoded(id), encoded(key)); });
}

void KsbDriverTaskFicheSqlite::read(const QString& id, const QString& key, QDomDocument& document) const
{
    document = QDomDocument();
    const QVariant text = _store->read([&](Connection& connection) {
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
        fail(getFilePath(),
             QStringLiteral("The form '%1' with the key '%2' is not stored, because it could not be read "
                            "again, %3")
                 .arg(id, key, describe(result)));
    _store->change([&](Connection& connection) {
        connection.execute(QStringLiteral("INSERT OR REPLACE INTO fiche (id, key, document) VALUES (?, ?, ?)"),
                           {encoded(id), encoded(key), blob(text)});
    });
}

void KsbDriverTaskFicheSqlite::rename(const QString& id, const QString& oldKey, const QString& newKey)
{
    if (oldKey == newKey)
        return;
    _store->change([&](Connection& connection) {
        if (!::exists(connection, encoded(id), encoded(oldKey)))
            return;
        supersede(connection, encoded(id), encoded(newKey), QStringLiteral("Another form was renamed to its key."));
        connection.execute(QStringLiteral("UPDATE fiche SET key = ? WHERE id = ? AND key = ?"),
                           {encoded(newKey), encoded(id), encoded(oldKey)});
    });
}

QList<KsbDriverTaskFicheSqlite::Superseded> KsbDriverTaskFicheSqlite::listSuperseded() const
{
    return _store->read([](Connection& connection) {
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
    _store->change([&](Connection& connection) {
        QVariantList place;
        connection.forEach(QStringLiteral("SELECT id, key FROM superseded WHERE number = ?"), {number},
                           [&](const QSqlQuery& row) {
                               place = {row.value(0), row.value(1)};
                           });
        if (place.isEmpty())
            fail(getFilePath(), QStringLiteral("It has no superseded form of the number %1.").arg(number));
        const QVariant id = blob(place.at(0).toByteArray());
        const QVariant key = blob(place.at(1).toByteArray());
        supersede(connection, id, key, QStringLiteral("An older form was restored under its key."));
        connection.execute(QStringLiteral("INSERT INTO fiche (id, key, document) "
                                          "SELECT id, key, document FROM superseded WHERE number = ?"),
                           {number});
        connection.execute(QStringLiteral("DELETE FROM superseded WHERE number = ?"), {number});
    });
}
