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
    void connectRemembersOnlyAPortThatOpened();
    void passesAllBytesOnBeforeTheLine();
    void writesKeepKeepaliveSilent();
    void reconnectsToSamePortAfterReplug();
    void givesUpOnceWhenAttemptsRunOut_data();
    void givesUpOnceWhenAttemptsRunOut();
    void userDisconnectNeverReconnects_data();
    void userDisconnectNeverReconnects();
    void switchingPortsIsNotALoss();
};

void TestTransmitterLink::connectRemembersOnlyAPortThatOpened()
{
    Bench bench;
    QVERIFY(bench.ok);
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);
    QSignalSpy names(&bench.link, &TransmitterLink::serialPortNameChanged);
    QSignalSpy remembered(&bench.link, &TransmitterLink::connectionRemembered);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);

    bench.link.setRememberedPort(bench.path, 115200);
    QVERIFY(!bench.link.connectTransmitter(bench.dir.filePath(QStringLiteral("ttyMissing"))));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(bench.link.rememberedPortName(), bench.path);
    QCOMPARE(bench.link.serialWrite("STOP\n"), qint64(-1));

    QVERIFY(bench.link.connectTransmitter(bench.path, 57600));
    QCOMPARE(bench.link.portName(), bench.path);
    QCOMPARE(connected.size(), 1);
    QCOMPARE(names.size(), 1);
    QCOMPARE(remembered.size(), 1);
    QCOMPARE(remembered.at(0).at(1).toInt(), 57600);
    QCOMPARE(bench.link.rememberedBaudRate(), 57600);
    QByteArray sent;
    connect(&bench.pty, &PseudoTerminal::readyRead, this, [&] { sent += bench.pty.readAll(); });
    QCOMPARE(bench.link.serialWrite("START\n"), qint64(6));
    QTRY_VERIFY(sent.startsWith("START\n"));
}

void TestTransmitterLink::passesAllBytesOnBeforeTheLine()
{
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

    // Half a line from before a reconnect is not glued to the first line after it.
    QVERIFY(bench.pty.write("stale half"));
    QTRY_COMPARE(telemetry.size(), qsizetype(10));
    bench.link.disconnectTransmitter();
    QVERIFY(bench.link.connectTransmitter(bench.path));
    telemetry.clear();

    // How lines are cut is the splitter's own test; here, that every byte goes out as
    // telemetry, a frame whose length byte is a line feed among them, before the line.
    const QByteArray sent = QByteArray::fromHex("c80a08002101280004d243b2") + "PONG\r\n";
    QVERIFY(bench.pty.write(sent));
    QTRY_COMPARE(telemetry, sent);
    QCOMPARE(lines, QStringList{QStringLiteral("!(CPONG")});
    QCOMPARE(telemetrySeenAtLine, QList<qsizetype>{sent.size()});
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
    QVERIFY(bench.link.isReconnecting());

    // Unplugged: ticks pass without a connect while the port is not listed.
    QVERIFY(!connected.wait(int(4 * scaled(1500ms).count())));
    QCOMPARE(log.count(QStringLiteral("reconnecting to")), 0);

    QVERIFY(bench.pty.plugIn());
    QVERIFY(connected.wait(2000));
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
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("errorsShown");
    QTest::newRow("disconnected while connected") << QStringLiteral("disconnect") << 0;
    QTest::newRow("disconnected while reconnecting after an unplug")
        << QStringLiteral("unplug, disconnect") << 0;
    // Not reconnecting, so the unplug is the owner's to show, once.
    QTest::newRow("unplugged with reconnecting suppressed") << QStringLiteral("suppress, unplug") << 1;
}

void TestTransmitterLink::userDisconnectNeverReconnects()
{
    QFETCH(QString, how);
    QFETCH(int, errorsShown);

    Bench bench;
    QVERIFY(bench.ok);
    QVERIFY(bench.link.connectTransmitter(bench.path));
    QSignalSpy connected(&bench.link, &TransmitterLink::serialConnectedChanged);
    QSignalSpy errors(&bench.link, &TransmitterLink::errorOccurred);

    const bool suppressed = how.startsWith(QLatin1String("suppress"));
    bench.link.setAutoReconnectSuppressed(suppressed);
    if (how.contains(QLatin1String("unplug"))) {
        bench.pty.hangUp();
        QVERIFY(connected.wait(2000));
        QCOMPARE(bench.link.isReconnecting(), !suppressed);
        QVERIFY(bench.pty.plugIn());
    }
    if (how.contains(QLatin1String("disconnect")))
        bench.link.disconnectTransmitter();
    QVERIFY(!bench.link.isConnected());
    QVERIFY(!bench.link.isReconnecting());
    QCOMPARE(connected.size(), 1);

    // Well past the whole reconnect run: nothing comes back, nothing more is reported.
    const int fullRun = int(quickTimings().reconnectAttempts * quickTimings().reconnectInterval.count());
    QVERIFY(!connected.wait(fullRun + 200));
    QVERIFY(!bench.link.isConnected());
    QCOMPARE(errors.size(), errorsShown);
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
    // The first port is really released: another client can take it now.
    QSerialPort other(bench.path);
    QVERIFY2(other.open(QIODevice::ReadWrite), qPrintable(other.errorString()));
}

QTEST_GUILESS_MAIN(TestTransmitterLink)
#include "tst_transmitterlink.moc"
