#pragma once

#include <QtCore/QString>

#include <util/UtilExport.h>

#include <memory>

/// A connection to a data server, the program ZVXserver, on this machine or another.
///
/// Client and server speak lines of UTF-8. The server, called as `PROGRAM --port 0`, listens on the loopback address
/// and writes "PORT n" and nothing else to its standard output. It ends when its standard input ends. Once connected,
/// the client says "ZVX 1", and "DATA FOLDER" if a folder is given, with the folder percent-encoded; the server answers
/// each with "OK", or with "ERROR" and a text for the user. What the server says beyond that is not taken in.
///
/// The client owns the connection and the server that it launched. It has one connection at a time: a new one first
/// ends the previous one. After an error there is none, and no server that was launched runs on. A client is used and
/// destroyed in one thread.
class KESTRIN_UTIL_EXPORT KueZvxClient
{
public:
    static constexpr int DefaultTimeout = 10000;

    KueZvxClient();
    KueZvxClient(const KueZvxClient&) = delete;
    KueZvxClient& operator=(const KueZvxClient&) = delete;
    /// Closes the connection, and ends the server that was launched: asked first, then killed.
    virtual ~KueZvxClient();

    /// Starts the server program `path` and connects to it. `dataPath` is the folder of its data, empty for the
    /// server's own choice. Throws `MbeUserError` for a program or folder that does not exist, `MbeError` if the server
    /// does not start or does not answer in time.
    virtual void launchZvx(const QString& path, const QString& dataPath);
    /// Connects to the server that listens at `port` of `host`, which `dataPath` is a folder of. Throws `MbeUserError`
    /// for a host that is empty or longer than 255 characters and for a port outside 1 to 65535, `MbeError` if the
    /// server is not there, does not answer in time or refuses.
    virtual void connectZvx(const QString& host, int port, const QString& dataPath);
    /// The port at which a server listens that nobody gave another.
    virtual unsigned short getDefaultPort() const;

    bool isConnected() const;
    /// Ends the connection, and the server if this client launched it. Nothing happens without a connection.
    void disconnectZvx();

    /// How long launching or connecting may take as a whole, in milliseconds; at least 1. Looking up the name of a host
    /// takes as long as the system takes.
    void setTimeout(int milliseconds);
    int getTimeout() const { return _timeout; }

private:
    class Link;

    std::unique_ptr<Link> _link; ///< null without a connection
    int _timeout = DefaultTimeout;
};
