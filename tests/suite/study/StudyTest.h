#pragma once

#include <basic/MbeError.h>
#include <study/KsbDriverTaskFicheSqlite.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <QtXml/QDomDocument>

#include <gtest/gtest.h>

using Driver = KsbDriverTaskFicheSqlite;

/// Gives each test a folder of its own and the path of a project file in it, which does not exist yet.
class StudyTest : public testing::Test
{
protected:
    /// Makes the file with one form.
    void createWithForm(const QString& id, const QString& key, const QString& text) const;

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("study.ksp"));
};

/// A connection to a project file that goes round the store.
class DirectConnection
{
public:
    explicit DirectConnection(const QString& path)
    {
        database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("direct"));
        database.setDatabaseName(path);
        EXPECT_TRUE(database.open());
    }
    DirectConnection(const DirectConnection&) = delete;
    DirectConnection& operator=(const DirectConnection&) = delete;
    ~DirectConnection()
    {
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("direct"));
    }

    /// The first value that the statement gives.
    QVariant run(const QString& sql)
    {
        QSqlQuery query(database);
        EXPECT_TRUE(query.exec(sql)) << query.lastError().text().toStdString();
        return query.next() ? query.value(0) : QVariant();
    }

    QSqlDatabase database;
};

inline QDomDocument parsed(const QString& text)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(text));
    return document;
}

/// The stored form as text; empty if it is null.
inline QString storedText(const KsbIDriverTaskFiche& driver, const QString& id, const QString& key)
{
    QDomDocument document;
    driver.read(id, key, document);
    return document.toString(-1);
}

/// The pairs of `listAll` in their order, each as "identifier/key".
inline QStringList storedPlaces(const KsbIDriverTaskFiche& driver)
{
    QStringList places;
    const QMap<QString, QString> forms = driver.listAll();
    for (auto form = forms.begin(); form != forms.end(); ++form)
        places.append(form.key() + QLatin1Char('/') + form.value());
    return places;
}

/// The bytes of a file that nobody has open: to close it here would end the locks of this process on it.
inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

inline void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
}

/// The message of the storage error that `body` must throw.
template <class Body>
QString storageError(Body body)
{
    try {
        body();
    }
    catch (const MbeError& error) {
        EXPECT_EQ(error.getType(), MbeError::Storage);
        return error.getMessage();
    }
    ADD_FAILURE() << "nothing was thrown";
    return QString();
}

inline QString inFile(const QString& path, const QString& what)
{
    return QStringLiteral("Project file '%1': %2").arg(path, what);
}

inline void StudyTest::createWithForm(const QString& id, const QString& key, const QString& text) const
{
    Driver::create(path)->write(id, key, parsed(text));
}
