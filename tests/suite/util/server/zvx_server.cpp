// The data server of the tests. It listens at the port that `--port` gives, 0 for any, serves one client after the
// other, and ends at the end of its input. A folder that ends in "refused" is refused with its own name.
// The variable ZVX_SERVER_PID names a file for its process id; ZVX_SERVER_MODE makes it misbehave:
//   dead       ends at once
//   mute       tells no port
//   stubborn   tells no port and does not end with its input
//   strange    writes something else than a port
//   endless    writes a line without end
//   silent     accepts and answers nothing
//   web        answers as a server of another kind
//   chatty     answers with a line without end
//   garbage    answers with bytes that are no text
//   closing    closes the connection instead of answering
//   half       closes the connection in the middle of an answer
//   flooding   answers and then sends without end

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include <poll.h>
#include <unistd.h>

#include <cstdio>

namespace {

bool hasInputEnded()
{
    pollfd input{STDIN_FILENO, POLLIN, 0};
    char byte = 0;
    return poll(&input, 1, 0) > 0 && read(STDIN_FILENO, &byte, 1) <= 0;
}

void waitForEndOfInput()
{
    while (!hasInputEnded())
        usleep(10000);
}

void say(const QByteArray& text)
{
    std::fputs(text.constData(), stdout);
    std::fflush(stdout);
}

QByteArray answer(const QByteArray& mode, const QByteArray& line)
{
    if (mode == "web")
        return "HTTP/1.1 400 Bad Request\r\n";
    if (mode == "chatty")
        return QByteArray(100000, 'x');
    if (mode == "garbage")
        return QByteArray("\0\xff\xfe\n", 4);
    if (mode == "half")
        return "O";
    const QString folder = QUrl::fromPercentEncoding(line.mid(5).trimmed());
    if (line.startsWith("DATA ") && folder.endsWith(QLatin1String("refused")))
        return "ERROR no folder '" + folder.toUtf8() + "'\n";
    return line == "ZVX 1\n" || line.startsWith("DATA ") ? "OK\n" : "ERROR what?\n";
}

bool isServing(const QTcpSocket& client)
{
    return client.state() == QAbstractSocket::ConnectedState && !hasInputEnded();
}

void flood(QTcpSocket& client)
{
    while (isServing(client)) {
        if (client.bytesToWrite() == 0)
            client.write(QByteArray(1 << 20, 'x'));
        client.waitForBytesWritten(20);
    }
}

void serve(QTcpSocket& client, const QByteArray& mode)
{
    while (isServing(client)) {
        if (!client.canReadLine() && !client.waitForReadyRead(20))
            continue;
        if (mode == "closing")
            return;
        while (client.canReadLine() && mode != "silent") {
            client.write(answer(mode, client.readLine()));
            client.waitForBytesWritten(1000);
            if (mode == "half")
                return;
            if (mode == "flooding")
                flood(client);
        }
    }
}

int listen(quint16 port, const QByteArray& mode)
{
    QTcpServer server;
    if (!server.listen(QHostAddress::LocalHost, port))
        return 1;
    say("PORT " + QByteArray::number(server.serverPort()) + '\n');
    while (!hasInputEnded()) {
        if (!server.waitForNewConnection(20))
            continue;
        const std::unique_ptr<QTcpSocket> client(server.nextPendingConnection());
        serve(*client, mode);
    }
    return 0;
}

void writeProcessId()
{
    QFile file(QString::fromLocal8Bit(qgetenv("ZVX_SERVER_PID")));
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray::number(QCoreApplication::applicationPid()));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3 || arguments[1] != QLatin1String("--port"))
        return 2;
    const QByteArray mode = qgetenv("ZVX_SERVER_MODE");
    if (qEnvironmentVariableIsSet("ZVX_SERVER_PID"))
        writeProcessId();
    if (mode == "dead")
        return 3;
    if (mode == "strange")
        say("Hello\n");
    if (mode == "endless")
        say(QByteArray(100000, 'x'));
    if (mode == "stubborn")
        sleep(600);
    if (mode != "mute" && mode != "strange" && mode != "endless")
        return listen(arguments[2].toUShort(), mode);
    waitForEndOfInput();
    return 0;
}
