#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>

#include <study/KsbSqliteConnection.h>
#include <study/KssOpenMode.h>

#include <memory>
#include <type_traits>
#include <utility>

/// An open project file: its connection, and what every operation on it needs. The stores of a project share one. It is
/// used on the thread that made it; what fails throws an `MbeError` of type `MbeError::Storage`.
///
/// A file of an older version is read as it is, and taken to the present version by the first change.
class KsbSqliteFile
{
public:
    /// From this version on, a file has tables for items.
    static constexpr int ItemsVersion = 2;

    /// Makes the file with all tables, empty.
    static std::shared_ptr<KsbSqliteFile> create(const QString& filePath);
    static std::shared_ptr<KsbSqliteFile> open(const QString& filePath, KssOpenMode mode);

    KsbSqliteFile(const KsbSqliteFile&) = delete;
    KsbSqliteFile& operator=(const KsbSqliteFile&) = delete;

    const QString& getPath() const { return _path; }
    void setLockTimeout(int milliseconds);

    /// Gives what `body(connection)` gives.
    template <class Body>
    auto read(Body body)
    {
        _requireThread();
        if (_inChange)
            return body(*_connection);
        return _retried([&] { return body(_current()); });
    }

    /// Runs `body(connection)` in a transaction of its own: all of it, or nothing, is stored. A change within a change
    /// is part of the outer one.
    template <class Body>
    void change(Body body)
    {
        _requireThread();
        if (_inChange)
            return body(*_connection);
        _requireWritable();
        _retried([&] {
            _begin();
            const Change running(this);
            body(*_connection);
            _commit();
        });
    }

    /// The same for a body that must not run a second time: only the beginning and the end of the transaction wait for
    /// other users of the file.
    template <class Body>
    void changeOnce(Body body)
    {
        _requireThread();
        if (_inChange)
            return body();
        _requireWritable();
        _retried([&] { _begin(); });
        const Change running(this);
        body();
        _retried([&] { _commit(); });
    }

    static QString failure(const QString& path, const QString& what);
    [[noreturn]] static void fail(const QString& path, const QString& what);
    /// The version of the file as it is now.
    static int versionOf(KsbSqliteConnection& connection);

private:
    /// Tells a file from another one that takes its name: device and inode. Where an open file cannot be replaced,
    /// there is nothing to tell.
    using Identity = std::pair<quint64, quint64>;

    /// Undoes the change that is still running at its end.
    class Change
    {
    public:
        explicit Change(KsbSqliteFile* file) : _file(file) {}
        Change(const Change&) = delete;
        Change& operator=(const Change&) = delete;
        ~Change()
        {
            if (_file->_inChange)
                _file->_rollBack();
        }

    private:
        KsbSqliteFile* _file;
    };

    KsbSqliteFile(const QString& path, KssOpenMode mode);

    static Identity _identityOf(const QString& path);

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
            catch (const KsbSqliteError& error) {
                if (!error.isTransient() || timer.hasExpired(_lockTimeout))
                    throw;
            }
            QThread::msleep(RetryPause);
        }
    }

    static constexpr unsigned long RetryPause = 10;

    void _requireThread() const;
    void _requireWritable() const;
    void _requireSameFile() const;
    void _requireNoPendingChanges() const;
    KsbSqliteConnection& _current();
    void _begin();
    void _commit();
    void _rollBack() noexcept;
    void _connect();
    void _connectAs(const QString& query);

    QString _path;
    KssOpenMode _mode;
    QThread* _thread;
    int _lockTimeout;
    Identity _identity;
    std::unique_ptr<KsbSqliteConnection> _connection;
    bool _inChange = false;
    /// Whether the file is read without its shared index, because its folder does not let us make one. What another
    /// process writes is not seen through such a connection, so each reading takes a new one.
    bool _frozen = false;
};
