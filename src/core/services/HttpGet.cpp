#include "HttpGet.h"

#include <QEventLoop>
#include <QNetworkProxy>
#include <QSslSocket>
#include <QTimer>

#include <optional>

namespace service {

namespace {

struct Target
{
    bool secure = false;
    QByteArray host;
    quint16 port = 80;
    QByteArray pathAndQuery; // as built: the request line carries it byte for byte
};

// The address is taken apart by hand: a URL class would percent-encode the "|" and the other
// characters that the server's scripts expect as typed.
std::optional<Target> targetOf(const QByteArray &address)
{
    Target target;
    qsizetype rest = 0;
    if (address.startsWith("http://")) {
        rest = 7;
    } else if (address.startsWith("https://")) {
        target.secure = true;
        target.port = 443;
        rest = 8;
    } else {
        return std::nullopt;
    }
    qsizetype slash = address.indexOf('/', rest);
    if (slash < 0)
        slash = address.size();
    QByteArray authority = address.mid(rest, slash - rest);
    target.pathAndQuery = slash < address.size() ? address.mid(slash) : QByteArray("/");
    if (const qsizetype colon = authority.lastIndexOf(':'); colon >= 0) {
        bool ok = false;
        target.port = authority.mid(colon + 1).toUShort(&ok);
        if (!ok)
            return std::nullopt;
        authority.truncate(colon);
    }
    target.host = authority;
    return target.host.isEmpty() ? std::nullopt : std::optional<Target>(target);
}

} // namespace

QByteArray httpGetOnce(const QByteArray &address, std::chrono::milliseconds timeLimit)
{
    const std::optional<Target> target = targetOf(address);
    if (!target)
        return {};
    QSslSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    QByteArray received;
    QEventLoop loop;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(&socket, &QAbstractSocket::disconnected, &loop, &QEventLoop::quit);
    QObject::connect(&socket, &QAbstractSocket::errorOccurred, &loop, &QEventLoop::quit);
    const auto send = [&] {
        // HTTP/1.0 and "no-cache": a plain body up to the end of the connection, never an
        // answer from a cache on the way.
        socket.write("GET " + target->pathAndQuery + " HTTP/1.0\r\nHost: " + target->host + ':'
            + QByteArray::number(target->port)
            + "\r\nUser-Agent: Wininet Test\r\nCache-Control: no-cache\r\nPragma: no-cache\r\n\r\n");
    };
    QObject::connect(&socket, &QAbstractSocket::connected, &socket, [&] {
        if (!target->secure)
            send();
    });
    QObject::connect(&socket, &QSslSocket::encrypted, &socket, send);
    // The limit holds for the whole answer, headers included: a header that never ends must
    // not grow the process for as long as the server goes on sending.
    socket.setReadBufferSize(kReplyLimit);
    const auto readWithinLimit = [&] { received += socket.read(kReplyLimit - received.size()); };
    QObject::connect(&socket, &QIODevice::readyRead, &loop, [&] {
        readWithinLimit();
        if (received.size() >= kReplyLimit)
            loop.quit();
    });
    if (target->secure)
        socket.connectToHostEncrypted(QString::fromLatin1(target->host), target->port);
    else
        socket.connectToHost(QString::fromLatin1(target->host), target->port);
    limit.start(timeLimit);
    loop.exec();
    readWithinLimit();
    const bool inTime = limit.isActive() || socket.state() == QAbstractSocket::UnconnectedState;
    socket.abort();

    // Any page the server sent counts, an error page too; no answer in time, or headers that
    // fill the limit, count as none.
    const qsizetype headerEnd = received.indexOf("\r\n\r\n");
    if (!inTime || !received.startsWith("HTTP/") || headerEnd < 0)
        return {};
    return received.mid(headerEnd + 4);
}

} // namespace service
