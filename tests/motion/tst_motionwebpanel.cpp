// The motion web panel as a phone meets it: real sockets on 127.0.0.1, the real controller
// and the board simulator on a pty behind it, and the page in a real browser.

#include "motionsimulator.h"
#include "motionsystemcontroller.h"
#include "motionwebpanel.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tavrix;
using Board = sim::MotionSimulator;

namespace {

constexpr int kWaitMs = 20000;
const QHostAddress kLoopback(QHostAddress::LocalHost);

enum class Setup
{
    Disconnected,
    Ready,
    Failed,
    TestRunning
};

sim::MotionSimulatorSettings quickBoard(int actuators)
{
    sim::MotionSimulatorSettings settings;
    settings.actuators = actuators;
    settings.heartbeatIntervalMs = 50;
    settings.motionStepMs = 5;
    settings.homingMs = 50;
    return settings;
}

MotionWebPanel::Options loopbackOnly(std::chrono::milliseconds requestTimeout = std::chrono::seconds(60))
{
    MotionWebPanel::Options options;
    options.listenAddress = kLoopback;
    options.requestTimeout = requestTimeout;
    return options;
}

// The board, the controller and the panel, listening on a free loopback port.
struct PanelRig
{
    Board board;
    MotionSystemController controller;
    MotionWebPanel panel;

    explicit PanelRig(const MotionWebPanel::Options &options = loopbackOnly(), int actuators = 6)
        : board(quickBoard(actuators))
        , panel(&controller, options)
    {}

    bool setUp(Setup setup)
    {
        if (!panel.start(0))
            return false;
        if (setup == Setup::Disconnected)
            return true;
        if (!board.start() || !controller.connectPort(board.clientPath()) || !waitFor('Q') ||
            !QTest::qWaitFor([this] { return controller.controllerState() == QLatin1String("ready"); },
                             kWaitMs))
            return false;
        if (setup == Setup::Failed) {
            board.fail();
            return QTest::qWaitFor([this] { return controller.controllerState() == QLatin1String("FAIL"); },
                                   kWaitMs);
        }
        if (setup == Setup::TestRunning)
            return controller.startBoardTest(0, 50, 100, 30) && waitFor('T');
        return true;
    }

    bool waitFor(char code, qsizetype from = 0)
    {
        return QTest::qWaitFor(
            [&] {
                const auto commands = board.commands().mid(from);
                return std::any_of(commands.cbegin(), commands.cend(),
                                   [code](const Board::Command &c) { return c.code == code; });
            },
            kWaitMs);
    }

    // The command codes the board got from `from` on, up to a marker sent now.
    QByteArray sentSince(qsizetype from)
    {
        controller.toggleCalibrationMode();
        if (!waitFor('Z', from))
            return "marker lost";
        QByteArray codes;
        for (const Board::Command &command : board.commands().mid(from)) {
            if (command.code == 'Z')
                break;
            codes += command.code;
        }
        return codes;
    }

    QByteArray hostHeader() const { return "Host: 127.0.0.1:" + QByteArray::number(panel.port()) + "\r\n"; }
};

// Sends raw bytes, waits until the server closes the connection, and returns all it answered.
QByteArray exchange(quint16 port, const QByteArray &request)
{
    QTcpSocket socket;
    socket.connectToHost(kLoopback, port);
    if (!QTest::qWaitFor([&] { return socket.state() == QAbstractSocket::ConnectedState; }, kWaitMs))
        return "not connected";
    socket.write(request);
    QByteArray reply;
    const bool closed = QTest::qWaitFor(
        [&] {
            reply += socket.readAll();
            return socket.state() == QAbstractSocket::UnconnectedState;
        },
        kWaitMs);
    reply += socket.readAll();
    return closed ? reply : "still open";
}

int statusOf(const QByteArray &reply)
{
    return reply.startsWith("HTTP/1.1 ") ? reply.mid(9, 3).toInt() : 0;
}

QByteArray bodyOf(const QByteArray &reply)
{
    const qsizetype end = reply.indexOf("\r\n\r\n");
    return end < 0 ? QByteArray() : reply.mid(end + 4);
}

} // namespace

Q_DECLARE_METATYPE(Setup)

class TestMotionWebPanel : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings(QStringLiteral("OrvaneLabs"), QStringLiteral("MotionSystem")).clear(); }

    // Each route with its refusals: the answer, what reached the board ("" nothing), and the
    // travel setting afterwards (60 before every request).
    void routes_data()
    {
        QTest::addColumn<Setup>("setup");
        QTest::addColumn<QByteArray>("requestLine");
        QTest::addColumn<QByteArray>("extraHeaders");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("body");
        QTest::addColumn<QByteArray>("sent");
        QTest::addColumn<int>("travelMm");
        const auto row = [](const char *name, Setup setup, const char *line, int status, const char *body,
                            const char *sent, int travel = 60, const char *extra = "") {
            QTest::newRow(name) << setup << QByteArray(line) << QByteArray(extra) << status
                                << QString::fromUtf8(body) << QByteArray(sent) << travel;
        };
        const char *testLine = "POST /test?dof=2&force=30 HTTP/1.1";
        row("cfg travel beyond range is clamped", Setup::Ready, "POST /cfg?t=200 HTTP/1.1", 200,
            "saved & applied", "C", 140);
        row("cfg with none of the five", Setup::Ready, "POST /cfg?x=1 HTTP/1.1", 400, "bad params", "");
        row("cfg with a word for a number", Setup::Ready, "POST /cfg?i=50&t=abc HTTP/1.1", 400, "bad params",
            "");
        row("cfg during a test", Setup::TestRunning, "POST /cfg?t=100 HTTP/1.1", 409, "test running - wait",
            "");
        row("test", Setup::Ready, testLine, 200, "testing Pitch at 30%", "6");
        row("test dof 5", Setup::Ready, "POST /test?dof=5&force=30 HTTP/1.1", 400, "bad params", "");
        row("test force 0", Setup::Ready, "POST /test?dof=2&force=0 HTTP/1.1", 400, "bad params", "");
        row("test without force", Setup::Ready, "POST /test?dof=2 HTTP/1.1", 400, "bad params", "");
        row("test not connected", Setup::Disconnected, testLine, 409, "controller not connected", "");
        row("test while one runs", Setup::TestRunning, testLine, 409, "test already running", "");
        row("test in FAIL", Setup::Failed, testLine, 409, "state is \"FAIL\" - tests need \"ready\"", "");
        row("GET test", Setup::Ready, "GET /test?dof=2&force=30 HTTP/1.1", 404, "not found", "");
        row("move", Setup::Ready, "POST /move?axis=1&mm=80 HTTP/1.1", 200, "ax1 -> 80mm", "M");
        row("move to no actuator", Setup::Ready, "POST /move?axis=6&mm=80 HTTP/1.1", 409,
            "move refused (need connected + ready, no test)", "");
        row("move during a board test", Setup::TestRunning, "POST /move?axis=1&mm=80 HTTP/1.1", 409,
            "move refused (need connected + ready, no test)", "");
        row("move without mm", Setup::Ready, "POST /move?axis=1 HTTP/1.1", 400, "bad params", "");
        row("home", Setup::Ready, "POST /home HTTP/1.1", 200, "homing requested", "H");
        row("home not connected", Setup::Disconnected, "POST /home HTTP/1.1", 409, "controller not connected",
            "");
        row("one word", Setup::Ready, "HELLO", 400, "bad request", "");
        row("unknown method", Setup::Ready, "DELETE /cfg HTTP/1.1", 404, "not found", "");
        row("post from another site", Setup::Ready, "POST /home HTTP/1.1", 403, "forbidden", "", 60,
            "Origin: http://evil.example\r\n");
        row("post through another site's name", Setup::Ready, "POST /home HTTP/1.1", 403, "forbidden", "", 60,
            "Host: evil.example:%PORT%\r\nOrigin: http://evil.example:%PORT%\r\n");
        row("post from the panel's page", Setup::Ready, "POST /move?axis=0&mm=20 HTTP/1.1", 200,
            "ax0 -> 20mm", "M", 60, "Origin: http://127.0.0.1:%PORT%\r\n");
    }

    void routes()
    {
        QFETCH(Setup, setup);
        QFETCH(QByteArray, requestLine);
        QFETCH(QByteArray, extraHeaders);
        QFETCH(int, status);
        QFETCH(QString, body);
        QFETCH(QByteArray, sent);
        QFETCH(int, travelMm);
        PanelRig rig;
        // Stored before connecting, so the board is told it with its first heartbeat.
        MotionSystemSettings before = rig.controller.settings();
        before.travelMm = 60;
        rig.controller.applySettings(before);
        QVERIFY(rig.setUp(setup));
        const qsizetype from = rig.board.commands().size();

        extraHeaders.replace("%PORT%", QByteArray::number(rig.panel.port()));
        const QByteArray reply =
            exchange(rig.panel.port(), requestLine + "\r\n" + extraHeaders + rig.hostHeader() + "\r\n");
        QCOMPARE(statusOf(reply), status);
        QCOMPARE(QString::fromUtf8(bodyOf(reply)), body);
        if (setup != Setup::Disconnected) {
            if (sent.isEmpty())
                QCOMPARE(rig.sentSince(from), QByteArray());
            else
                QVERIFY(rig.waitFor(sent.at(0), from));
        }
        QCOMPARE(rig.controller.settings().travelMm, travelMm);
    }

    void repliesByteForByte()
    {
        PanelRig rig;
        QVERIFY(rig.setUp(Setup::Disconnected));
        QCOMPARE(exchange(rig.panel.port(), "POST /cfg HTTP/1.1\r\n\r\n"),
                 QByteArray("HTTP/1.1 400 Bad Request\r\nContent-Type: text/plain\r\nContent-Length: 10\r\n"
                            "Connection: close\r\n\r\nbad params"));
    }

    void statusAndSettingsAsJson()
    {
        PanelRig rig(loopbackOnly(), 4);
        QVERIFY(rig.controller.setPlatformKind(3));
        QVERIFY(rig.setUp(Setup::Ready));
        QTRY_VERIFY_WITH_TIMEOUT(rig.controller.axisPositions().size() == 4, kWaitMs);
        const QJsonObject status =
            QJsonDocument::fromJson(bodyOf(exchange(rig.panel.port(), "GET /status\r\n\r\n"))).object();
        QCOMPARE(status.value(QStringLiteral("connected")).toBool(), true);
        QCOMPARE(status.value(QStringLiteral("state")).toString(), QStringLiteral("ready"));
        QCOMPARE(status.value(QStringLiteral("platform")).toInt(), 3);
        QCOMPARE(status.value(QStringLiteral("testRunning")).toBool(true), false);
        QCOMPARE(status.value(QStringLiteral("axes")).toObject().keys(),
                 (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                              QStringLiteral("4")}));

        rig.controller.applySettings({55, 66, 77, 88, 99});
        const QJsonObject cfg =
            QJsonDocument::fromJson(bodyOf(exchange(rig.panel.port(), "GET /cfg\r\n\r\n"))).object();
        QCOMPARE(cfg, (QJsonObject{{QStringLiteral("i"), 55},
                                   {QStringLiteral("t"), 66},
                                   {QStringLiteral("s"), 77},
                                   {QStringLiteral("a"), 88},
                                   {QStringLiteral("p"), 99}}));
    }

    void testFromThePhoneMovesTheBoard()
    {
        PanelRig rig;
        QVERIFY(rig.setUp(Setup::Ready));
        const double park = rig.board.positions()[0];
        QCOMPARE(statusOf(exchange(rig.panel.port(), "POST /test?dof=4&force=100 HTTP/1.1\r\n\r\n")), 200);
        QTRY_VERIFY_WITH_TIMEOUT(qAbs(rig.board.positions()[0] - park) > 10.0, kWaitMs);
    }

    // Whatever a stranger sends, the panel answers only a whole request of bounded size, and
    // closes what does not come complete in time.
    void boundsEveryRequest_data()
    {
        QTest::addColumn<QByteArray>("request");
        // 0: closed without a byte of answer.
        QTest::addColumn<int>("status");
        QTest::newRow("no blank line") << QByteArray("GET /status HTTP/1.1\r\nHost: x\r\n") << 0;
        QTest::newRow("a head over 8 KiB") << "GET /status HTTP/1.1\r\nX: " + QByteArray(9000, 'a') << 431;
        QTest::newRow("a long head within 8 KiB")
            << "GET /status HTTP/1.1\r\nX: " + QByteArray(8000, 'a') + "\r\n\r\n"
            << 200;
    }

    void boundsEveryRequest()
    {
        QFETCH(QByteArray, request);
        QFETCH(int, status);
        PanelRig rig(loopbackOnly(std::chrono::milliseconds(300)));
        QVERIFY(rig.setUp(Setup::Disconnected));
        const QByteArray reply = exchange(rig.panel.port(), request);
        QVERIFY(reply != "still open");
        QCOMPARE(statusOf(reply), status);
        if (status == 0)
            QCOMPARE(reply, QByteArray());
    }

    void refusesConnectionsBeyondTheLimit()
    {
        PanelRig rig;
        QVERIFY(rig.setUp(Setup::Disconnected));
        std::vector<std::unique_ptr<QTcpSocket>> idle;
        for (int i = 0; i < MotionWebPanel::kMaxConnections; ++i) {
            idle.push_back(std::make_unique<QTcpSocket>());
            idle.back()->connectToHost(kLoopback, rig.panel.port());
        }
        QTRY_COMPARE_WITH_TIMEOUT(rig.panel.connectionCount(), MotionWebPanel::kMaxConnections, kWaitMs);
        QTcpSocket extra;
        extra.connectToHost(kLoopback, rig.panel.port());
        QTRY_COMPARE_WITH_TIMEOUT(extra.state(), QAbstractSocket::UnconnectedState, kWaitMs);
        QCOMPARE(rig.panel.connectionCount(), MotionWebPanel::kMaxConnections);

        idle.front()->abort();
        QTRY_COMPARE_WITH_TIMEOUT(rig.panel.connectionCount(), MotionWebPanel::kMaxConnections - 1, kWaitMs);
        QCOMPARE(statusOf(exchange(rig.panel.port(), "GET /cfg HTTP/1.1\r\n\r\n")), 200);
    }

    void startTriesTenPorts()
    {
        // Ten neighbouring ports, all taken by someone else.
        std::vector<std::unique_ptr<QTcpServer>> taken;
        quint16 first = 0;
        for (int attempt = 0; attempt < 50 && taken.size() < size_t(MotionWebPanel::kPortAttempts);
             ++attempt) {
            taken.clear();
            taken.push_back(std::make_unique<QTcpServer>());
            if (!taken.back()->listen(kLoopback, 0) || taken.back()->serverPort() > 65000)
                continue;
            first = taken.back()->serverPort();
            for (int i = 1; i < MotionWebPanel::kPortAttempts; ++i) {
                taken.push_back(std::make_unique<QTcpServer>());
                if (!taken.back()->listen(kLoopback, quint16(first + i))) {
                    taken.clear();
                    break;
                }
            }
        }
        QCOMPARE(taken.size(), size_t(MotionWebPanel::kPortAttempts));

        MotionSystemController controller;
        MotionWebPanel panel(&controller, loopbackOnly());
        QSignalSpy status(&panel, &MotionWebPanel::statusChanged);
        QVERIFY(!panel.start(first));
        QVERIFY(!panel.isListening());
        QCOMPARE(status.size(), 0);

        taken.back()->close();
        QVERIFY(panel.start(first));
        QCOMPARE(panel.port(), quint16(first + MotionWebPanel::kPortAttempts - 1));
        QCOMPARE(status.size(), 1);
    }

    void pageShowsStateAndPlatformInABrowser()
    {
        const QString chromium = QStandardPaths::findExecutable(QStringLiteral("chromium"));
        if (chromium.isEmpty())
            QSKIP("chromium is not installed (scripts/bootstrap installs it)");
        PanelRig rig(loopbackOnly(), 4);
        QVERIFY(rig.controller.setPlatformKind(3));
        QVERIFY(rig.setUp(Setup::Ready));

        QTemporaryDir profile;
        QProcess browser;
        browser.start(chromium,
                      {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
                       QStringLiteral("--disable-gpu"), QStringLiteral("--user-data-dir=") + profile.path(),
                       QStringLiteral("--virtual-time-budget=3000"), QStringLiteral("--dump-dom"),
                       rig.panel.url() + QLatin1Char('/')});
        // The panel answers on this thread's event loop, so wait without blocking it.
        QSignalSpy finished(&browser, &QProcess::finished);
        QVERIFY2(finished.wait(120000), "chromium did not finish");
        const QString dom = QString::fromUtf8(browser.readAllStandardOutput());

        static const QRegularExpression chip(QStringLiteral("id=\"chip\"[^>]*>([^<]*)<"));
        QCOMPARE(chip.match(dom).captured(1), QStringLiteral("ready"));
        static const QRegularExpression pattern(QStringLiteral("data-dof=\"(\\d)\"[^>]*>([^<]*)<"));
        QStringList patterns;
        for (auto it = pattern.globalMatch(dom); it.hasNext();) {
            const auto match = it.next();
            patterns.append(match.captured(1) + QLatin1Char(' ') + match.captured(2));
        }
        QCOMPARE(patterns, (QStringList{QStringLiteral("2 Pitch"), QStringLiteral("3 Roll"),
                                        QStringLiteral("4 Heave")}));
        QCOMPARE(dom.count(QStringLiteral("class=\"act\"")), 4);
    }
};

QTEST_GUILESS_MAIN(TestMotionWebPanel)
#include "tst_motionwebpanel.moc"
