#pragma once

#include <QByteArray>
#include <QHash>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

namespace tavrix::testing {

// A tiny HTTP/1.1 server on 127.0.0.1 serving fixed files by path (404 otherwise), so
// download code runs against a real socket without any outside server. A server made
// silent accepts connections and never answers, keeping a download in progress.
class HttpFileServer : public QObject
{
public:
    bool start() { return m_server.listen(QHostAddress::LocalHost); }

    void serve(const QString &path, const QByteArray &body) { m_files.insert(path, body); }
    void setSilent(bool silent) { m_silent = silent; }

    QUrl url(const QString &path) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path));
    }

    HttpFileServer()
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = m_server.nextPendingConnection()) {
                socket->setParent(this);
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
            }
        });
    }

private:
    void answer(QTcpSocket *socket)
    {
        QByteArray &request = m_pending[socket];
        request += socket->readAll();
        if (!request.contains("\r\n\r\n") || m_silent)
            return;
        const QString path = QString::fromLatin1(request.split(' ').value(1));
        m_pending.remove(socket);
        const auto file = m_files.constFind(path);
        const QByteArray body = file == m_files.cend() ? QByteArray("not here") : *file;
        const QByteArray status = file == m_files.cend() ? "404 Not Found" : "200 OK";
        socket->write("HTTP/1.1 " + status +
                      "\r\nContent-Type: application/octet-stream\r\nContent-Length: " +
                      QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
    QHash<QString, QByteArray> m_files;
    QHash<QTcpSocket *, QByteArray> m_pending;
    bool m_silent = false;
};

} // namespace tavrix::testing
