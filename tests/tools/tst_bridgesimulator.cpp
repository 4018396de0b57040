#include "bridgeclient.h"
#include "bridgelog.h"
#include "bridgesimulator.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using tavrix::sim::BridgeLog;
using tavrix::sim::BridgeSimulator;
using tavrix::sim::BridgeSimulatorSettings;
using tavrix::sim::ChannelArray;
using Mode = BridgeSimulator::Mode;

Q_DECLARE_METATYPE(crsftest::Channels)

namespace {

// Waits until the bridge has answered something containing `reply`.
bool sendAndWaitForReply(BridgeClient &client, const QByteArray &bytes, const QString &reply)
{
    const qsizetype from = client.parser.lines.size();
    client.send(bytes);
    return client.waitForLine(reply, 2000, from);
}

} // namespace

#define START_RIG(sim, client)                                                                               \
    QVERIFY2((sim).start(), qPrintable((sim).errorString()));                                                \
    QVERIFY2((client).open((sim).clientPath()), qPrintable((client).port.errorString()))

// The simulated bridge driven the way the hub drives the real one: a QSerialPort
// on its pty, commands and channel frames out, telemetry and text back.
class TestBridgeSimulator : public QObject
{
    Q_OBJECT
private slots:
    void commandsAreAnsweredAndRecorded_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("sent");
        QTest::addColumn<QString>("recorded");
        QTest::addColumn<QString>("reply");
        QTest::addColumn<Mode>("mode");

        const auto row = [](const char *name, const char *before, const char *sent, const char *recorded,
                            const char *reply, Mode mode) {
            QTest::newRow(name) << QByteArray(before) << QByteArray(sent) << QString::fromUtf8(recorded)
                                << QString::fromUtf8(reply) << mode;
        };
        row("start with CR LF", "", "START\r\n", "START", "OK START", Mode::Transmitting);
        row("stop", "START\n", "STOP\n", "STOP", "OK STOP", Mode::Idle);
        row("config off", "CFGMODE ON\n", "CFGMODE OFF\n", "CFGMODE OFF", "OK CFGMODE OFF", Mode::Idle);
        row("keepalive", "", "\n", "", "STATUS mode=idle link=up", Mode::Idle);
        row("start refused in config mode", "CFGMODE ON\n", "START\n", "START", "ERR START refused",
            Mode::Configuring);
        row("config refused while transmitting", "START\n", "CFGMODE ON\n", "CFGMODE ON",
            "ERR CFGMODE refused", Mode::Transmitting);
        row("unknown command", "", "HELLO\n", "HELLO", "ERR unknown command: HELLO", Mode::Idle);
        // 0xC8 0x18 promises a 26-byte frame that never comes; the command behind it must not wait forever.
        row("behind a stalled partial frame", "", "\xc8\x18START\n", "START", "OK START", Mode::Transmitting);
    }

    void commandsAreAnsweredAndRecorded()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, sent);
        QFETCH(QString, recorded);
        QFETCH(QString, reply);
        QFETCH(Mode, mode);

        BridgeSimulator sim(quietSettings());
        BridgeClient client;
        START_RIG(sim, client);
        if (!before.isEmpty())
            QVERIFY(sendAndWaitForReply(client, before, QStringLiteral("OK ")));

        QSignalSpy commands(&sim, &BridgeSimulator::commandReceived);
        QVERIFY2(sendAndWaitForReply(client, sent, reply),
                 qPrintable(client.parser.lines.join(QLatin1Char('|'))));
        QCOMPARE(commands.size(), 1);
        QCOMPARE(commands.at(0).at(0).toString(), recorded);
        QCOMPARE(sim.commands().last(), recorded);
        QCOMPARE(sim.mode(), mode);
    }

    void channelFramesDecodeToTheSentValues()
    {
        crsftest::Channels channels{};
        for (int i = 0; i < 16; ++i)
            channels[size_t(i)] = 200 + 100 * i; // puts a sync byte inside the payload
        BridgeSimulator sim(quietSettings());
        BridgeClient client;
        START_RIG(sim, client);

        QSignalSpy decoded(&sim, &BridgeSimulator::channelFrameReceived);
        // A burst the way the transmit loop writes them: many frames per read.
        const int frames = 25;
        QByteArray burst;
        for (int i = 0; i < frames; ++i)
            burst += crsftest::channelFrame(channels);
        client.send(burst);
        QTRY_COMPARE(decoded.size(), frames);

        for (const QList<QVariant> &args : std::as_const(decoded))
            QCOMPARE(args.at(0).value<ChannelArray>(), channels);
        QCOMPARE(sim.lastChannels(), channels);
        QCOMPARE(sim.channelFrameCount(), quint64(frames));
        const QList<qint64> times = sim.channelFrameTimes();
        QCOMPARE(times.size(), frames);
        QVERIFY(std::is_sorted(times.cbegin(), times.cend()));
        QCOMPARE(sim.garbageByteCount(), quint64(0));
    }

    void stalledBridgeRecordsButNeverAnswers()
    {
        BridgeSimulator sim(quietSettings());
        BridgeClient client;
        START_RIG(sim, client);
        sim.setStalled(true);
        QSignalSpy commands(&sim, &BridgeSimulator::commandReceived);
        QSignalSpy sent(&sim, &BridgeSimulator::telemetryFrameSent);
        client.send("START\n");
        QVERIFY(commands.wait());
        QCOMPARE(commands.at(0).at(0).toString(), QStringLiteral("START"));
        QVERIFY(!client.waitForLine(QStringLiteral("OK"), 400));
        QVERIFY(sent.isEmpty());
        QCOMPARE(sim.mode(), Mode::Idle); // a hung firmware acts on nothing

        sim.setStalled(false);
        QVERIFY(sendAndWaitForReply(client, "START\n", QStringLiteral("OK START")));
        QVERIFY(sent.wait(1000));
        sim.setStalled(true);
        QVERIFY(!sim.isTelemetryFlowing());
    }

    void parameterWalkRunsOnlyInConfigMode()
    {
        BridgeSimulator sim(quietSettings());
        BridgeClient client;
        START_RIG(sim, client);
        QVERIFY(sendAndWaitForReply(client, "WALKRF\n", QStringLiteral("ERR WALKRF needs CFGMODE ON")));
        QVERIFY(sendAndWaitForReply(client, "CFGMODE ON\n", QStringLiteral("OK CFGMODE ON")));
        const qsizetype from = client.parser.lines.size();
        QVERIFY(sendAndWaitForReply(client, "WALKRF\n", QStringLiteral("WALK: starting")));
        QVERIFY(client.waitForLine(QStringLiteral("WALK: done"), 3000, from));

        const QStringList walk = client.parser.lines.mid(from);
        QCOMPARE(walk.first(), QStringLiteral("WALK: starting"));
        QCOMPARE(walk.last(), QStringLiteral("WALK: done"));
        const QStringList fields = walk.filter(QStringLiteral("FIELD "));
        QCOMPARE(fields.size(), walk.size() - 2);
        QCOMPARE(fields.size(), tavrix::sim::SimulatedParameterDevice::transmitterModule().fields().size());
        QVERIFY(fields.first().startsWith(QLatin1String("FIELD 1: 00 09 50 61 63 6B 65 74"))); // "Packet"
    }

    void deviceEnquiryIsAnsweredByWhoIsReachable_data()
    {
        QTest::addColumn<bool>("carOn");
        QTest::addColumn<QByteArray>("ping");
        QTest::addColumn<QList<int>>("origins");
        const QByteArray broadcast = crsftest::frame(0x28, QByteArray::fromHex("00ea"));
        QTest::newRow("broadcast, car on") << true << broadcast << QList<int>{0xEE, 0xC8};
        QTest::newRow("broadcast, car off") << false << broadcast << QList<int>{0xEE};
        QTest::newRow("to the receiver, car on")
            << true << crsftest::frame(0x28, QByteArray::fromHex("c8ea")) << QList<int>{0xC8};
    }

    void deviceEnquiryIsAnsweredByWhoIsReachable()
    {
        QFETCH(bool, carOn);
        QFETCH(QByteArray, ping);
        QFETCH(QList<int>, origins);
        BridgeSimulator sim(quietSettings());
        BridgeClient client;
        START_RIG(sim, client);
        sim.setLinkUp(carOn);
        client.send(ping);
        QTRY_COMPARE(client.parser.countOfType(0x29), origins.size());
        // A keepalive answered means every answer to the ping is in.
        QVERIFY(sendAndWaitForReply(client, "\n", QStringLiteral("STATUS")));
        QList<int> got;
        for (const QByteArray &f : std::as_const(client.parser.frames))
            if (uint8_t(f[2]) == 0x29)
                got.append(uint8_t(f[4]));
        QCOMPARE(got, origins);
    }

    void logHoldsEveryFrameAndCommandInOrder()
    {
        // Every kind of record in the order it happened; a frame with its exact bytes and its
        // channels as the tests' own packer put them in.
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("bridge.jsonl"));
        BridgeSimulator sim(quietSettings());
        BridgeLog log;
        QVERIFY2(log.open(path), qPrintable(log.errorString()));
        log.attach(&sim);
        BridgeClient client;
        START_RIG(sim, client);

        const crsftest::Channels sent{172, 1811, 0, 2047, 1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 2046};
        const QByteArray frame = crsftest::channelFrame(sent);
        QJsonArray sentJson;
        for (const int32_t value : sent)
            sentJson.append(value);
        QVERIFY(sendAndWaitForReply(client, "START\n", QStringLiteral("OK START")));
        client.send(frame + QByteArray(1, '\0') + frame);
        QVERIFY(sendAndWaitForReply(client, "\n", QStringLiteral("STATUS")));
        QVERIFY(sendAndWaitForReply(client, "STOP\n", QStringLiteral("OK STOP")));

        // Read while the log is still open: it is flushed record by record.
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QStringList kinds;
        while (!file.atEnd()) {
            const QJsonObject o = QJsonDocument::fromJson(file.readLine()).object();
            kinds.append(o.value(QStringLiteral("kind")).toString() + QLatin1Char(':') +
                         o.value(QStringLiteral("command")).toString() +
                         o.value(QStringLiteral("hex")).toString());
            if (o.value(QStringLiteral("kind")) == QStringLiteral("frame")) {
                QCOMPARE(o.value(QStringLiteral("type")).toInt(), 0x16);
                QCOMPARE(o.value(QStringLiteral("channels")).toArray(), sentJson);
            }
        }
        const QString hex = QString::fromLatin1(frame.toHex());
        QCOMPARE(kinds, (QStringList{QStringLiteral("command:START"), QStringLiteral("frame:") + hex,
                                     QStringLiteral("garbage:00"), QStringLiteral("frame:") + hex,
                                     QStringLiteral("keepalive:"), QStringLiteral("command:STOP")}));
    }

private:
    static BridgeSimulatorSettings quietSettings()
    {
        BridgeSimulatorSettings s;
        s.telemetry.statusLineIntervalMs = 0; // keep the text channel to the answers under test
        return s;
    }
};

QTEST_GUILESS_MAIN(TestBridgeSimulator)
#include "tst_bridgesimulator.moc"
