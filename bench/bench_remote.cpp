// What the remote service costs. First the round trip of one request ("get_channels")
// through the hub's server and handlers, next to a bare QWebSocketServer that echoes,
// measured in the same run. Then how steady the transmit loop stays with 20 app clients
// subscribed to the per-frame and per-input push events, next to none, as a ratio of the
// p99 deviation from the 7 ms period.
//
// The clients run in this process, on the hub's own event loop, so they also spend its
// time reading what it pushes: the figures are a pessimistic bound of a phone on the network.
//
// Usage: bench_remote [--seconds N] [--requests N]   (defaults 5 s per loop measurement, 2000 requests)

#include "benchrig.h"
#include "benchtiming.h"
#include "remotehandlers.h"
#include "websocketserver.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QWebSocket>
#include <QWebSocketServer>

#include <memory>

using namespace tavrix;
using namespace tavrix::bench;

namespace {

// A client on the loopback; counts what it receives.
struct Client
{
    QWebSocket socket;
    int received = 0;

    bool open(quint16 port)
    {
        QObject::connect(&socket, &QWebSocket::textMessageReceived, &socket, [this] { ++received; });
        socket.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(port)));
        QElapsedTimer waited;
        waited.start();
        while (socket.state() != QAbstractSocket::ConnectedState && waited.elapsed() < 10000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        return socket.state() == QAbstractSocket::ConnectedState;
    }
};

// Round-trip times in ns of `count` requests sent one after the other.
std::vector<qint64> roundTrips(Client &client, const QString &request, int count)
{
    std::vector<qint64> times;
    QElapsedTimer clock;
    for (int i = 0; i < count; ++i) {
        const int before = client.received;
        clock.start();
        client.socket.sendTextMessage(request);
        while (client.received == before && clock.elapsed() < 10000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        times.push_back(clock.nsecsElapsed());
    }
    return times;
}

void printRoundTrips(const char *name, std::vector<qint64> times)
{
    std::sort(times.begin(), times.end());
    const auto at = [&](double q) { return double(times[size_t(q * double(times.size() - 1))]) / 1000.0; };
    std::printf("%-34s %8zu %10.1f %10.1f\n", name, times.size(), at(0.5), at(0.99));
}

// The transmit loop's send times over `ms`, with the given clients subscribed.
std::vector<qint64> transmitStamps(TavrixController &controller, int ms)
{
    std::vector<qint64> stamps;
    QElapsedTimer clock;
    clock.start();
    QObject context;
    QObject::connect(&controller, &TavrixController::frameSent, &context,
                     [&] { stamps.push_back(clock.nsecsElapsed()); });
    if (!controller.startTransmission())
        return {};
    runFor(ms);
    controller.stopTransmission();
    return stamps;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false")); // the figures only
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Remote service round trip and transmit-loop cost"));
    parser.addHelpOption();
    const QCommandLineOption secondsOption(QStringLiteral("seconds"),
                                           QStringLiteral("Seconds per loop measurement"),
                                           QStringLiteral("N"), QStringLiteral("5"));
    const QCommandLineOption requestsOption(QStringLiteral("requests"),
                                            QStringLiteral("Round trips per server"), QStringLiteral("N"),
                                            QStringLiteral("2000"));
    parser.addOptions({secondsOption, requestsOption});
    parser.process(app);
    const int seconds = std::max(1, parser.value(secondsOption).toInt());
    const int requests = std::max(10, parser.value(requestsOption).toInt());

    BenchRig rig;
    if (!rig.setUp())
        return 1;
    TavrixController &controller = *rig.controller;

    WebSocketServer server(&controller);
    server.setListenAddress(QHostAddress::LocalHost);
    registerRemoteHandlers(server, &controller);
    QWebSocketServer echo(QStringLiteral("echo"), QWebSocketServer::NonSecureMode);
    QObject::connect(&echo, &QWebSocketServer::newConnection, &echo, [&echo] {
        QWebSocket *peer = echo.nextPendingConnection();
        QObject::connect(peer, &QWebSocket::textMessageReceived, peer,
                         [peer](const QString &message) { peer->sendTextMessage(message); });
    });
    if (!server.start(0) || !echo.listen(QHostAddress::LocalHost, 0))
        return 1;

    const QString request = QStringLiteral(R"({"event":"get_channels"})");
    Client echoClient;
    Client hubClient;
    if (!echoClient.open(echo.serverPort()) || !hubClient.open(server.port()))
        return 1;
    std::printf("request round trip, %d requests each\n%-34s %8s %10s %10s\n", requests, "", "requests",
                "p50 us", "p99 us");
    printRoundTrips("bare QWebSocketServer echo (base)", roundTrips(echoClient, request, requests));
    printRoundTrips("hub: get_channels", roundTrips(hubClient, request, requests));

    std::printf("\ntransmit loop, %d s each, nominal period %.1f ms\n%-28s %8s %9s %9s %9s %12s %12s\n",
                seconds, kPeriodMs, "", "periods", "mean ms", "p50 ms", "p99 ms", "p99 |dev| ms",
                "max |dev| ms");
    const Figures quiet = summarise(transmitStamps(controller, seconds * 1000));
    print("no clients (baseline)", quiet);

    std::vector<std::unique_ptr<Client>> listeners;
    for (int i = 0; i < 20; ++i) {
        listeners.push_back(std::make_unique<Client>());
        if (!listeners.back()->open(server.port()))
            return 1;
        listeners.back()->socket.sendTextMessage(QStringLiteral(
            R"({"event":"action_subscribe","data":{"events":["event_frame_sent","event_input_changed"]}})"));
    }
    runFor(200);
    const Figures busy = summarise(transmitStamps(controller, seconds * 1000));
    print("20 clients subscribed", busy);
    int pushes = 0;
    for (const auto &listener : listeners)
        pushes += listener->received;
    std::printf("p99 |dev| ratio (20 clients / none): %.2f; pushes received by the clients: %d\n",
                ratio(busy.p99DeviationMs, quiet.p99DeviationMs), pushes);
    return 0;
}
