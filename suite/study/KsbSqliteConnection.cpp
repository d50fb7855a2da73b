#include <study/KsbSqliteConnection.h>
#include <study/KsbSqliteFile.h>

#include <QtCore/QUrl>
#include <QtCore/QtEndian>

#include <atomic>

namespace {

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

QString nextName()
{
    static std::atomic<quint64> count{0};
    return QStringLiteral("kestrin_project_%1").arg(++count);
}

} // namespace

KsbSqliteError::KsbSqliteError(const QString& path, const QSqlError& error)
    // The plain code: the extended one has it in its lowest byte.
    : KsbSqliteError(path, error, error.nativeErrorCode().toInt() & 0xff)
{}

KsbSqliteError::KsbSqliteError(const QString& path, const QSqlError& error, int code)
    : MbeError(Storage,
               KsbSqliteFile::failure(path, QStringLiteral("%1 (%2)").arg(describe(code), error.databaseText()))),
      _code(code)
{}

KsbSqliteError::~KsbSqliteError() = default;

bool KsbSqliteError::isRefusedAccess() const
{
    return _code == CannotOpen || _code == ReadOnly;
}

bool KsbSqliteError::isTransient() const
{
    return _code == Busy || _code == Locked || _code == Protocol;
}

QString KsbSqliteError::describeNoDatabase()
{
    return describe(NotADatabase);
}

KsbSqliteConnection::KsbSqliteConnection(const QString& path, const QString& query, int lockTimeout)
    : _path(path),
      _name(nextName()),
      _database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), _name))
{
    QUrl url = QUrl::fromLocalFile(path);
    url.setQuery(query);
    _database.setDatabaseName(url.toString(QUrl::FullyEncoded));
    _database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(lockTimeout));
    if (!_database.open()) {
        const KsbSqliteError error(_path, _database.lastError());
        _close();
        throw error;
    }
}

QSqlQuery KsbSqliteConnection::execute(const QString& sql, const QVariantList& values)
{
    QSqlQuery query(_database);
    query.setForwardOnly(true);
    const bool prepared = query.prepare(sql);
    for (const QVariant& value : values)
        query.addBindValue(value);
    if (!prepared || !query.exec())
        throw KsbSqliteError(_path, query.lastError());
    return query;
}

QVariant KsbSqliteConnection::value(const QString& sql, const QVariantList& values)
{
    QSqlQuery query = execute(sql, values);
    return query.next() ? query.value(0) : QVariant();
}

QVariant KsbSqliteConnection::encoded(const QString& text)
{
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    qToBigEndian<quint16>(text.utf16(), text.size(), bytes.data());
    return blob(bytes);
}

QString KsbSqliteConnection::decoded(const QVariant& value)
{
    const QByteArray bytes = value.toByteArray();
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromBigEndian<quint16>(bytes.constData(), text.size(), text.data());
    return text;
}

void KsbSqliteConnection::_close()
{
    _database = QSqlDatabase();
    QSqlDatabase::removeDatabase(_name);
}
