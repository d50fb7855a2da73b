#pragma once

#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <basic/MbeError.h>

/// A failure of a project file that SQLite reports.
class KsbSqliteError : public MbeError
{
public:
    KsbSqliteError(const QString& path, const QSqlError& error);
    ~KsbSqliteError() override;

    /// Whether the cause can be that the files beside a database in write-ahead mode are missing and cannot be made.
    bool isRefusedAccess() const;
    /// Whether another user of the file has it locked.
    bool isTransient() const;
    /// The text for a file that is none of SQLite's.
    static QString describeNoDatabase();

private:
    KsbSqliteError(const QString& path, const QSqlError& error, int code);

    int _code;
};

/// One connection of Qt's SQLite driver under a name of its own, closed and taken off the list at the end. What fails
/// throws a `KsbSqliteError`.
class KsbSqliteConnection
{
public:
    /// `query` is the query part of the file's SQLite URI.
    KsbSqliteConnection(const QString& path, const QString& query, int lockTimeout);
    KsbSqliteConnection(const KsbSqliteConnection&) = delete;
    KsbSqliteConnection& operator=(const KsbSqliteConnection&) = delete;
    ~KsbSqliteConnection() { _close(); }

    const QString& getPath() const { return _path; }

    /// Runs a statement to its first row.
    QSqlQuery execute(const QString& sql, const QVariantList& values = {});

    /// Runs a statement and calls `row(query)` on each of its rows.
    template <class Row>
    void forEach(const QString& sql, const QVariantList& values, Row row)
    {
        QSqlQuery query = execute(sql, values);
        while (query.next())
            row(query);
        if (query.lastError().isValid())
            throw KsbSqliteError(_path, query.lastError());
    }

    /// The first column of the first row, invalid if there is no row.
    QVariant value(const QString& sql, const QVariantList& values = {});

    /// A blob for binding: zero bytes are a value, where a null array would bind as NULL.
    static QVariant blob(const QByteArray& bytes) { return bytes.isNull() ? QByteArray("") : bytes; }
    /// A text as the bytes of its UTF-16 code units, high byte first: every QString comes back as it was, and the order
    /// of the bytes is the order of QString.
    static QVariant encoded(const QString& text);
    static QString decoded(const QVariant& value);

private:
    void _close();

    QString _path;
    QString _name;
    QSqlDatabase _database;
};
