#include "websocketserver.h"

#include "firewallrule.h"
#include "mdnsresponder.h"
#include "origincheck.h"
#include "remotelog.h"
#include "wshandler.h"

#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QWebSocket>
#include <QWebSocketServer>

Q_LOGGING_CATEGORY(lcRemote, "orvane.remote")

namespace tavrix {

namespace {

// The firewall is asked once per process, however often a server starts.
bool firewallChecked = false;

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

WebSocketServer::WebSocketServer(TavrixController *controller, QObject *parent, FirewallRule *firewall)
    : QObject(parent)
    , m_controller(controller)
    , m_firewall(firewall ? firewall : FirewallRule::platform())
    , m_listener(new QTcpServer(this))
    , m_sockets(new QWebSocketServer(QStringLiteral("Tavrix"), QWebSocketServer::NonSecureMode, this))
{
    connect(m_listener, &QTcpServer::newConnection, this, &WebSocketServer::onTcpConnection);
    connect(m_sockets, &QWebSocketServer::newConnection, this, &WebSocketServer::onNewConnection);
}

WebSocketServer::~WebSocketServer()
{
    stop();
}

void WebSocketServer::registerHandler(WsHandler *handler)
{
    m_router.registerHandler(handler);
    connect(handler, &WsHandler::pushEvent, this, &WebSocketServer::onHandlerPushEvent);
}

bool WebSocketServer::start(quint16 port)
{
    if (m_listener->isListening())
        return true;
    if (!firewallChecked) {
        firewallChecked = true;
        m_firewall->ensureOpen(port);
    }
    if (!m_listener->listen(m_listenAddress, port)) {
        qCWarning(lcRemote).noquote()
            << "WebSocketServer: failed to listen on port" << port << m_listener->errorString();
        return false;
    }
    qCInfo(lcRemote).noquote() << "WebSocketServer: listening on port" << m_listener->serverPort();
    if (!m_listenAddress.isLoopback()) {
        // Made once; a start after a stop answers again.
        if (!m_mdns)
            m_mdns = new MdnsResponder(MdnsResponder::kHubInstanceName, this);
        m_nameAnswered = m_mdns->start();
        if (!m_nameAnswered)
            qCWarning(lcRemote).noquote() << "WebSocketServer: mDNS advertisement failed (non-fatal)";
    }
    return true;
}

void WebSocketServer::stop()
{
    const QList<QWebSocket *> clients = std::exchange(m_clients, {});
    m_subscriptions.clear();
    for (QWebSocket *client : clients) {
        client->disconnect(this);
        client->close(QWebSocketProtocol::CloseCodeNormal, QString());
        client->deleteLater();
    }
    for (QTcpSocket *socket : std::exchange(m_handshakes, {})) {
        socket->disconnect(this);
        socket->abort();
        socket->deleteLater();
    }
    emit clientCountChanged(0);
    if (m_mdns)
        m_mdns->stop();
    m_nameAnswered = false;
    if (m_listener->isListening())
        m_listener->close();
}

void WebSocketServer::setListenAddress(const QHostAddress &address)
{
    m_listenAddress = address;
}

bool WebSocketServer::isListening() const
{
    return m_listener->isListening();
}

quint16 WebSocketServer::port() const
{
    return m_listener->isListening() ? m_listener->serverPort() : 0;
}

QStringList WebSocketServer::clientAddresses() const
{
    QStringList addresses;
    for (const QWebSocket *client : m_clients)
        addresses.append(
            QStringLiteral("%1:%2").arg(client->peerAddress().toString()).arg(client->peerPort()));
    return addresses;
}

void WebSocketServer::onTcpConnection()
{
    while (QTcpSocket *socket = m_listener->nextPendingConnection()) {
        if (m_handshakes.size() >= kMaxPendingHandshakes) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        m_handshakes.insert(socket);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { inspectHandshake(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] { dropHandshake(socket); });
        // A connection that never completes its request head is not kept forever.
        QTimer::singleShot(kHandshakeTimeoutMs, socket, [this, socket] { dropHandshake(socket); });
    }
}

void WebSocketServer::inspectHandshake(QTcpSocket *socket)
{
    if (!m_handshakes.contains(socket))
        return;
    // Peeked, not read: the WebSocket server reads the same bytes when it takes over.
    const QByteArray head = socket->peek(origincheck::kMaxHeadSize + 4);
    switch (origincheck::judge(head)) {
    case origincheck::Verdict::Incomplete:
        return;
    case origincheck::Verdict::Refused:
        qCInfo(lcRemote).noquote() << "WebSocketServer: refused a handshake from"
                                   << socket->peerAddress().toString() << "(foreign origin)";
        m_handshakes.remove(socket);
        socket->disconnect(this);
        socket->write("HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
        socket->disconnectFromHost();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        return;
    case origincheck::Verdict::Allowed:
        m_handshakes.remove(socket);
        socket->disconnect(this);
        m_sockets->handleConnection(socket);
        return;
    }
}

void WebSocketServer::dropHandshake(QTcpSocket *socket)
{
    if (!m_handshakes.remove(socket))
        return;
    socket->disconnect(this);
    socket->abort();
    socket->deleteLater();
}

void WebSocketServer::onNewConnection()
{
    while (QWebSocket *client = m_sockets->nextPendingConnection()) {
        // Larger messages close the client with 1009 instead of being buffered.
        client->setMaxAllowedIncomingMessageSize(kMaxMessageSize);
        client->setMaxAllowedIncomingFrameSize(kMaxMessageSize);
        connect(client, &QWebSocket::textMessageReceived, this, &WebSocketServer::onTextMessageReceived);
        connect(client, &QWebSocket::disconnected, this, &WebSocketServer::onClientDisconnected);
        m_clients.append(client);
        m_subscriptions.insert(client, {});
        qCInfo(lcRemote).noquote() << "WebSocketServer: client connected from"
                                   << client->peerAddress().toString();
    }
    emit clientCountChanged(clientCount());
}

void WebSocketServer::onClientDisconnected()
{
    auto *client = qobject_cast<QWebSocket *>(sender());
    if (!client || !m_clients.removeOne(client))
        return;
    m_subscriptions.remove(client);
    client->deleteLater();
    qCInfo(lcRemote).noquote() << "WebSocketServer: client disconnected";
    emit clientCountChanged(clientCount());
}

void WebSocketServer::onTextMessageReceived(const QString &message)
{
    auto *client = qobject_cast<QWebSocket *>(sender());
    if (!client || !m_subscriptions.contains(client))
        return;
    send(client, compact(m_router.dispatch(message, m_subscriptions[client])));
}

void WebSocketServer::onHandlerPushEvent(const QString &event, const QJsonObject &data)
{
    QString text; // built once, and only when someone listens
    for (QWebSocket *client : std::as_const(m_clients)) {
        const auto subscribed = m_subscriptions.constFind(client);
        if (subscribed == m_subscriptions.cend() || !subscribed->contains(event))
            continue;
        if (client->bytesToWrite() > kPushBacklogLimit)
            continue; // it is not reading; a later event tells it the news
        if (text.isEmpty())
            text = compact({{QStringLiteral("event"), event}, {QStringLiteral("data"), data}});
        send(client, text);
    }
}

void WebSocketServer::send(QWebSocket *client, const QString &text)
{
    if (client->bytesToWrite() > kMaxBacklog) {
        // Replies it never reads would pile up without end.
        client->close(QWebSocketProtocol::CloseCodePolicyViolated, QStringLiteral("Not reading"));
        return;
    }
    client->sendTextMessage(text);
}

} // namespace tavrix
