#include <study/KsbSqliteFile.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

constexpr int applicationId = 0x4B534631; // "KSF1"
constexpr int schemaVersion = KsbSqliteFile::ItemsVersion;
constexpr qint64 sqliteHeaderSize = 100;
constexpr int initialLockTimeout = 5000;

/// A statement, and the version of the files that have been through it.
struct SchemaStep
{
    int version;
    const char* statement;
};

// Identifiers of rows are never used again: AUTOINCREMENT. The contents of items have a table of their own, so that the
// items are read without them. The state of a model counts the changes of its items.
const SchemaStep schema[] = {
    {1, "CREATE TABLE fiche (id BLOB NOT NULL, key BLOB NOT NULL, document BLOB NOT NULL, PRIMARY KEY (id, key))"},
    {1, "CREATE TABLE superseded (number INTEGER PRIMARY KEY AUTOINCREMENT, id BLOB NOT NULL, key BLOB NOT NULL, "
        "document BLOB NOT NULL, time TEXT NOT NULL, reason TEXT NOT NULL)"},
    {2, "CREATE TABLE item (id INTEGER PRIMARY KEY AUTOINCREMENT, model TEXT NOT NULL, parent INTEGER NOT NULL, "
        "kind INTEGER NOT NULL, name BLOB NOT NULL, attributes BLOB NOT NULL)"},
    {2, "CREATE TABLE content (item INTEGER NOT NULL, number INTEGER NOT NULL, bytes BLOB NOT NULL, "
        "PRIMARY KEY (item, number))"},
    {2, "CREATE TABLE item_state (model TEXT PRIMARY KEY, number INTEGER NOT NULL)"},
};

void requireDriver(const QString& path)
{
    if (!QCoreApplication::instance())
        KsbSqliteFile::fail(path, QStringLiteral("It cannot be used before the program has a QCoreApplication."));
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE")))
        KsbSqliteFile::fail(path, QStringLiteral("It cannot be used because Qt's SQL driver QSQLITE is missing."));
}

int requireVersion(KsbSqliteConnection& connection)
{
    const int version = KsbSqliteFile::versionOf(connection);
    if (version > schemaVersion)
        KsbSqliteFile::fail(
            connection.getPath(),
            QStringLiteral(
                "It was written by a newer version of the program (version %1 of the file, up to %2 is known).")
                .arg(version)
                .arg(schemaVersion));
    return version;
}

/// What is wrong with a file that SQLite takes for a database but that is none of ours.
QString describeForeign(const QString& path)
{
    const qint64 size = QFileInfo(path).size();
    if (size == 0)
        return QStringLiteral("It is empty: it was never completely made. Remove it and create it again.");
    return size < sqliteHeaderSize ? KsbSqliteError::describeNoDatabase()
                                   : QStringLiteral("It is a database of another program.");
}

void requireProject(KsbSqliteConnection& connection)
{
    if (connection.value(QStringLiteral("PRAGMA application_id")).toInt() != applicationId)
        KsbSqliteFile::fail(connection.getPath(), describeForeign(connection.getPath()));
    requireVersion(connection);
}

/// In write-ahead mode EXTRA is the same as FULL; with a rollback journal it syncs the folder too.
void requireDurability(KsbSqliteConnection& connection)
{
    connection.execute(QStringLiteral("PRAGMA synchronous = EXTRA"));
}

/// Takes the file to write-ahead mode. Where that cannot be done, now or on this file system, the rollback journal
/// stays, which is as safe.
void preferWriteAhead(KsbSqliteConnection& connection)
{
    try {
        connection.execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    }
    catch (const KsbSqliteError&) {
    }
}

/// Takes a file of `version` to the present one: 0 is a new, empty file.
void upgrade(KsbSqliteConnection& connection, int version)
{
    for (const SchemaStep& step : schema) {
        if (step.version > version)
            connection.execute(QString::fromLatin1(step.statement));
    }
    connection.execute(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
}

/// Fills the new, empty file.
void initialize(const QString& path)
{
    KsbSqliteConnection connection(path, QStringLiteral("mode=rw"), initialLockTimeout);
    requireDurability(connection);
    connection.execute(QStringLiteral("BEGIN IMMEDIATE"));
    upgrade(connection, 0);
    connection.execute(QStringLiteral("PRAGMA application_id = %1").arg(applicationId));
    connection.execute(QStringLiteral("COMMIT"));
}

void removeFiles(const QString& path)
{
    for (const char* suffix : {"-journal", "-wal", "-shm", ""})
        QFile::remove(path + QLatin1String(suffix));
}
} // namespace

KsbSqliteFile::KsbSqliteFile(const QString& path, KssOpenMode mode)
    : _path(path),
      _mode(mode),
      _thread(QThread::currentThread()),
      _lockTimeout(initialLockTimeout)
{
    _retried([this] { _connect(); });
}

std::shared_ptr<KsbSqliteFile> KsbSqliteFile::create(const QString& filePath)
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
    return open(path, KssOpenMode::ReadWrite);
}

std::shared_ptr<KsbSqliteFile> KsbSqliteFile::open(const QString& filePath, KssOpenMode mode)
{
    const QFileInfo info(filePath);
    const QString path = info.absoluteFilePath();
    requireDriver(path);
    if (!info.exists())
        fail(path, QStringLiteral("It does not exist."));
    if (!info.isFile())
        fail(path, QStringLiteral("It is not a file."));
    return std::shared_ptr<KsbSqliteFile>(new KsbSqliteFile(path, mode));
}

QString KsbSqliteFile::failure(const QString& path, const QString& what)
{
    return QStringLiteral("Project file '%1': %2").arg(path, what);
}

void KsbSqliteFile::fail(const QString& path, const QString& what)
{
    throw MbeError(MbeError::Storage, failure(path, what));
}

int KsbSqliteFile::versionOf(KsbSqliteConnection& connection)
{
    return connection.value(QStringLiteral("PRAGMA user_version")).toInt();
}

void KsbSqliteFile::setLockTimeout(int milliseconds)
{
    _requireThread();
    _lockTimeout = std::max(0, milliseconds);
    _connection->execute(QStringLiteral("PRAGMA busy_timeout = %1").arg(_lockTimeout));
}

KsbSqliteFile::Identity KsbSqliteFile::_identityOf([[maybe_unused]] const QString& path)
{
#ifdef Q_OS_UNIX
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) == 0)
        return {status.st_dev, status.st_ino};
#endif
    return {};
}

void KsbSqliteFile::_requireThread() const
{
    if (QThread::currentThread() != _thread)
        throw MbeProgrammingError(
            failure(_path, QStringLiteral("Its store is used on another thread than the one that opened it.")));
}

void KsbSqliteFile::_requireWritable() const
{
    if (_mode == KssOpenMode::ReadOnly)
        fail(_path, QStringLiteral("It was opened for reading only."));
}

void KsbSqliteFile::_begin()
{
    KsbSqliteConnection& connection = _current();
    _requireSameFile();
    connection.execute(QStringLiteral("BEGIN IMMEDIATE"));
    _inChange = true;
    try {
        if (const int version = requireVersion(connection); version < schemaVersion)
            upgrade(connection, version);
    }
    catch (...) {
        _rollBack();
        throw;
    }
}

void KsbSqliteFile::_commit()
{
    _connection->execute(QStringLiteral("COMMIT"));
    _inChange = false;
}

void KsbSqliteFile::_rollBack() noexcept
{
    _inChange = false;
    try {
        _connection->execute(QStringLiteral("ROLLBACK"));
    }
    catch (...) {
        // SQLite has undone the transaction itself where the failure was too grave to leave that to us.
    }
}

// What is stored in a file that has lost its name would be lost with it.
void KsbSqliteFile::_requireSameFile() const
{
    if (!QFileInfo::exists(_path))
        fail(_path, QStringLiteral("It does not exist any more."));
    if (_identityOf(_path) != _identity)
        fail(_path, QStringLiteral("It was replaced by another file. Open it again."));
}

KsbSqliteConnection& KsbSqliteFile::_current()
{
    if (_frozen)
        _connect();
    return *_connection;
}

void KsbSqliteFile::_connect()
{
    _identity = _identityOf(_path);
    try {
        _frozen = false;
        _connectAs(_mode == KssOpenMode::ReadOnly ? QStringLiteral("mode=ro") : QStringLiteral("mode=rw"));
    }
    catch (const KsbSqliteError& error) {
        if (!error.isRefusedAccess())
            throw;
        _requireNoPendingChanges();
        _frozen = true;
        _connectAs(QStringLiteral("mode=ro&immutable=1"));
    }
}

void KsbSqliteFile::_connectAs(const QString& query)
{
    auto connection = std::make_unique<KsbSqliteConnection>(_path, query, _lockTimeout);
    requireProject(*connection);
    requireDurability(*connection);
    if (_mode == KssOpenMode::ReadWrite && !_frozen)
        preferWriteAhead(*connection);
    _connection = std::move(connection);
}

// Without its log a file would show what it was before the latest changes, and without its rollback journal a change
// that was never completed.
void KsbSqliteFile::_requireNoPendingChanges() const
{
    for (const char* suffix : {"-wal", "-journal"}) {
        const QString log = QFileInfo(_path).canonicalFilePath() + QLatin1String(suffix);
        if (QFileInfo(log).size() > 0)
            fail(_path, QStringLiteral("It cannot be opened together with the changes that wait in '%1': its folder "
                                       "cannot be written, or access is refused.")
                            .arg(log));
    }
}
