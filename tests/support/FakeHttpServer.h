#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QTcpSocket>

// A server on 127.0.0.1 for the online services: it notes the request line and the agent of
// each request and answers with a status line and body of the test's choosing, or not at all.
class FakeHttpServer : public QObject
{
public:
    FakeHttpServer()
    {
        m_server.listen(QHostAddress::LocalHost);
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = m_server.nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(socket); });
        });
    }

    QString baseAddress() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort()); }

    // The next answers: a body with status 200, an error page, or silence.
    void answer(const QByteArray &body, int status = 200)
    {
        m_body = body;
        m_status = status;
        m_silent = false;
        m_endless = false;
    }
    void stayQuiet() { m_silent = true; }
    // The next answers: a status line and then a header line that never ends, sent for as long
    // as the client reads it.
    void sendEndlessHeader()
    {
        m_silent = false;
        m_endless = true;
        m_endlessClosed = false;
    }
    // Whether the client closed the connection of the endless header.
    bool endlessHeaderClosed() const { return m_endlessClosed; }

    // The status line and headers that go before a body of that length.
    static QByteArray head(int status, qsizetype bodyLength)
    {
        return "HTTP/1.1 " + QByteArray::number(status) + (status == 200 ? " OK" : " Not Found")
            + "\r\nContent-Type: text/html\r\nContent-Length: " + QByteArray::number(bodyLength)
            + "\r\nConnection: close\r\n\r\n";
    }

    const QByteArray &requestLine() const { return m_requestLine; }
    const QByteArray &agent() const { return m_agent; }

private:
    void serve(QTcpSocket *socket)
    {
        m_request += socket->readAll();
        if (!m_request.contains("\r\n\r\n"))
            return;
        const QList<QByteArray> lines = m_request.split('\n');
        m_requestLine = lines.value(0).trimmed();
        for (const QByteArray &line : lines)
            if (line.toLower().startsWith("user-agent:"))
                m_agent = line.mid(11).trimmed();
        m_request.clear();
        if (m_silent)
            return;
        if (m_endless) {
            sendEndless(socket);
            return;
        }
        socket->write(head(m_status, m_body.size()) + m_body);
        socket->disconnectFromHost();
    }

    // Tops the header up whenever little is left to send, so the server's own buffer stays small.
    void sendEndless(QTcpSocket *socket)
    {
        socket->write("HTTP/1.1 200 OK\r\nX-Endlos: ");
        const auto topUp = [socket] {
            if (socket->state() == QAbstractSocket::ConnectedState && socket->bytesToWrite() < 65536)
                socket->write(QByteArray(16384, 'a'));
        };
        connect(socket, &QTcpSocket::bytesWritten, socket, topUp);
        connect(socket, &QTcpSocket::disconnected, this, [this] { m_endlessClosed = true; });
        connect(socket, &QTcpSocket::errorOccurred, this, [this] { m_endlessClosed = true; });
        topUp();
    }

    QTcpServer m_server;
    QByteArray m_request;
    QByteArray m_requestLine;
    QByteArray m_agent;
    QByteArray m_body;
    int m_status = 200;
    bool m_silent = false;
    bool m_endless = false;
    bool m_endlessClosed = false;
};
