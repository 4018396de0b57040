#pragma once

#include "requestrouter.h"

#include <QHash>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

class QTcpServer;
class QTcpSocket;
class QWebSocket;
class QWebSocketServer;

namespace tavrix {

class FirewallRule;
class MdnsResponder;
class TavrixController;
class WsHandler;

// The mobile app's way into the hub: a plain WebSocket server on the local network.
// Every text message is one JSON request; the reply goes to the asking client only, and
// the handlers' push events go to the clients that subscribed to them, in connection
// order. After the first successful listen it also answers mDNS queries for the hub's name.
//
// It guards the hub against what a client on the network may send: a handshake from a
// browser page of another origin is refused, a message over 1 MiB closes that client
// (1009), binary messages are ignored, and a client that stops reading misses push events
// instead of piling them up in memory.
class WebSocketServer : public QObject
{
    Q_OBJECT

public:
    static constexpr quint16 kDefaultPort = 12345;
    static constexpr qint64 kMaxMessageSize = 1024 * 1024;
    // Unsent bytes above which a client is skipped by push events, and above which it is closed.
    static constexpr qint64 kPushBacklogLimit = 512 * 1024;
    static constexpr qint64 kMaxBacklog = 8 * 1024 * 1024;
    // Handshakes waiting for their request head at once, and how long each may take.
    static constexpr int kMaxPendingHandshakes = 256;
    static constexpr int kHandshakeTimeoutMs = 10000;

    // The controller is not owned and must outlive the server. firewall defaults to the platform's.
    explicit WebSocketServer(TavrixController *controller, QObject *parent = nullptr,
                             FirewallRule *firewall = nullptr);
    ~WebSocketServer() override;

    // Routes the handler's requests to it and fans its push events out. The handler
    // should have this server as its Qt parent.
    void registerHandler(WsHandler *handler);

    // Listens on every interface, or only on the address set before; true when listening
    // (also when it already was).
    bool start(quint16 port = kDefaultPort);
    // On a loopback address the hub's name is not advertised: no phone could use it, and
    // tests must not talk to the machine's real network.
    void setListenAddress(const QHostAddress &address);
    [[nodiscard]] QHostAddress listenAddress() const { return m_listenAddress; }
    // Whether mDNS queries for the hub's name are being answered (the port may be taken).
    [[nodiscard]] bool isNameAnswered() const { return m_nameAnswered; }
    // Closes every client (1000) and stops listening and answering mDNS queries.
    void stop();

    [[nodiscard]] bool isListening() const;
    // The port actually bound (useful after start(0)); 0 when not listening.
    [[nodiscard]] quint16 port() const;
    [[nodiscard]] int clientCount() const { return int(m_clients.size()); }
    // "address:port" of each connected client, in connection order.
    [[nodiscard]] QStringList clientAddresses() const;
    [[nodiscard]] TavrixController *controller() const { return m_controller; }
    // The protocol half, apart from the sockets (the fuzzer drives it directly).
    [[nodiscard]] const RequestRouter &router() const { return m_router; }

signals:
    void clientCountChanged(int count);

public slots:
    void onNewConnection();
    void onClientDisconnected();
    void onTextMessageReceived(const QString &message);
    void onHandlerPushEvent(const QString &event, const QJsonObject &data);

private:
    void onTcpConnection();
    void inspectHandshake(QTcpSocket *socket);
    void dropHandshake(QTcpSocket *socket);
    void send(QWebSocket *client, const QString &text);

    TavrixController *m_controller;
    FirewallRule *m_firewall;
    // Accepts the TCP connections and checks each handshake's origin before the
    // WebSocket server, which does not listen itself, takes it over.
    QTcpServer *m_listener = nullptr;
    QWebSocketServer *m_sockets = nullptr;
    QList<QWebSocket *> m_clients;
    QHash<QWebSocket *, QSet<QString>> m_subscriptions;
    QSet<QTcpSocket *> m_handshakes;
    QHostAddress m_listenAddress{QHostAddress::Any};
    RequestRouter m_router;
    MdnsResponder *m_mdns = nullptr;
    bool m_nameAnswered = false;
};

} // namespace tavrix
