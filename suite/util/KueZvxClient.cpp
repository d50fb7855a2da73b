#include <QtCore/QDeadlineTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpSocket>

#include <basic/MbeError.h>
#include <util/KueZvxClient.h>

namespace {

constexpr unsigned short ZvxPort = 27470;
constexpr int MaximumHost = 255;  // characters, more than any name of a host has; long ones take long to encode
constexpr int MaximumLine = 4096; // bytes of one line of the server
// What is kept of that which a server sends unasked, in bytes.
constexpr qint64 MaximumUnread = 4 * MaximumLine;
// How long a server that is asked to end may take before it is killed, in milliseconds.
constexpr int EndingTime = 2000;

[[noreturn]] void refuse(const QString& text)
{
    throw MbeUserError(text);
}

[[noreturn]] void fail(const QString& text)
{
    throw MbeError(MbeError::Unknown, text);
}

int getRest(const QDeadlineTimer& deadline)
{
    return static_cast<int>(deadline.remainingTime());
}

// One line of the server without its end. `missing` is the text of the error if none comes in time.
QString readLine(QIODevice& device, const QDeadlineTimer& deadline, const QString& missing)
{
    QByteArray line;
    while (!line.endsWith('\n')) {
        line += device.readLine(MaximumLine + 1 - line.size());
        if (line.size() >= MaximumLine)
            fail(QStringLiteral("The ZVXserver sends lines that are too long."));
        if (!line.endsWith('\n') && !device.bytesAvailable() && !device.waitForReadyRead(getRest(deadline)))
            fail(missing);
    }
    return QString::fromUtf8(line).trimmed();
}

} // namespace

// One connection with the server that was launched for it, if one was.
class KueZvxClient::Link
{
public:
    explicit Link(int timeout) : _deadline(timeout) { _socket.setReadBufferSize(MaximumUnread); }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    ~Link()
    {
        _socket.abort();
        _endServer();
    }

    // Starts the program and gives the port at which it listens.
    int start(const QString& path)
    {
        _server.setStandardErrorFile(QProcess::nullDevice());
        _server.start(path, {QStringLiteral("--port"), QStringLiteral("0")});
        if (!_server.waitForStarted(getRest(_deadline)))
            fail(QStringLiteral("The ZVXserver '%1' cannot be started: %2").arg(path, _server.errorString()));
        const QString line =
            readLine(_server, _deadline, QStringLiteral("The ZVXserver '%1' does not tell its port.").arg(path));
        bool isNumber = false;
        const int port = line.mid(5).toInt(&isNumber);
        if (!line.startsWith(QLatin1String("PORT ")) || !isNumber || port < 1 || port > 65535)
            fail(QStringLiteral("The program '%1' is not a ZVXserver: it says '%2'.").arg(path, line));
        // What it might write from now on would only be kept.
        _server.closeReadChannel(QProcess::StandardOutput);
        return port;
    }

    void connect(const QString& host, int port)
    {
        _place = QStringLiteral("%1:%2").arg(host, QString::number(port));
        _socket.connectToHost(host, static_cast<quint16>(port));
        if (!_socket.waitForConnected(getRest(_deadline)))
            fail(QStringLiteral("No connection to the ZVXserver at %1: %2").arg(_place, _socket.errorString()));
    }

    void greet(const QString& dataPath)
    {
        _ask("ZVX 1");
        if (!dataPath.isEmpty())
            _ask("DATA " + QUrl::toPercentEncoding(dataPath));
    }

    bool isConnected() const { return _socket.state() == QAbstractSocket::ConnectedState; }

private:
    void _ask(const QByteArray& line)
    {
        _socket.write(line + '\n');
        while (_socket.bytesToWrite() > 0 && _socket.waitForBytesWritten(getRest(_deadline))) {
        }
        const QString answer =
            readLine(_socket, _deadline, QStringLiteral("The ZVXserver at %1 does not answer.").arg(_place));
        if (answer.startsWith(QLatin1String("ERROR ")))
            fail(QStringLiteral("The ZVXserver at %1 refuses: %2").arg(_place, answer.mid(6)));
        if (answer != QLatin1String("OK"))
            fail(QStringLiteral("What listens at %1 is not a ZVXserver: it says '%2'.").arg(_place, answer));
    }

    // The server ends by itself when its input does; one that does not is made to.
    void _endServer()
    {
        if (_server.state() == QProcess::NotRunning)
            return;
        _server.closeWriteChannel();
        if (!_server.waitForFinished(EndingTime)) {
            _server.kill();
            _server.waitForFinished();
        }
    }

    QDeadlineTimer _deadline;
    QProcess _server;
    QTcpSocket _socket;
    QString _place; // host and port, for messages
};

KueZvxClient::KueZvxClient() = default;

KueZvxClient::~KueZvxClient() = default;

void KueZvxClient::launchZvx(const QString& path, const QString& dataPath)
{
    disconnectZvx();
    if (path.isEmpty())
        refuse(QStringLiteral("The path of the ZVXserver is not known."));
    const QFileInfo program(path);
    if (!program.isFile() || !program.isExecutable())
        refuse(QStringLiteral("'%1' is not a program.").arg(path));
    if (!dataPath.isEmpty() && !QFileInfo(dataPath).isDir())
        refuse(QStringLiteral("The data folder '%1' does not exist.").arg(dataPath));
    auto link = std::make_unique<Link>(_timeout);
    const int port = link->start(program.absoluteFilePath());
    link->connect(QStringLiteral("127.0.0.1"), port);
    link->greet(dataPath);
    _link = std::move(link);
}

void KueZvxClient::connectZvx(const QString& host, int port, const QString& dataPath)
{
    disconnectZvx();
    const QString name = host.trimmed();
    if (name.isEmpty())
        refuse(QStringLiteral("The host of the ZVXserver is not given."));
    if (name.size() > MaximumHost)
        refuse(QStringLiteral("The name of the host of the ZVXserver is too long."));
    if (port < 1 || port > 65535)
        refuse(QStringLiteral("%1 is not the number of a port.").arg(port));
    auto link = std::make_unique<Link>(_timeout);
    link->connect(name, port);
    link->greet(dataPath);
    _link = std::move(link);
}

unsigned short KueZvxClient::getDefaultPort() const
{
    return ZvxPort;
}

bool KueZvxClient::isConnected() const
{
    return _link && _link->isConnected();
}

void KueZvxClient::disconnectZvx()
{
    _link.reset();
}

void KueZvxClient::setTimeout(int milliseconds)
{
    _timeout = qMax(1, milliseconds);
}
