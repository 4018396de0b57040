#pragma once

#include <QHash>
#include <QHostAddress>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>

class QTcpServer;
class QTcpSocket;

namespace tavrix {

class MotionSystemController;
class MotionWebRoutes;

// A minimal HTTP/1.1 server that lets a phone on the same network run the motion
// platform's tests, move single actuators, home the rig and edit its settings from one
// self-contained page. One request per connection; every action goes through the motion
// system controller. Bounded on every side a stranger could push: request size, time to
// send it, connections at once, and POSTs from pages the panel did not serve.
class MotionWebPanel : public QObject
{
    Q_OBJECT
public:
    static constexpr quint16 kDefaultPort = 8090;
    // start() tries this many ports from the first one.
    static constexpr int kPortAttempts = 10;
    // Phones and a laptop or two; more at once is someone probing the port.
    static constexpr int kMaxConnections = 16;

    struct Options
    {
        // A connection that has not sent its whole request by then is closed unanswered.
        std::chrono::milliseconds requestTimeout{10000};
        // Every IPv4 interface, so the phone can reach it; tests use the loopback address.
        QHostAddress listenAddress{QHostAddress::AnyIPv4};
        // The address url() names; null: the listen address, or 127.0.0.1 on every interface.
        std::function<QString()> urlHost;
    };

    // The controller is not owned and must outlive the panel.
    explicit MotionWebPanel(MotionSystemController *controller, QObject *parent = nullptr);
    MotionWebPanel(MotionSystemController *controller, Options options, QObject *parent = nullptr);
    ~MotionWebPanel() override;

    // Listens on the first free port of firstPort..firstPort+9; true when listening (also
    // when it already was).
    bool start(quint16 firstPort = kDefaultPort);
    void stop();

    [[nodiscard]] bool isListening() const;
    // 0 when stopped.
    [[nodiscard]] quint16 port() const;
    // "http://<address>:<port>" for the phone.
    [[nodiscard]] QString url() const;
    [[nodiscard]] int connectionCount() const { return int(m_buffers.size()); }

signals:
    // Started or stopped listening.
    void statusChanged();

private:
    void acceptConnections();
    void serve(QTcpSocket *socket);
    void answer(QTcpSocket *socket, const QByteArray &reply);

    Options m_options;
    QTcpServer *m_server = nullptr;
    std::unique_ptr<MotionWebRoutes> m_routes;
    // What each open connection has sent so far.
    QHash<QTcpSocket *, QByteArray> m_buffers;
};

} // namespace tavrix
