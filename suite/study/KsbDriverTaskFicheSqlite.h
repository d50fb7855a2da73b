#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QString>

#include <study/KsbIDriverTaskFiche.h>
#include <study/KssOpenMode.h>

#include <memory>

class KsbSqliteFile;

/// The store of task forms in one SQLite file. It owns its connection to the file, which is closed with it. A program
/// needs a `QCoreApplication` to have one, and uses it on the thread that made it.
///
/// Each change is one transaction: once the operation has returned, the change survives the death of the process and a
/// loss of power, and before that, nothing of it is seen. Several processes, and several stores of one process, can
/// work on one file; a change waits for the others (see `setLockTimeout`).
///
/// What fails throws an `MbeError` of type `MbeError::Storage` that names the file and says what happened: a file that
/// is read-only, locked, full, damaged, gone, replaced, of a newer version or no project file. What is stored stays as
/// it was. A file that cannot be written, or lies in a folder that cannot, is still read.
class KESTRIN_STUDY_EXPORT KsbDriverTaskFicheSqlite : public KsbIDriverTaskFiche
{
public:
    /// A form that had to leave its key to another one.
    struct Superseded
    {
        qint64 number;  ///< names it in this file, and is never used again
        QString id;     ///< the identifier that it stood under
        QString key;    ///< the fiche key that it stood under
        QDateTime time; ///< when it left, in UTC
        QString reason; ///< why it left
    };

    /// Makes the file with an empty store. A file that exists, whatever is in it, is refused and stays as it is. The
    /// folder must exist.
    static std::unique_ptr<KsbDriverTaskFicheSqlite> create(const QString& filePath);
    /// Opens a file that `create` made. A file that does not exist is refused, not made.
    static std::unique_ptr<KsbDriverTaskFicheSqlite> open(const QString& filePath,
                                                          KssOpenMode mode = KssOpenMode::ReadWrite);

    /// Keeps the forms in a file that is open already.
    explicit KsbDriverTaskFicheSqlite(std::shared_ptr<KsbSqliteFile> store);
    KsbDriverTaskFicheSqlite(const KsbDriverTaskFicheSqlite&) = delete;
    KsbDriverTaskFicheSqlite& operator=(const KsbDriverTaskFicheSqlite&) = delete;
    ~KsbDriverTaskFicheSqlite() override;

    /// The absolute path of the file.
    const QString& getFilePath() const;
    /// How long an operation waits for another user of the file before it tries a last time and fails: 5000 to begin
    /// with. Negative counts as 0.
    void setLockTimeout(int milliseconds);

    QMap<QString, QString> listAll() const override;
    QStringList listKeys(const QString& id) const override;
    bool exists(const QString& id, const QString& key) const override;
    /// A stored text that is no XML is told as a warning, stays stored, and leaves `document` null.
    void read(const QString& id, const QString& key, QDomDocument& document) const override;
    /// A document whose text could not be read again is refused with an error. A null document is told as a warning.
    void write(const QString& id, const QString& key, const QDomDocument& document) override;
    /// The renamed form becomes the current one under `newKey`. A form that stood there is superseded, not lost.
    void rename(const QString& id, const QString& oldKey, const QString& newKey) override;

    /// The superseded forms, oldest first.
    QList<Superseded> listSuperseded() const;
    /// Puts a superseded form back under its identifier and key. A form that stands there is superseded in its turn. An
    /// unknown number is an error.
    void restoreSuperseded(qint64 number);

private:
    std::shared_ptr<KsbSqliteFile> _store;
};
