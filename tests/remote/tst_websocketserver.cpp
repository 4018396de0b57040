#include "origincheck.h"
#include "websocketserver.h"
#include "wshandler.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>
#include <QWebSocket>

#include <memory>
#include <vector>

using namespace tavrix;

namespace {

// A handler of our own interface that answers "get_echo" with its data and publishes
// whatever the test asks it to.
class EchoHandler : public WsHandler
{
public:
    explicit EchoHandler(QObject *parent)
        : WsHandler(nullptr, parent)
    {}
    QStringList handledEvents() const override { return {QStringLiteral("get_echo")}; }
    QJsonObject handleMessage(const QString &event, const QJsonObject &data) override
    {
        return {{QStringLiteral("event"), event}, {QStringLiteral("data"), data}};
    }
    void publish(const QString &event, int n) { emit pushEvent(event, {{QStringLiteral("n"), n}}); }
};

QJsonObject parse(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

// A client on the loopback that keeps every text message it receives.
struct Client
{
    explicit Client(const QString &origin = {})
        : socket(origin)
    {
        QObject::connect(&socket, &QWebSocket::textMessageReceived, &socket,
                         [this](const QString &message) { received.append(parse(message)); });
    }
    bool open(quint16 port)
    {
        QSignalSpy refused(&socket, &QWebSocket::disconnected);
        socket.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(port)));
        QTest::qWaitFor(
            [&] { return socket.state() == QAbstractSocket::ConnectedState || refused.count() > 0; }, 10000);
        return socket.state() == QAbstractSocket::ConnectedState;
    }
    QJsonObject ask(const QString &message)
    {
        const qsizetype before = received.size();
        socket.sendTextMessage(message);
        if (!QTest::qWaitFor([&] { return received.size() > before; }, 10000))
            return {};
        return received.at(before);
    }
    QWebSocket socket;
    QList<QJsonObject> received;
};

QString subscription(const char *action, const QString &event)
{
    return QStringLiteral(R"({"event":"%1","data":{"events":["%2"]}})").arg(QLatin1String(action), event);
}

} // namespace

class TestWebSocketServer : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        server = std::make_unique<WebSocketServer>(nullptr);
        server->setListenAddress(QHostAddress::LocalHost);
        handler = new EchoHandler(server.get());
        server->registerHandler(handler);
        QVERIFY(server->start(0));
    }
    void cleanup() { server.reset(); }

    void envelopeReplies_data();
    void envelopeReplies();
    void pushesReachSubscribersInConnectionOrder();
    void repliesGoOnlyToTheAsker();
    void foreignOriginIsRefused_data();
    void foreignOriginIsRefused();
    void oversizeMessageClosesWith1009();
    void startingTwiceKeepsListening();
    void servesTwoHundredClients();
    void originVerdicts_data();
    void originVerdicts();

private:
    std::unique_ptr<WebSocketServer> server;
    EchoHandler *handler = nullptr;
};

void TestWebSocketServer::envelopeReplies_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("reply");

    QTest::newRow("empty object") << QStringLiteral("{}")
                                  << QStringLiteral(R"({"event":"error","message":"Missing 'event' field"})");
    QTest::newRow("event not a string")
        << QStringLiteral(R"({"event":5})")
        << QStringLiteral(R"({"event":"error","message":"Missing 'event' field"})");
    QTest::newRow("unknown event")
        << QStringLiteral(R"({"event":"get_nothing"})")
        << QStringLiteral(
               R"({"event":"error","message":"Unknown event: get_nothing","source":"get_nothing"})");
    QTest::newRow("routed, data kept") << QStringLiteral(R"({"event":"get_echo","data":{"a":1}})")
                                       << QStringLiteral(R"({"data":{"a":1},"event":"get_echo"})");
    QTest::newRow("data not an object reads empty") << QStringLiteral(R"({"event":"get_echo","data":[1]})")
                                                    << QStringLiteral(R"({"data":{},"event":"get_echo"})");
    QTest::newRow("subscribe") << subscription("action_subscribe", QStringLiteral("x"))
                               << QStringLiteral(R"({"event":"action_subscribe","success":true})");
    QTest::newRow("unsubscribe") << subscription("action_unsubscribe", QStringLiteral("x"))
                                 << QStringLiteral(R"({"event":"action_unsubscribe","success":true})");
}

void TestWebSocketServer::envelopeReplies()
{
    QFETCH(QString, message);
    QFETCH(QString, reply);
    Client client;
    QVERIFY(client.open(server->port()));
    QCOMPARE(client.ask(message), parse(reply));
}

void TestWebSocketServer::pushesReachSubscribersInConnectionOrder()
{
    Client first, second, bystander;
    for (Client *c : {&first, &second, &bystander})
        QVERIFY(c->open(server->port()));
    QVERIFY(first.ask(subscription("action_subscribe", QStringLiteral("tick")))[u"success"].toBool());
    QVERIFY(second.ask(subscription("action_subscribe", QStringLiteral("tick")))[u"success"].toBool());

    // Connection order is send order: the second client can only see its copy after the
    // first one's was written, so both arriving shows both were sent.
    handler->publish(QStringLiteral("tick"), 1);
    handler->publish(QStringLiteral("unheard"), 2);
    QTRY_COMPARE_WITH_TIMEOUT(second.received.size(), 2, 10000);
    QTRY_COMPARE_WITH_TIMEOUT(first.received.size(), 2, 10000);
    const QJsonObject push = parse(QStringLiteral(R"({"event":"tick","data":{"n":1}})"));
    QCOMPARE(first.received.last(), push);
    QCOMPARE(second.received.last(), push);

    // Unsubscribing stops the events at once; the reply is the barrier.
    QVERIFY(first.ask(subscription("action_unsubscribe", QStringLiteral("tick")))[u"success"].toBool());
    handler->publish(QStringLiteral("tick"), 3);
    QTRY_COMPARE_WITH_TIMEOUT(second.received.size(), 3, 10000);
    QCOMPARE(second.received.last()[u"data"][u"n"].toInt(), 3);
    // What the bystander and the first client get next is a reply: no push came before it.
    QCOMPARE(first.ask(QStringLiteral(R"({"event":"get_echo"})"))[u"event"].toString(),
             QStringLiteral("get_echo"));
    QCOMPARE(first.received.size(), 4);
    QCOMPARE(bystander.ask(QStringLiteral(R"({"event":"get_echo"})"))[u"event"].toString(),
             QStringLiteral("get_echo"));
    QCOMPARE(bystander.received.size(), 1);
}

void TestWebSocketServer::repliesGoOnlyToTheAsker()
{
    Client asker, other;
    QVERIFY(asker.open(server->port()));
    QVERIFY(other.open(server->port()));
    QVERIFY(!asker.ask(QStringLiteral(R"({"event":"get_echo","data":{"a":1}})")).isEmpty());
    QVERIFY(!other.ask(QStringLiteral("not json")).isEmpty());
    QCOMPARE(asker.received.size(), 1);
    QCOMPARE(other.received.size(), 1);
    QVERIFY(other.received.first()[u"message"].toString().startsWith(u"Invalid JSON: "));
}

void TestWebSocketServer::foreignOriginIsRefused_data()
{
    QTest::addColumn<QString>("origin");
    QTest::addColumn<bool>("served");
    QTest::newRow("no origin: a native app") << QString() << true;
    QTest::newRow("same host") << QStringLiteral("http://127.0.0.1:8080") << true;
    QTest::newRow("another host") << QStringLiteral("http://evil.example") << false;
    QTest::newRow("null origin") << QStringLiteral("null") << false;
}

void TestWebSocketServer::foreignOriginIsRefused()
{
    QFETCH(QString, origin);
    QFETCH(bool, served);
    Client client(origin);
    QSignalSpy counts(server.get(), &WebSocketServer::clientCountChanged);
    QCOMPARE(client.open(server->port()), served);
    if (!served)
        QCOMPARE(counts.count(), 0);
    QCOMPARE(server->clientCount(), served ? 1 : 0);
}

void TestWebSocketServer::oversizeMessageClosesWith1009()
{
    Client big, small;
    QVERIFY(big.open(server->port()));
    QVERIFY(small.open(server->port()));
    QSignalSpy gone(&big.socket, &QWebSocket::disconnected);
    big.socket.sendBinaryMessage(QByteArray(1000, 'b')); // ignored, not answered
    big.socket.sendTextMessage(QString(WebSocketServer::kMaxMessageSize + 1, QLatin1Char('x')));
    QVERIFY(gone.wait(20000));
    QCOMPARE(big.socket.closeCode(), QWebSocketProtocol::CloseCodeTooMuchData);
    QVERIFY(big.received.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(server->clientCount(), 1, 10000);
    QCOMPARE(small.ask(QStringLiteral(R"({"event":"get_echo"})"))[u"event"].toString(),
             QStringLiteral("get_echo"));
}

void TestWebSocketServer::startingTwiceKeepsListening()
{
    const quint16 port = server->port();
    QVERIFY(server->start(0));
    QCOMPARE(server->port(), port);
}

void TestWebSocketServer::servesTwoHundredClients()
{
    std::vector<std::unique_ptr<Client>> clients;
    for (int i = 0; i < 200; ++i) {
        clients.push_back(std::make_unique<Client>());
        clients.back()->socket.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(server->port())));
    }
    QTRY_COMPARE_WITH_TIMEOUT(server->clientCount(), 200, 60000);
    for (auto &client : clients)
        QTRY_COMPARE_WITH_TIMEOUT(client->socket.state(), QAbstractSocket::ConnectedState, 30000);
    for (auto &client : clients)
        client->socket.sendTextMessage(subscription("action_subscribe", QStringLiteral("all")));
    for (auto &client : clients)
        QTRY_COMPARE_WITH_TIMEOUT(client->received.size(), 1, 30000);
    handler->publish(QStringLiteral("all"), 7);
    for (auto &client : clients)
        QTRY_COMPARE_WITH_TIMEOUT(client->received.size(), 2, 30000);
}

void TestWebSocketServer::originVerdicts_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<int>("verdict");
    const auto request = [](const char *headers) {
        return QByteArray("GET / HTTP/1.1\r\n") + headers + "\r\n";
    };
    const int allowed = int(origincheck::Verdict::Allowed);
    const int refused = int(origincheck::Verdict::Refused);
    QTest::newRow("no origin") << request("Host: 192.168.1.5:12345\r\n") << allowed;
    QTest::newRow("same address, other port")
        << request("Host: 192.168.1.5:12345\r\nOrigin: http://192.168.1.5:8080\r\n") << allowed;
    QTest::newRow("header names in any case")
        << request("host: ORVANELABS-TRANSMITTER.local\r\norigin: http://orvanelabs-transmitter.local\r\n")
        << allowed;
    QTest::newRow("ipv6 literal") << request("Host: [::1]:12345\r\nOrigin: http://[::1]\r\n") << allowed;
    QTest::newRow("another host") << request("Host: 192.168.1.5:12345\r\nOrigin: http://192.168.1.6\r\n")
                                  << refused;
    QTest::newRow("origin without host header") << request("Origin: http://192.168.1.5\r\n") << refused;
    QTest::newRow("rebound public name")
        << request("Host: evil.example:12345\r\nOrigin: http://evil.example\r\n") << refused;
    QTest::newRow("head not finished")
        << QByteArray("GET / HTTP/1.1\r\nHost: a\r\n") << int(origincheck::Verdict::Incomplete);
    QTest::newRow("endless head") << QByteArray(origincheck::kMaxHeadSize + 1, 'a') << refused;
}

void TestWebSocketServer::originVerdicts()
{
    QFETCH(QByteArray, head);
    QFETCH(int, verdict);
    QCOMPARE(int(origincheck::judge(head)), verdict);
}

QTEST_MAIN(TestWebSocketServer)
#include "tst_websocketserver.moc"
