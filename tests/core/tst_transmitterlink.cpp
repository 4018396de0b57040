#include "logcapture.h"
#include "pseudoterminal.h"
#include "serialportdirectory.h"
#include "testtimings.h"
#include "transmitterlink.h"

#include <QElapsedTimer>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using tavrix::PathSerialPortDirectory;
using tavrix::PseudoTerminal;
using tavrix::TransmitterLink;
using tavrix::testing::LogCapture;
using tavrix::testing::scaled;
using namespace std::chrono_literals;

using Chunks = QList<QByteArray>;
using LinesPerChunk = QList<QStringList>;

namespace {

const QString kGiveUpMessage = QStringLiteral("Lost connection to the Orvane Transmitter and could not "
                                              "reconnect. Check the USB cable and press Connect.");

// The real rhythm shortened by the common test factor: reconnect every 30 ms,
// give up after 600 ms; a busy port is tried once per reconnect tick.
TransmitterLink::Timings quickTimings()
{
    TransmitterLink::Timings timings;
    timings.keepaliveCheckInterval = scaled(1000ms);
    timings.keepaliveIdle = scaled(2000ms);
    timings.reconnectInterval = scaled(1500ms);
    timings.port.openAttempts = 1;
    return timings;
}

// Keepalive rhythm tests measure gaps between bytes, so they keep them well
// above this machine's timer noise (spikes of 5-15 ms).
TransmitterLink::Timings keepaliveTimings()
{
    TransmitterLink::Timings timings = quickTimings();
    timings.keepaliveCheckInterval = 100ms;
    timings.keepaliveIdle = 200ms;
    return timings;
}

// A 26-byte channel frame without any line-feed byte in it.
const QByteArray kChannelFrame = QByteArray::fromHex("c81816c8600964e883255e818c70e863222c298a57ee0299d40e");

} // namespace

// A transmitter on a pty reached through a stable symlink, as a replugged USB
// device comes back under the same name, and a link that knows that path.
struct Bench
{
    explicit Bench(const TransmitterLink::Timings &timings = quickTimings())
        : path(dir.filePath(QStringLiteral("ttyOrvane")))
        , ports(std::make_shared<PathSerialPortDirectory>(QStringList{path}))
        , link(ports, timings)
    {
        ok = pty.open(path);
    }

    QTemporaryDir dir;
    QString path;
    std::shared_ptr<PathSerialPortDirectory> ports;
    TransmitterLink link;
    PseudoTerminal pty;
    bool ok = false;
};

class TestTransmitterLink : public QObject
{
    Q_OBJECT
private slots:
    void connectAnnouncesAndRemembersPort();
    void failedConnectKeepsRememberedPort();
    void splitsStreamFramesBeforeLines_data();
    void splitsStreamFramesBeforeLines();
    void connectClearsHalfLine();
    void writesKeepKeepaliveSilent();
    void reconnectsToSamePortAfterReplug();
    void givesUpOnceWhenAttemptsRunOut_data();
    void givesUpOnceWhenAttemptsRunOut();
    void userDisconnectNeverReconnects_data();
    void userDisconnectNeverReconnects();
    void suppressedLinkDoesNotReconnect();
    void switchingPortsIsNotALoss();
    void errorsReachOwnerWhenNotReconnecting();
};

void TestTransmitterLink::connectAnnouncesAndRemembersPort()
{
    Bench bench;
    QVERIFY(bench.ok);
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);
    QSignalSpy names(&bench.link, &TransmitterLink::serialPortNameChanged);
    QSignalSpy remembered(&bench.link, &TransmitterLink::connectionRemembered);

    QVERIFY(bench.link.connectTransmitter(bench.path, 57600));
    QVERIFY(bench.link.isConnected());
    QCOMPARE(bench.link.portName(), bench.path);
    QCOMPARE(connected.size(), 1);
    QCOMPARE(connected.at(0).at(0).toBool(), true);
    QCOMPARE(names.size(), 1);
    QCOMPARE(names.at(0).at(0).toString(), bench.path);
    QCOMPARE(remembered.size(), 1);
    QCOMPARE(remembered.at(0).at(0).toString(), bench.path);
    QCOMPARE(remembered.at(0).at(1).toInt(), 57600);
    QCOMPARE(bench.link.rememberedPortName(), bench.path);
    QCOMPARE(bench.link.rememberedBaudRate(), 57600);

    QByteArray sent;
    connect(&bench.pty, &PseudoTerminal::readyRead, this, [&] { sent += bench.pty.readAll(); });
    QCOMPARE(bench.link.serialWrite("START\n"), qint64(6));
    QTRY_VERIFY(sent.startsWith("START\n"));
}

void TestTransmitterLink::failedConnectKeepsRememberedPort()
{
    Bench bench;
    QVERIFY(bench.ok);
    bench.link.setRememberedPort(bench.path, 115200);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);
    QSignalSpy remembered(&bench.link, &TransmitterLink::connectionRemembered);

    QVERIFY(!bench.link.connectTransmitter(bench.dir.filePath(QStringLiteral("ttyMissing"))));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(remembered.size(), 0);
    QCOMPARE(bench.link.rememberedPortName(), bench.path);
    QCOMPARE(bench.link.serialWrite("STOP\n"), qint64(-1));
}

void TestTransmitterLink::splitsStreamFramesBeforeLines_data()
{
    QTest::addColumn<Chunks>("chunks");
    QTest::addColumn<LinesPerChunk>("linesAfterChunk");

    const QByteArray batteryFrame = QByteArray::fromHex("c80a08002101280004d243b2");

    // How lines are cut is the splitter's own test; here, that all bytes go out as telemetry
    // first and a line waits for its line feed across reads.
    QTest::newRow("frame with an LF length byte then line")
        << Chunks{batteryFrame + "PONG\r\n"} << LinesPerChunk{{QStringLiteral("!(CPONG")}};
    QTest::newRow("abc waits for its LF")
        << Chunks{"abc", "\n"} << LinesPerChunk{{}, {QStringLiteral("abc")}};
}

void TestTransmitterLink::splitsStreamFramesBeforeLines()
{
    QFETCH(Chunks, chunks);
    QFETCH(LinesPerChunk, linesAfterChunk);

    Bench bench;
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));

    QByteArray telemetry;
    QStringList lines;
    QList<qsizetype> telemetrySeenAtLine;
    connect(&bench.link, &TransmitterLink::telemetryReceived, this,
            [&](const QByteArray &chunk) { telemetry += chunk; });
    connect(&bench.link, &TransmitterLink::transmitterLineReceived, this, [&](const QString &line) {
        lines << line;
        telemetrySeenAtLine << telemetry.size();
    });

    QByteArray sent;
    QStringList expectedLines;
    for (qsizetype i = 0; i < chunks.size(); ++i) {
        sent += chunks.at(i);
        expectedLines += linesAfterChunk.at(i);
        QVERIFY(bench.pty.write(chunks.at(i)));
        QTRY_COMPARE(telemetry, sent);
        QCOMPARE(lines, expectedLines);
    }
    // Each chunk here ends with its line feed: a line is only reported after the
    // whole chunk holding it went out as telemetry.
    for (const qsizetype seen : telemetrySeenAtLine)
        QCOMPARE(seen, sent.size());
}

void TestTransmitterLink::connectClearsHalfLine()
{
    Bench bench;
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QByteArray telemetry;
    QStringList lines;
    connect(&bench.link, &TransmitterLink::telemetryReceived, this,
            [&](const QByteArray &chunk) { telemetry += chunk; });
    connect(&bench.link, &TransmitterLink::transmitterLineReceived, this,
            [&](const QString &line) { lines << line; });

    QVERIFY(bench.pty.write("stale half"));
    QTRY_COMPARE(telemetry.size(), qsizetype(10));
    bench.link.disconnectTransmitter();
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QVERIFY(bench.pty.write("READY\n"));
    QTRY_COMPARE(lines, QStringList{QStringLiteral("READY")});
}

void TestTransmitterLink::writesKeepKeepaliveSilent()
{
    Bench bench(keepaliveTimings());
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));

    // One channel frame per transmit tick, as while transmitting.
    int framesWritten = 0;
    QTimer transmitTick;
    transmitTick.setTimerType(Qt::PreciseTimer);
    transmitTick.setInterval(7ms);
    connect(&transmitTick, &QTimer::timeout, this, [&] {
        bench.link.serialWrite(kChannelFrame);
        ++framesWritten;
    });
    bench.link.serialWrite(kChannelFrame);
    ++framesWritten;
    transmitTick.start();

    QByteArray received;
    connect(&bench.pty, &PseudoTerminal::readyRead, this, [&] { received += bench.pty.readAll(); });
    // Four keepalive idle periods of frames.
    QTRY_VERIFY_WITH_TIMEOUT(framesWritten >= 4 * 200 / 7, 10000);
    transmitTick.stop();
    QTRY_COMPARE(received.size(), framesWritten * kChannelFrame.size());
    QCOMPARE(received, kChannelFrame.repeated(framesWritten));

    // Once the frames stop, the keepalive takes over with a single line feed.
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), framesWritten * kChannelFrame.size() + 1, 2000);
    QVERIFY(received.endsWith('\n'));
}

void TestTransmitterLink::reconnectsToSamePortAfterReplug()
{
    LogCapture log;
    Bench bench;
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);

    bench.pty.hangUp();
    QVERIFY(connected.wait(2000));
    QCOMPARE(connected.at(0).at(0).toBool(), false);
    QVERIFY(bench.link.isReconnecting());
    QCOMPARE(log.count(QStringLiteral("Transmitter connection lost — starting auto-reconnect")), 1);

    // Unplugged: ticks pass without a connect while the port is not listed.
    QVERIFY(!connected.wait(int(4 * scaled(1500ms).count())));
    QCOMPARE(log.count(QStringLiteral("reconnecting to")), 0);

    QVERIFY(bench.pty.plugIn());
    QVERIFY(connected.wait(2000));
    QCOMPARE(connected.at(1).at(0).toBool(), true);
    QCOMPARE(bench.link.portName(), bench.path);
    QVERIFY(!bench.link.isReconnecting());
    QCOMPARE(log.count(QStringLiteral("Transmitter dropped — reconnecting to ") + bench.path), 1);

    // The unplug itself was logged, once, and not shown.
    QCOMPARE(errors.size(), 0);
    QCOMPARE(log.count(QStringLiteral("Serial error during transmitter reconnect (suppressed):")), 1);

    // The new line works both ways.
    QStringList lines;
    connect(&bench.link, &TransmitterLink::transmitterLineReceived, this,
            [&](const QString &line) { lines << line; });
    QVERIFY(bench.pty.write("BRIDGE READY\r\n"));
    QTRY_COMPARE(lines, QStringList{QStringLiteral("BRIDGE READY")});
    QByteArray sent;
    connect(&bench.pty, &PseudoTerminal::readyRead, this, [&] { sent += bench.pty.readAll(); });
    QCOMPARE(bench.link.serialWrite("STOP\n"), qint64(5));
    QTRY_VERIFY(sent.contains("STOP\n"));
}

void TestTransmitterLink::givesUpOnceWhenAttemptsRunOut_data()
{
    QTest::addColumn<bool>("portComesBackBusy");
    QTest::newRow("port stays away") << false;
    QTest::newRow("port comes back held by another program") << true;
}

void TestTransmitterLink::givesUpOnceWhenAttemptsRunOut()
{
    QFETCH(bool, portComesBackBusy);

    LogCapture log;
    const TransmitterLink::Timings timings = quickTimings();
    Bench bench(timings);
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);

    QElapsedTimer sinceLoss;
    bench.pty.hangUp();
    QVERIFY(connected.wait(2000));
    sinceLoss.start();
    QSerialPort holder;
    if (portComesBackBusy) {
        QVERIFY(bench.pty.plugIn());
        holder.setPortName(bench.path);
        QVERIFY(holder.open(QIODevice::ReadWrite));
    }

    QVERIFY(errors.wait(5000));
    const qint64 lossToGiveUp = sinceLoss.elapsed();
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), kGiveUpMessage);
    QVERIFY(!bench.link.isReconnecting());
    // Tries on ticks 1..19, gives up on tick 20 (30 s at the real rhythm).
    const qint64 fullRun = timings.reconnectAttempts * timings.reconnectInterval.count();
    QVERIFY2(lossToGiveUp >= fullRun * 9 / 10, qPrintable(QStringLiteral("%1 ms").arg(lossToGiveUp)));
    if (portComesBackBusy) {
        QCOMPARE(log.count(QStringLiteral("Transmitter dropped — reconnecting to")),
                 timings.reconnectAttempts - 1);
        QVERIFY(log.count(QStringLiteral("Serial error during transmitter reconnect (suppressed):")) >=
                timings.reconnectAttempts - 1);
    } else {
        QCOMPARE(log.count(QStringLiteral("Transmitter dropped — reconnecting to")), 0);
    }

    // Given up means given up: no second message, no late reconnect.
    if (portComesBackBusy)
        holder.close();
    else
        QVERIFY(bench.pty.plugIn());
    QVERIFY(!connected.wait(int(5 * timings.reconnectInterval.count())));
    QCOMPARE(errors.size(), 1);
    QVERIFY(!bench.link.isConnected());
}

void TestTransmitterLink::userDisconnectNeverReconnects_data()
{
    QTest::addColumn<bool>("alreadyReconnecting");
    QTest::newRow("while connected") << false;
    QTest::newRow("while reconnecting after an unplug") << true;
}

void TestTransmitterLink::userDisconnectNeverReconnects()
{
    QFETCH(bool, alreadyReconnecting);

    Bench bench;
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);

    if (alreadyReconnecting) {
        bench.pty.hangUp();
        QVERIFY(connected.wait(2000));
        QVERIFY(bench.link.isReconnecting());
    }
    bench.link.disconnectTransmitter();
    QVERIFY(!bench.link.isConnected());
    QVERIFY(!bench.link.isReconnecting());
    QCOMPARE(connected.size(), 1);
    QCOMPARE(connected.at(0).at(0).toBool(), false);

    if (alreadyReconnecting)
        QVERIFY(bench.pty.plugIn());
    // Well past the whole reconnect run: nothing comes back, nothing is reported.
    const int fullRun = int(quickTimings().reconnectAttempts * quickTimings().reconnectInterval.count());
    QVERIFY(!connected.wait(fullRun + 200));
    QVERIFY(!bench.link.isConnected());
    QCOMPARE(errors.size(), 0);
}

void TestTransmitterLink::suppressedLinkDoesNotReconnect()
{
    Bench bench;
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);

    bench.link.setAutoReconnectSuppressed(true);
    bench.pty.hangUp();
    QVERIFY(connected.wait(2000));
    QVERIFY(!bench.link.isReconnecting());
    // Not reconnecting, so the unplug is the owner's to show, once.
    QCOMPARE(errors.size(), 1);
    QVERIFY(bench.pty.plugIn());
    QVERIFY(!connected.wait(int(5 * quickTimings().reconnectInterval.count())));
}

void TestTransmitterLink::switchingPortsIsNotALoss()
{
    LogCapture log;
    Bench bench;
    QVERIFY(bench.ok);
    PseudoTerminal second;
    QVERIFY(second.open());
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);

    QVERIFY(bench.link.connectTransmitter(second.slavePath()));
    QCOMPARE(connected.size(), 2);
    QVERIFY(!bench.link.isReconnecting());
    QCOMPARE(log.count(QStringLiteral("starting auto-reconnect")), 0);
    QCOMPARE(bench.link.rememberedPortName(), second.slavePath());
}

void TestTransmitterLink::errorsReachOwnerWhenNotReconnecting()
{
    Bench bench;
    QVERIFY(bench.ok);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);
    QSerialPort holder(bench.path);
    QVERIFY(holder.open(QIODevice::ReadWrite));

    QVERIFY(!bench.link.connectTransmitter(bench.path));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.at(0).at(0).toString().contains(QStringLiteral("stayed busy")));
    QVERIFY(!bench.link.isReconnecting());
}

QTEST_GUILESS_MAIN(TestTransmitterLink)
#include "tst_transmitterlink.moc"
