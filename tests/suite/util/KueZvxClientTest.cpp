#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <basic/MbeError.h>
#include <util/KueZvxClient.h>

#include <gtest/gtest.h>

#include <signal.h>

#include <functional>

namespace {

// What the call throws as an error of the type, or an empty text.
QString errorOf(MbeError::Type type, const std::function<void()>& call)
{
    try {
        call();
    }
    catch (const MbeError& error) {
        EXPECT_EQ(error.getType(), type) << error.what();
        return error.getMessage();
    }
    return {};
}

class KueZvxClientTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(_folder.isValid());
        qputenv("ZVX_SERVER_PID", pidFile().toLocal8Bit());
    }
    void TearDown() override
    {
        qunsetenv("ZVX_SERVER_PID");
        qunsetenv("ZVX_SERVER_MODE");
    }

    static QString server() { return QStringLiteral(ZVX_SERVER); }
    QString folder() const { return _folder.path(); }
    QString pidFile() const { return _folder.filePath(QStringLiteral("pid")); }

    // Whether the server that was launched last is there, be it as a process that nobody waited for.
    bool isServerThere() const
    {
        QFile file(pidFile());
        if (!file.open(QIODevice::ReadOnly)) {
            ADD_FAILURE() << "no server was launched";
            return false;
        }
        return kill(file.readAll().toInt(), 0) == 0;
    }

    // The error of launching a server that misbehaves.
    QString launchError(const char* mode, int timeout)
    {
        qputenv("ZVX_SERVER_MODE", mode);
        client.setTimeout(timeout);
        const QString error = errorOf(MbeError::Unknown, [this] { client.launchZvx(server(), {}); });
        EXPECT_FALSE(client.isConnected());
        EXPECT_FALSE(isServerThere());
        return error;
    }

    KueZvxClient client;

private:
    QTemporaryDir _folder;
};

// A server that runs without a client having launched it.
class RunningServer
{
public:
    RunningServer()
    {
        _process.start(QStringLiteral(ZVX_SERVER), {QStringLiteral("--port"), QStringLiteral("0")});
        while (!_process.canReadLine() && _process.waitForReadyRead(10000)) {
        }
        _port = _process.readLine().mid(5).trimmed().toInt();
    }
    ~RunningServer()
    {
        _process.closeWriteChannel();
        _process.waitForFinished();
    }
    int getPort() const { return _port; }
    bool isRunning() { return !_process.waitForFinished(50); }

private:
    QProcess _process;
    int _port = 0;
};

TEST_F(KueZvxClientTest, LaunchesTheServerAndConnectsToIt)
{
    client.launchZvx(server(), folder());
    EXPECT_TRUE(client.isConnected());
    EXPECT_TRUE(isServerThere());
}

TEST_F(KueZvxClientTest, LaunchesTheServerWithoutAFolder)
{
    client.launchZvx(server(), {});
    EXPECT_TRUE(client.isConnected());
}

TEST_F(KueZvxClientTest, EndsTheServerThatItLaunched)
{
    client.launchZvx(server(), folder());
    client.disconnectZvx();
    EXPECT_FALSE(client.isConnected());
    EXPECT_FALSE(isServerThere());
}

TEST_F(KueZvxClientTest, EndsTheServerThatItLaunchedWithItself)
{
    {
        KueZvxClient mortal;
        mortal.launchZvx(server(), folder());
        EXPECT_TRUE(isServerThere());
    }
    EXPECT_FALSE(isServerThere());
}

TEST_F(KueZvxClientTest, EndsTheFirstServerWhenItLaunchesASecond)
{
    client.launchZvx(server(), folder());
    QFile::rename(pidFile(), pidFile() + QStringLiteral("1"));
    client.launchZvx(server(), folder());
    QFile first(pidFile() + QStringLiteral("1"));
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    EXPECT_NE(kill(first.readAll().toInt(), 0), 0);
    EXPECT_TRUE(isServerThere());
    EXPECT_TRUE(client.isConnected());
}

TEST_F(KueZvxClientTest, ConnectsToAServerThatRunsAndLeavesItRunning)
{
    RunningServer running;
    client.connectZvx(QStringLiteral("localhost"), running.getPort(), folder());
    EXPECT_TRUE(client.isConnected());
    client.disconnectZvx();
    EXPECT_TRUE(running.isRunning());
    client.connectZvx(QStringLiteral("127.0.0.1"), running.getPort(), {});
    EXPECT_TRUE(client.isConnected());
}

TEST_F(KueZvxClientTest, PassesTheFolderAsItStandsAndTheServersTextOn)
{
    const RunningServer running;
    const QString odd = QStringLiteral("/data\n%41 Größe/refused");
    const QString error =
        errorOf(MbeError::Unknown, [&] { client.connectZvx(QStringLiteral("127.0.0.1"), running.getPort(), odd); });
    // The server repeats the folder, up to the end of the line.
    EXPECT_EQ(error, QStringLiteral("The ZVXserver at 127.0.0.1:%1 refuses: no folder '/data").arg(running.getPort()));
    const QString plain = QStringLiteral("/%41 Größe/refused");
    EXPECT_EQ(
        errorOf(MbeError::Unknown, [&] { client.connectZvx(QStringLiteral("127.0.0.1"), running.getPort(), plain); }),
        QStringLiteral("The ZVXserver at 127.0.0.1:%1 refuses: no folder '/%41 Größe/refused'").arg(running.getPort()));
    EXPECT_FALSE(client.isConnected());
}

TEST_F(KueZvxClientTest, RefusesWhatCannotBeLaunched)
{
    EXPECT_EQ(errorOf(MbeError::User, [this] { client.launchZvx({}, {}); }), "The path of the ZVXserver is not known.");
    EXPECT_EQ(errorOf(MbeError::User, [this] { client.launchZvx(folder(), {}); }),
              QStringLiteral("'%1' is not a program.").arg(folder()));
    EXPECT_EQ(errorOf(MbeError::User, [this] { client.launchZvx("/no/such/program", {}); }),
              "'/no/such/program' is not a program.");
    EXPECT_EQ(errorOf(MbeError::User, [this] { client.launchZvx(server(), "/no/such/folder"); }),
              "The data folder '/no/such/folder' does not exist.");
}

TEST_F(KueZvxClientTest, RefusesAFileThatTheSystemCannotRun)
{
    const QString path = folder() + QStringLiteral("/program");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no program\x01");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    file.close();
    const QString error = errorOf(MbeError::Unknown, [&] { client.launchZvx(path, {}); });
    EXPECT_TRUE(error.startsWith(QStringLiteral("The ZVXserver '%1' cannot be started: ").arg(path)))
        << error.toStdString();
}

TEST_F(KueZvxClientTest, TellsWhatIsWrongWithAServerAndLeavesNoProcess)
{
    const QString path = server();
    EXPECT_EQ(launchError("dead", 10000), QStringLiteral("The ZVXserver '%1' does not tell its port.").arg(path));
    EXPECT_EQ(launchError("mute", 300), QStringLiteral("The ZVXserver '%1' does not tell its port.").arg(path));
    EXPECT_EQ(launchError("strange", 10000),
              QStringLiteral("The program '%1' is not a ZVXserver: it says 'Hello'.").arg(path));
    EXPECT_EQ(launchError("endless", 10000), "The ZVXserver sends lines that are too long.");
    EXPECT_EQ(launchError("chatty", 10000), "The ZVXserver sends lines that are too long.");
    EXPECT_TRUE(launchError("silent", 300).endsWith(QStringLiteral(" does not answer.")));
    EXPECT_TRUE(launchError("closing", 10000).endsWith(QStringLiteral(" does not answer.")));
    EXPECT_TRUE(launchError("half", 10000).endsWith(QStringLiteral(" does not answer.")));
    EXPECT_TRUE(launchError("garbage", 10000).contains(QStringLiteral(" is not a ZVXserver: it says '")));
    EXPECT_TRUE(
        launchError("web", 10000).endsWith(QStringLiteral(" is not a ZVXserver: it says 'HTTP/1.1 400 Bad Request'.")));
}

TEST_F(KueZvxClientTest, KeepsLittleOfWhatAServerSendsUnasked)
{
    const auto residentPages = [] {
        QFile file(QStringLiteral("/proc/self/statm"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().split(' ').value(1).toLongLong();
    };
    qputenv("ZVX_SERVER_MODE", "flooding");
    client.launchZvx(server(), {});
    const qint64 before = residentPages();
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < 300;)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_LT(residentPages() - before, 2000);
    EXPECT_TRUE(client.isConnected());
    client.disconnectZvx();
    EXPECT_FALSE(isServerThere());
}

TEST_F(KueZvxClientTest, LaunchesAProgramAndAFolderWithBlanksAndQuotesInTheirPaths)
{
    const QString odd = folder() + QStringLiteral("/a \"b\" 'c' $d;");
    ASSERT_TRUE(QDir().mkpath(odd));
    const QString path = odd + QStringLiteral("/zvx server");
    ASSERT_TRUE(QFile::link(server(), path));
    client.launchZvx(path, odd);
    EXPECT_TRUE(client.isConnected());
    const QString missing = odd + QStringLiteral("/no program");
    EXPECT_EQ(errorOf(MbeError::User, [&] { client.launchZvx(missing, {}); }),
              QStringLiteral("'%1' is not a program.").arg(missing));
}

TEST_F(KueZvxClientTest, KillsAServerThatDoesNotEnd)
{
    EXPECT_EQ(launchError("stubborn", 300), QStringLiteral("The ZVXserver '%1' does not tell its port.").arg(server()));
}

TEST_F(KueZvxClientTest, RefusesAHostAndPortsThatCannotBe)
{
    EXPECT_EQ(errorOf(MbeError::User, [this] { client.connectZvx(" ", 80, {}); }),
              "The host of the ZVXserver is not given.");
    EXPECT_EQ(errorOf(MbeError::User, [this] { client.connectZvx(QString(256, QChar(0x4e00)), 80, {}); }),
              "The name of the host of the ZVXserver is too long.");
    QElapsedTimer timer;
    timer.start();
    errorOf(MbeError::User, [this] { client.connectZvx(QString(1000000, QChar(0x4e00)), 80, {}); });
    EXPECT_LT(timer.elapsed(), 1000);
    for (const int port : {-1, 0, 65536}) {
        EXPECT_EQ(errorOf(MbeError::User, [&] { client.connectZvx("localhost", port, {}); }),
                  QStringLiteral("%1 is not the number of a port.").arg(port));
    }
}

TEST_F(KueZvxClientTest, TellsThatNobodyListens)
{
    int port = 0;
    {
        const RunningServer gone;
        port = gone.getPort();
    }
    const QString error = errorOf(MbeError::Unknown, [&] { client.connectZvx("127.0.0.1", port, {}); });
    EXPECT_EQ(error, QStringLiteral("No connection to the ZVXserver at 127.0.0.1:%1: Connection refused").arg(port));
}

TEST_F(KueZvxClientTest, NamesAHostAsItStands)
{
    const QString error = errorOf(MbeError::Unknown, [&] { client.connectZvx("%2 %1", 80, {}); });
    EXPECT_TRUE(error.startsWith("No connection to the ZVXserver at %2 %1:80: ")) << error.toStdString();
}

TEST_F(KueZvxClientTest, WaitsNoLongerThanItsTimeout)
{
    EXPECT_EQ(client.getTimeout(), 10000);
    qputenv("ZVX_SERVER_MODE", "silent");
    const RunningServer running;
    client.setTimeout(200);
    QElapsedTimer timer;
    timer.start();
    const QString error = errorOf(MbeError::Unknown, [&] { client.connectZvx("127.0.0.1", running.getPort(), {}); });
    EXPECT_EQ(error, QStringLiteral("The ZVXserver at 127.0.0.1:%1 does not answer.").arg(running.getPort()));
    EXPECT_GE(timer.elapsed(), 150);
    EXPECT_LT(timer.elapsed(), 5000);
    client.setTimeout(0);
    EXPECT_EQ(client.getTimeout(), 1);
}

TEST_F(KueZvxClientTest, AFailedLaunchEndsThePreviousConnection)
{
    client.launchZvx(server(), folder());
    errorOf(MbeError::User, [this] { client.connectZvx("", 80, {}); });
    EXPECT_FALSE(client.isConnected());
    EXPECT_FALSE(isServerThere());
}

TEST_F(KueZvxClientTest, HasADefaultPortOutsideThePortsOfTheSystem)
{
    EXPECT_GT(client.getDefaultPort(), 1023);
}

} // namespace
