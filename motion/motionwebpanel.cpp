#include "motionwebpanel.h"

#include "httprequest.h"
#include "motionwebroutes.h"

#include <QFile>
#include <QLoggingCategory>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

// The page is a resource of this static library; the linker keeps it only when asked for.
static QByteArray loadMotionWebPage()
{
    Q_INIT_RESOURCE(motionwebpanel);
    QFile file(QStringLiteral(":/motion-web/index.html"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

namespace tavrix {

Q_LOGGING_CATEGORY(lcWebPanel, "orvane.motion.web")

MotionWebPanel::MotionWebPanel(MotionSystemController *controller, QObject *parent)
    : MotionWebPanel(controller, Options(), parent)
{}

MotionWebPanel::MotionWebPanel(MotionSystemController *controller, Options options, QObject *parent)
    : QObject(parent)
    , m_options(std::move(options))
    , m_server(new QTcpServer(this))
    , m_routes(std::make_unique<MotionWebRoutes>(*controller, loadMotionWebPage()))
{
    connect(m_server, &QTcpServer::newConnection, this, &MotionWebPanel::acceptConnections);
}

MotionWebPanel::~MotionWebPanel()
{
    // Sockets are children of the server; they go with it, before the routes they could reach.
    delete m_server;
    m_server = nullptr;
}

bool MotionWebPanel::start(quint16 firstPort)
{
    if (m_server->isListening())
        return true;
    for (int attempt = 0; attempt < kPortAttempts; ++attempt) {
        const int port = firstPort + attempt;
        if (port > 65535)
            break;
        if (m_server->listen(m_options.listenAddress, quint16(port))) {
            emit statusChanged();
            return true;
        }
    }
    return false;
}

void MotionWebPanel::stop()
{
    if (!m_server->isListening())
        return;
    m_server->close();
    emit statusChanged();
}

bool MotionWebPanel::isListening() const
{
    return m_server->isListening();
}

quint16 MotionWebPanel::port() const
{
    return m_server->isListening() ? m_server->serverPort() : 0;
}

QString MotionWebPanel::url() const
{
    QString host;
    if (m_options.urlHost)
        host = m_options.urlHost();
    else if (m_options.listenAddress != QHostAddress(QHostAddress::AnyIPv4) &&
             m_options.listenAddress != QHostAddress(QHostAddress::Any))
        host = m_options.listenAddress.toString();
    if (host.isEmpty())
        host = QStringLiteral("127.0.0.1");
    return QStringLiteral("http://%1:%2").arg(host).arg(port());
}

void MotionWebPanel::acceptConnections()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        if (m_buffers.size() >= kMaxConnections) {
            qCWarning(lcWebPanel) << "[Web] too many connections; closing one from"
                                  << socket->peerAddress().toString();
            socket->abort();
            socket->deleteLater();
            continue;
        }
        m_buffers.insert(socket, QByteArray());
        connect(socket, &QObject::destroyed, this, [this, socket] { m_buffers.remove(socket); });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
        // Slow senders hold a slot; the whole request has to arrive in time.
        QTimer::singleShot(m_options.requestTimeout, socket, [socket] { socket->abort(); });
    }
}

void MotionWebPanel::serve(QTcpSocket *socket)
{
    auto it = m_buffers.find(socket);
    if (it == m_buffers.end())
        return;
    QByteArray &buffer = *it;
    buffer += socket->readAll();
    // A head that ends past the limit is as good as one that never ends.
    const qsizetype length =
        http::headLength(QByteArrayView(buffer).first(qMin(buffer.size(), http::kMaxRequestBytes + 4)));
    if (length < 0) {
        if (buffer.size() > http::kMaxRequestBytes)
            answer(socket,
                   http::Reply::text(http::kRequestTooLarge, QStringLiteral("request too large")).toBytes());
        return;
    }
    const std::optional<http::Request> request = http::parseRequest(QByteArrayView(buffer).first(length));
    http::Reply reply;
    if (!request)
        reply = http::Reply::text(http::kBadRequest, QStringLiteral("bad request"));
    else if (request->method == "POST" && (!request->isSameOrigin() || !request->isHostAnAddress()))
        // Another site's page in the phone's browser must not move the seat.
        reply = http::Reply::text(http::kForbidden, QStringLiteral("forbidden"));
    else
        reply = m_routes->handle(*request);
    answer(socket, reply.toBytes());
}

void MotionWebPanel::answer(QTcpSocket *socket, const QByteArray &reply)
{
    m_buffers.remove(socket);
    disconnect(socket, &QTcpSocket::readyRead, this, nullptr);
    socket->write(reply);
    socket->disconnectFromHost();
}

} // namespace tavrix
