#include "StudyTest.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <csignal>
#include <cstdio>
#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Runs the `study_writer` of the tests to its end and gives its output.
QString outputOfWriter(const QStringList& arguments)
{
    QProcess process;
    process.start(STUDY_WRITER, arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// Lets permissions hold while it lives, also where the tests run as the administrator.
class Unprivileged
{
public:
    Unprivileged()
    {
        if (wasPrivileged) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged()
    {
        if (wasPrivileged) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }

    const bool wasPrivileged = geteuid() == 0;
};

class TaskFicheFaults : public StudyTest
{
protected:
    /// One form, and one that it superseded.
    void SetUp() override
    {
        const auto driver = Driver::create(path);
        driver->write("id", "key", parsed("<former/>"));
        driver->write("id", "old", parsed("<task/>"));
        driver->rename("id", "old", "key");
        ASSERT_EQ(driver->listSuperseded().at(0).number, 1);
    }
    void TearDown() override { setAccess(0755, 0644); }

    void setAccess(mode_t ofFolder, mode_t ofFile) const
    {
        EXPECT_EQ(chmod(QFile::encodeName(folder.path()).constData(), ofFolder), 0);
        chmod(QFile::encodeName(path).constData(), ofFile);
    }

    /// Every change of `driver` fails with `message`, and the form that SetUp made stands as it was.
    void expectRefusedChanges(Driver& driver, const QString& message) const
    {
        EXPECT_EQ(storageError([&] { driver.write("id", "key", parsed("<other/>")); }), message);
        EXPECT_EQ(storageError([&] { driver.rename("id", "key", "other"); }), message);
        EXPECT_EQ(storageError([&] { driver.restoreSuperseded(1); }), message);
        EXPECT_EQ(storedPlaces(driver), QStringList({"id/key"}));
        EXPECT_EQ(storedText(driver, "id", "key"), "<task/>");
    }

    /// The file cannot be opened, and is afterwards what it was before.
    void expectRefusedFile(const QString& message) const
    {
        const QByteArray before = bytesOf(path);
        for (const KssOpenMode mode : {KssOpenMode::ReadWrite, KssOpenMode::ReadOnly})
            EXPECT_EQ(storageError([&] { Driver::open(path, mode); }), message);
        EXPECT_EQ(bytesOf(path), before);
        EXPECT_TRUE(QSqlDatabase::connectionNames().isEmpty());
    }
};

TEST_F(TaskFicheFaults, ReadOnlyModeRefusesChangesAndLeavesTheFileAlone)
{
    const QByteArray before = bytesOf(path);

    expectRefusedChanges(*Driver::open(path, KssOpenMode::ReadOnly), inFile(path, "It was opened for reading only."));

    EXPECT_EQ(bytesOf(path), before);
}

TEST_F(TaskFicheFaults, AReadOnlyFileIsReadAndRefusesChanges)
{
    setAccess(0777, 0444);
    const Unprivileged unprivileged;

    expectRefusedChanges(*Driver::open(path), inFile(path, "It is read-only. (attempt to write a readonly database)"));
}

TEST_F(TaskFicheFaults, AReadOnlyFileInAReadOnlyFolderIsReadAndRefusesChanges)
{
    setAccess(0555, 0444);
    const Unprivileged unprivileged;

    expectRefusedChanges(*Driver::open(path), inFile(path, "It is read-only. (attempt to write a readonly database)"));
    EXPECT_EQ(storedText(*Driver::open(path, KssOpenMode::ReadOnly), "id", "key"), "<task/>");
}

TEST_F(TaskFicheFaults, AReadOnlyFolderShowsWhatOthersWriteMeanwhile)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs a second user";
    setAccess(0555, 0444);
    std::unique_ptr<Driver> reader;
    {
        const Unprivileged unprivileged;
        reader = Driver::open(path);
        EXPECT_EQ(storedText(*reader, "id", "key"), "<task/>");
    }
    auto writer = Driver::open(path);
    writer->write("id", "key", parsed("<second/>"));
    {
        const Unprivileged unprivileged;
        EXPECT_EQ(storedText(*reader, "id", "key"), "<second/>");
    }
    writer->write("id", "key", parsed("<third/>"));
    {
        const Unprivileged unprivileged;
        EXPECT_EQ(storedText(*reader, "id", "key"), "<third/>");
    }
    reader.reset();
    writer.reset();
}

TEST_F(TaskFicheFaults, AFileThatMayNotBeReadIsRefused)
{
    setAccess(0755, 0000);
    const Unprivileged unprivileged;

    EXPECT_EQ(storageError([&] { Driver::open(path); }),
              inFile(path, "It cannot be opened. (unable to open database file)"));
}

TEST_F(TaskFicheFaults, AFileWithPendingChangesInAReadOnlyFolderIsNotReadWithoutThem)
{
    const QString copy = folder.filePath("copy.ksp");
    {
        const auto driver = Driver::open(path);
        driver->write("id", "key", parsed("<second/>"));
        // What a process that dies now leaves behind.
        ASSERT_TRUE(QFile::copy(path, copy));
        ASSERT_TRUE(QFile::copy(path + "-wal", copy + "-wal"));
    }
    setAccess(0555, 0444);
    const Unprivileged unprivileged;

    EXPECT_EQ(storageError([&] { Driver::open(copy); }),
              inFile(copy, "It cannot be opened together with the changes that wait in '" + copy +
                               "-wal': its folder cannot be written, or access is refused."));
}

TEST_F(TaskFicheFaults, AChangeOfALockedFileFailsWhenItsTimeIsOver)
{
    const auto driver = Driver::open(path);
    driver->setLockTimeout(100);
    QProcess other;
    other.start(STUDY_WRITER, {"lock", path});
    ASSERT_TRUE(other.waitForReadyRead());
    QElapsedTimer timer;
    timer.start();

    expectRefusedChanges(*driver, inFile(path, "It is locked by another user of the file. (database is locked)"));

    EXPECT_GE(timer.elapsed(), 300);
    EXPECT_LT(timer.elapsed(), 3000);
    EXPECT_EQ(storedText(*Driver::open(path), "id", "key"), "<task/>");
    other.closeWriteChannel();
    ASSERT_TRUE(other.waitForFinished());
    driver->write("id", "key", parsed("<other/>"));
    EXPECT_EQ(storedText(*driver, "id", "key"), "<other/>");
}

TEST_F(TaskFicheFaults, AChangeWaitsForALockThatIsSoonGivenUp)
{
    const auto driver = Driver::open(path);
    QProcess other;
    other.start(STUDY_WRITER, {"lock", path});
    ASSERT_TRUE(other.waitForReadyRead());
    other.closeWriteChannel();

    driver->write("id", "key", parsed("<other/>"));

    EXPECT_EQ(storedText(*driver, "id", "key"), "<other/>");
    ASSERT_TRUE(other.waitForFinished());
}

TEST_F(TaskFicheFaults, ANegativeTimeoutDoesNotWait)
{
    const auto driver = Driver::open(path);
    driver->setLockTimeout(-1);
    QProcess other;
    other.start(STUDY_WRITER, {"lock", path});
    ASSERT_TRUE(other.waitForReadyRead());

    storageError([&] { driver->write("id", "key", parsed("<other/>")); });

    other.closeWriteChannel();
    ASSERT_TRUE(other.waitForFinished());
}

TEST_F(TaskFicheFaults, AFileAtItsLargestSizeRefusesAFormAndKeepsTheFormerOne)
{
    const auto driver = Driver::open(path);
    QSqlDatabase database = QSqlDatabase::database(QSqlDatabase::connectionNames().at(0), false);
    QSqlQuery(database).exec("PRAGMA max_page_count = 1");
    const QDomDocument large = parsed("<task>" + QString(200000, QLatin1Char('x')) + "</task>");

    EXPECT_EQ(storageError([&] { driver->write("id", "key", large); }),
              inFile(path, "The disk is full, or the file has reached its largest size. (database or disk is full)"));

    EXPECT_EQ(storedText(*driver, "id", "key"), "<task/>");
    driver->write("id", "key", parsed("<small/>"));
    EXPECT_EQ(storedText(*driver, "id", "key"), "<small/>");
}

TEST_F(TaskFicheFaults, AFailingDeviceRefusesAFormAndKeepsTheFormerOne)
{
    const auto driver = Driver::open(path);
    const QDomDocument large = parsed("<task>" + QString(200000, QLatin1Char('x')) + "</task>");
    rlimit former;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit small{65536, former.rlim_max};
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);

    const QString message = storageError([&] { driver->write("id", "key", large); });

    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &former), 0);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_EQ(message, inFile(path, "Reading or writing it failed. (disk I/O error)"));
    EXPECT_EQ(storedText(*driver, "id", "key"), "<task/>");
    driver->write("id", "key", parsed("<small/>"));
    EXPECT_EQ(storedText(*Driver::open(path), "id", "key"), "<small/>");
}

TEST_F(TaskFicheFaults, AFailureDuringCreationLeavesNoFile)
{
    const QString other = folder.filePath("other.ksp");
    rlimit former;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit small{1000, former.rlim_max};
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);

    const QString message = storageError([&] { Driver::create(other); });

    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &former), 0);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_EQ(message, inFile(other, "Reading or writing it failed. (disk I/O error)"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"study.ksp"}));
}

TEST_F(TaskFicheFaults, AFileOfANewerVersionIsRefused)
{
    DirectConnection(path).run("PRAGMA user_version = 3");

    expectRefusedFile(
        inFile(path, "It was written by a newer version of the program (version 3 of the file, up to 2 is known)."));
}

TEST_F(TaskFicheFaults, AFileThatANewerVersionTakesOverMeanwhileRefusesChanges)
{
    const auto driver = Driver::open(path);
    DirectConnection direct(path);
    direct.run("PRAGMA user_version = 3");

    expectRefusedChanges(
        *driver,
        inFile(path, "It was written by a newer version of the program (version 3 of the file, up to 2 is known)."));
}

TEST_F(TaskFicheFaults, ADatabaseOfAnotherProgramIsRefused)
{
    DirectConnection(path).run("PRAGMA application_id = 5");

    expectRefusedFile(inFile(path, "It is a database of another program."));
}

TEST_F(TaskFicheFaults, AnEmptyFileIsRefused)
{
    writeBytes(path, QByteArray());

    expectRefusedFile(inFile(path, "It is empty: it was never completely made. Remove it and create it again."));
}

TEST_F(TaskFicheFaults, AFileThatIsNoDatabaseIsRefused)
{
    writeBytes(path, QByteArray("These are my notes of the drilling campaign.\n").repeated(1000));

    expectRefusedFile(inFile(path, "It is no project file, or its start is damaged. (file is not a database)"));
}

TEST_F(TaskFicheFaults, AFileWithADamagedStartIsRefused)
{
    writeBytes(path, QByteArray(100, '\xA5') + bytesOf(path).mid(100));

    expectRefusedFile(inFile(path, "It is no project file, or its start is damaged. (file is not a database)"));
}

TEST_F(TaskFicheFaults, ATruncatedFileIsRefused)
{
    const QByteArray whole = bytesOf(path);
    writeBytes(path, whole.left(whole.size() / 2));

    expectRefusedFile(inFile(path, "It is damaged. (database disk image is malformed)"));
}

TEST_F(TaskFicheFaults, AFileCutWithinItsFirstBytesIsRefused)
{
    writeBytes(path, bytesOf(path).left(50));

    expectRefusedFile(inFile(path, "It is no project file, or its start is damaged."));
}

TEST_F(TaskFicheFaults, ADamagedPageIsToldByTheOperationThatMeetsIt)
{
    const QByteArray whole = bytesOf(path);
    const QByteArray damaged = whole.left(4096) + QByteArray(whole.size() - 4096, '\xA5');
    writeBytes(path, damaged);
    const QString message = inFile(path, "It is damaged. (database disk image is malformed)");
    {
        const auto driver = Driver::open(path);
        QDomDocument document;

        EXPECT_EQ(storageError([&] { driver->listAll(); }), message);
        EXPECT_EQ(storageError([&] { driver->listKeys("id"); }), message);
        EXPECT_EQ(storageError([&] { driver->exists("id", "key"); }), message);
        EXPECT_EQ(storageError([&] { driver->read("id", "key", document); }), message);
        EXPECT_EQ(storageError([&] { driver->write("id", "key", parsed("<other/>")); }), message);
        EXPECT_EQ(storageError([&] { driver->rename("id", "key", "other"); }), message);
        EXPECT_TRUE(document.isNull());
    }
    EXPECT_EQ(bytesOf(path), damaged);
}

TEST_F(TaskFicheFaults, AFileThatIsRemovedMeanwhileTakesNoForms)
{
    const auto driver = Driver::open(path);
    ASSERT_TRUE(QFile::remove(path));

    EXPECT_EQ(storageError([&] { driver->write("id", "key", parsed("<other/>")); }),
              inFile(path, "It does not exist any more."));
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST_F(TaskFicheFaults, AFileThatIsReplacedMeanwhileTakesNoForms)
{
    const QString other = folder.filePath("other.ksp");
    Driver::create(other)->write("id", "key", parsed("<replacement/>"));
    auto driver = Driver::open(path);
    ASSERT_EQ(std::rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData()), 0);

    EXPECT_EQ(storageError([&] { driver->write("id", "key", parsed("<lost/>")); }),
              inFile(path, "It was replaced by another file. Open it again."));

    driver.reset();
    EXPECT_EQ(storedText(*Driver::open(path), "id", "key"), "<replacement/>");
}

TEST_F(TaskFicheFaults, AFileWithoutItsTablesIsToldByTheOperationThatMissesThem)
{
    DirectConnection(path).run("DROP TABLE fiche");
    const auto driver = Driver::open(path);
    const QString message = inFile(path, "The request failed. (no such table: fiche)");

    EXPECT_EQ(storageError([&] { driver->listAll(); }), message);
    EXPECT_EQ(storageError([&] { driver->write("id", "key", parsed("<other/>")); }), message);
}

TEST_F(TaskFicheFaults, UseOnAnotherThreadIsAProgrammingError)
{
    const auto driver = Driver::open(path);
    QString message;

    std::thread([&] {
        try {
            driver->write("id", "key", parsed("<other/>"));
        }
        catch (const MbeProgrammingError& error) {
            message = error.getMessage();
        }
    }).join();

    EXPECT_EQ(message, inFile(path, "Its store is used on another thread than the one that opened it."));
    EXPECT_EQ(storedText(*driver, "id", "key"), "<task/>");
}

TEST_F(TaskFicheFaults, AProgramWithoutAnApplicationObjectIsTold)
{
    EXPECT_EQ(outputOfWriter({"no-application", path}),
              "4 " + inFile(path, "It cannot be used before the program has a QCoreApplication."));
}

TEST_F(TaskFicheFaults, AProgramWithoutTheSqlDriverIsTold)
{
    EXPECT_EQ(outputOfWriter({"no-driver", path}),
              "4 " + inFile(path, "It cannot be used because Qt's SQL driver QSQLITE is missing."));
}

} // namespace
